#include "kit/models/rampup/roadmapPlan.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(RoadmapPlan)

}  // namespace orv
