#include "kit/models/deliverability/deliverabilityDecision.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(DeliverabilityDecision)

}  // namespace orv
