#include "kit/models/setup/setupProject.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(SetupLastRun)
ORV_RECORD_CODERS(SetupArchivedDomain)
ORV_RECORD_CODERS(SetupProject)
ORV_RECORD_CODERS(SetupProjectPage)

}  // namespace orv
