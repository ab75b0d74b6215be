#include "kit/models/leads/unlocks.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(UnlockUsage)
ORV_RECORD_CODERS(UnlockBody)
ORV_RECORD_CODERS(UnlockResult)

}  // namespace orv
