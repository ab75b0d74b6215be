#include "kit/models/deliverability/deliverabilityRequests.h"

#include "kit/api/requestBuilders.h"
#include "kit/models/deliverability/deliverabilityReport.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {

Request<DeliverabilityReport> deliverability() {
  auto request = get<DeliverabilityReport>(u"/deliverability"_s);
  request.answerAtMost = wholeListAtMost;
  return request;
}

Request<DeliverabilityInboxDetail> deliverabilityInbox(const QString& mailboxId) {
  return get<DeliverabilityInboxDetail>(u"/deliverability/inboxes/"_s + pathSegment(mailboxId));
}

}  // namespace orv::Requests
