#include "kit/models/campaigns/sequence.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(StepsBody)
ORV_RECORD_CODERS(SpintaxBody)
ORV_RECORD_CODERS(SpintaxOut)

}  // namespace orv
