#include "kit/models/deliverability/deliverabilityReport.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(DeliverabilityReport)
ORV_RECORD_CODERS(DeliverabilityInboxDetail)

}  // namespace orv
