#include "kit/models/rampup/rampupChanges.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(ExtendBody)
ORV_RECORD_CODERS(RestartBody)
ORV_RECORD_CODERS(RampupBulkBody)
ORV_RECORD_CODERS(RampupBulkResult)

}  // namespace orv
