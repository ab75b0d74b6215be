#include "app/figures/MetricFigures.h"

#include "app/base/cellText.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Figure trackedFigure(const QString& title, const std::optional<qint64>& count, qint64 sent) {
  if (!count) return {.title = title, .value = noValue, .detail = u"Tracking off"_s};
  return {.title = title, .value = Format::grouped(*count), .detail = Format::rate(*count, sent)};
}

void forget(auto& figures, const AnalyticsSummary::Tracking& tracking) {
  if (!tracking.opens) figures.opens.reset();
  if (!tracking.clicks) figures.clicks.reset();
}

}  // namespace

QString Figure::spoken() const {
  QStringList parts{title, value, unit, detail, warning};
  parts.removeAll(QString());
  return parts.join(u", "_s);
}

AnalyticsSummary asTracked(AnalyticsSummary summary) {
  const auto tracking = summary.tracking;
  forget(summary.totals, tracking);
  for (auto& day : summary.days) forget(day, tracking);
  for (auto& row : summary.campaigns) forget(row, tracking);
  for (auto& row : summary.accounts) forget(row, tracking);
  return summary;
}

QList<Figure> metricFigures(const Metrics& m) {
  using Format::grouped, Format::rate;
  return {{.title = u"Sent"_s, .value = grouped(m.sent), .detail = grouped(m.newContacted) + u" new"_s},
          trackedFigure(u"Opens"_s, m.opens, m.sent),
          trackedFigure(u"Clicks"_s, m.clicks, m.sent),
          {.title = u"Replies"_s,
           .value = grouped(m.replies),
           .detail = rate(m.replies, m.sent) + u" · "_s + grouped(m.autoReplies) + u" auto"_s},
          {.title = u"Bounces"_s, .value = grouped(m.bounces), .detail = rate(m.bounces, m.sent)},
          {.title = u"Unsubscribes"_s,
           .value = grouped(m.unsubscribes),
           .detail = rate(m.unsubscribes, m.contacted) + u" of contacted"_s},
          {.title = u"Opportunities"_s,
           .value = grouped(m.opportunities),
           .detail = rate(m.opportunities, m.replies) + u" of replies"_s},
          {.title = u"Meetings"_s,
           .value = grouped(m.meetingsBooked),
           .detail = u"Meetings completed "_s + grouped(m.meetingsCompleted),
           .unit = u"booked"_s}};
}

}  // namespace orv
