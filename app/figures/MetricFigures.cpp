#include "app/figures/MetricFigures.h"

#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QVariantMap trackedFigure(const QString& title, const std::optional<qint64>& count, qint64 sent) {
  if (!count) return figure(title, u"–"_s, u"Tracking off"_s);
  return figure(title, Format::grouped(*count), Format::rate(*count, sent));
}

void forget(auto& figures, const AnalyticsSummary::Tracking& tracking) {
  if (!tracking.opens) figures.opens.reset();
  if (!tracking.clicks) figures.clicks.reset();
}

}  // namespace

AnalyticsSummary asTracked(AnalyticsSummary summary) {
  const auto tracking = summary.tracking;
  forget(summary.totals, tracking);
  for (auto& day : summary.days) forget(day, tracking);
  for (auto& row : summary.campaigns) forget(row, tracking);
  for (auto& row : summary.accounts) forget(row, tracking);
  return summary;
}

QVariantMap figure(const QString& title, const QString& value, const QString& detail, const QString& unit,
                   const QString& warning) {
  return {{u"title"_s, title}, {u"value"_s, value}, {u"unit"_s, unit}, {u"detail"_s, detail}, {u"warning"_s, warning}};
}

QVariantList metricFigures(const Metrics& m) {
  using Format::grouped, Format::rate;
  return {figure(u"Sent"_s, grouped(m.sent), grouped(m.newContacted) + u" new"_s),
          trackedFigure(u"Opens"_s, m.opens, m.sent),
          trackedFigure(u"Clicks"_s, m.clicks, m.sent),
          figure(u"Replies"_s, grouped(m.replies),
                 rate(m.replies, m.sent) + u" · "_s + grouped(m.autoReplies) + u" auto"_s),
          figure(u"Bounces"_s, grouped(m.bounces), rate(m.bounces, m.sent)),
          figure(u"Unsubscribes"_s, grouped(m.unsubscribes), rate(m.unsubscribes, m.contacted) + u" of contacted"_s),
          figure(u"Opportunities"_s, grouped(m.opportunities), rate(m.opportunities, m.replies) + u" of replies"_s),
          figure(u"Meetings"_s, grouped(m.meetingsBooked), u"Meetings completed "_s + grouped(m.meetingsCompleted),
                 u"booked"_s)};
}

}  // namespace orv
