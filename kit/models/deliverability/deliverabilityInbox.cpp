#include "kit/models/deliverability/deliverabilityInbox.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(DeliverabilityInbox)

}  // namespace orv
