#include "kit/models/campaigns/launchCheck.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(Qc)
ORV_RECORD_CODERS(LaunchBody)

}  // namespace orv
