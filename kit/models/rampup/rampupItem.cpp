#include "kit/models/rampup/rampupItem.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(RampupItem)
ORV_RECORD_CODERS(RampupList)

}  // namespace orv
