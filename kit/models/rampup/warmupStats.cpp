#include "kit/models/rampup/warmupStats.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(WarmupStats)

}  // namespace orv
