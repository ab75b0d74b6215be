#include "kit/models/analytics/analyticsRequests.h"

#include "kit/api/requestBuilders.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {

Request<AnalyticsSummary> analyticsSummary(const QString& from, const QString& to,
                                           const std::optional<QString>& campaign,
                                           const std::optional<QString>& mailbox, const std::optional<QString>& tag) {
  auto request = get<AnalyticsSummary>(u"/analytics/summary"_s, {{u"from"_s, from}, {u"to"_s, to}});
  request.answerAtMost = wholeListAtMost;
  addOptional(request.query, u"campaigns"_s, campaign);
  addOptional(request.query, u"mailboxes"_s, mailbox);
  addOptional(request.query, u"tags"_s, tag);
  return request;
}

Request<AnalyticsOverview> analyticsOverview(const QString& from, const QString& to) {
  return get<AnalyticsOverview>(u"/analytics/overview"_s, {{u"scope"_s, u"this"_s}, {u"from"_s, from}, {u"to"_s, to}});
}

Request<WarmupHealth> warmupHealth() { return get<WarmupHealth>(u"/analytics/warmup"_s); }

Request<Dashboard> dashboard() { return get<Dashboard>(u"/dashboard"_s); }

}  // namespace orv::Requests
