#include "kit/models/inbox/inboxThread.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(ThreadPage)
ORV_RECORD_CODERS(ThreadPatch)
ORV_RECORD_CODERS(InboxThread)

}  // namespace orv
