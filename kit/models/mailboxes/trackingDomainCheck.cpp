#include "kit/models/mailboxes/trackingDomainCheck.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(TrackingDomainCheck)

}  // namespace orv
