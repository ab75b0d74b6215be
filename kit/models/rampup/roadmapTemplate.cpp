#include "kit/models/rampup/roadmapTemplate.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(RoadmapTemplate)
ORV_RECORD_CODERS(TemplatePage)
ORV_RECORD_CODERS(NewTemplateBody)
ORV_RECORD_CODERS(TemplatePatch)

}  // namespace orv
