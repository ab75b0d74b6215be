#include "kit/models/workspace/workspaceDetail.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(WorkspaceDetail)
ORV_RECORD_CODERS(WorkspacePatch)
ORV_RECORD_CODERS(DeletionBody)
ORV_RECORD_CODERS(ClientWorkspaceBody)
ORV_RECORD_CODERS(ClientWorkspace)

}  // namespace orv
