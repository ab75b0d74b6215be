#include "demo/DailyFigures.h"

#include "kit/api/PlatformDate.h"

namespace orv::demo {
namespace {

constexpr double opportunityValue = 500;

/// The part of `total` that falls on day `index` of `days`: spread evenly, with the rounding carried along.
qint64 onDay(qint64 total, qint64 index, qint64 days) { return total * (index + 1) / days - total * index / days; }

struct Day {
  qint64 sent = 0, replies = 0, bounces = 0, interested = 0;
};

Day dayOf(const CampaignStats& stats, qint64 index, qint64 days) {
  return {onDay(stats.sent, index, days), onDay(stats.replied, index, days), onDay(stats.bounced, index, days),
          onDay(stats.positive, index, days)};
}

}  // namespace

AnalyticsSummary analyticsOf(const QList<const DemoCampaign*>& campaigns, const QDate& from, const QDate& to,
                             const QDate& today, const QString& timeZone) {
  AnalyticsSummary summary;
  summary.from = from.toString(Qt::ISODate);
  summary.to = to.toString(Qt::ISODate);
  summary.timeZone = timeZone;
  summary.opportunityValueEach = opportunityValue;
  for (QDate day = from; day <= to; day = day.addDays(1)) {
    MetricDay metric;
    metric.day = day.toString(Qt::ISODate);
    metric.contacted = 0;
    metric.bounces = 0;
    summary.days.append(metric);
  }

  for (const DemoCampaign* campaign : campaigns) {
    const Campaign& record = campaign->record;
    const auto launched = record.launchedAt ? parsePlatformDate(*record.launchedAt) : std::nullopt;
    if (!launched) continue;
    const QDate start = launched->date();
    const qint64 days = std::max<qint64>(1, start.daysTo(today) + 1);
    AnalyticsSummary::CampaignRow row;
    row.id = record.id;
    row.number = record.number;
    row.name = record.name;
    row.status = record.status.rawValue;
    row.leads = campaign->stats().leads.total;
    for (qint64 index = 0; index < days; ++index) {
      const qint64 column = from.daysTo(start.addDays(index));
      if (column < 0 || column >= summary.days.size()) continue;
      const Day day = dayOf(campaign->stats(), index, days);
      MetricDay& metric = summary.days[column];
      metric.sent += day.sent;
      metric.contacted = metric.contacted.value_or(0) + day.sent;
      metric.replies += day.replies;
      metric.bounces = metric.bounces.value_or(0) + day.bounces;
      row.sent += day.sent;
      row.replies += day.replies;
      row.bounces += day.bounces;
      row.interested += day.interested;
    }
    row.contacted = std::min(row.sent, row.leads);
    row.opportunities = row.interested;
    row.opportunityValue = double(row.interested) * opportunityValue;
    if (row.sent > 0) summary.campaigns.append(row);
  }

  Metrics& totals = summary.totals;
  for (const auto& row : std::as_const(summary.campaigns)) {
    totals.sent += row.sent;
    totals.contacted += row.contacted;
    totals.newContacted += row.contacted;
    totals.replies += row.replies;
    totals.bounces += row.bounces;
    totals.interested += row.interested;
    totals.opportunities += row.opportunities;
    totals.opportunityValue += row.opportunityValue.value_or(0);
  }
  return summary;
}

}  // namespace orv::demo
