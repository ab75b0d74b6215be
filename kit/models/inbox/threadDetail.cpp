#include "kit/models/inbox/threadDetail.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(InboxMessage)
ORV_RECORD_CODERS(ThreadDetail)
ORV_RECORD_CODERS(ReplyBody)
ORV_RECORD_CODERS(ReplyAccepted)

}  // namespace orv
