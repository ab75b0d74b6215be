#include "kit/models/workspace/members.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(Member)
ORV_RECORD_CODERS(MemberPage)
ORV_RECORD_CODERS(Invite)
ORV_RECORD_CODERS(InvitePage)
ORV_RECORD_CODERS(RoleBody)
ORV_RECORD_CODERS(InviteBody)

}  // namespace orv
