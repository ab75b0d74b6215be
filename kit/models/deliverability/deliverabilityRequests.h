#pragma once

#include <QString>

#include "kit/api/APIRequest.h"

namespace orv {

struct DeliverabilityInboxDetail;
struct DeliverabilityReport;

namespace Requests {

Request<DeliverabilityReport> deliverability();
Request<DeliverabilityInboxDetail> deliverabilityInbox(const QString& mailboxId);

}  // namespace Requests
}  // namespace orv
