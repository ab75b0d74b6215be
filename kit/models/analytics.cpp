#include "kit/models/analytics.h"

#include "kit/api/JSONCodingImpl.h"
#include "kit/api/requestBuilders.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_RECORD_CODERS(AnalyticsSummary)

namespace Requests {

Request<AnalyticsSummary> analyticsSummary(const QString& from, const QString& to,
                                           const std::optional<QString>& campaign,
                                           const std::optional<QString>& mailbox, const std::optional<QString>& tag) {
  auto request = get<AnalyticsSummary>(u"/analytics/summary"_s, {{u"from"_s, from}, {u"to"_s, to}});
  addOptional(request.query, u"campaigns"_s, campaign);
  addOptional(request.query, u"mailboxes"_s, mailbox);
  addOptional(request.query, u"tags"_s, tag);
  return request;
}

}  // namespace Requests
}  // namespace orv
