#include "kit/models/mailboxes/mailboxPatch.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(MailboxPatch)
ORV_RECORD_CODERS(ReadyModeBody)

}  // namespace orv
