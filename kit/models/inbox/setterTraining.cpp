#include "kit/models/inbox/setterTraining.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(SetterTraining)
ORV_RECORD_CODERS(SetterLesson)
ORV_RECORD_CODERS(SetterLessons)
ORV_RECORD_CODERS(SetterLessonBody)
ORV_RECORD_CODERS(SetterLessonPatch)
ORV_RECORD_CODERS(SetterCampaignModes)
ORV_RECORD_CODERS(SetterModeBody)

}  // namespace orv
