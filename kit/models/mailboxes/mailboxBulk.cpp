#include "kit/models/mailboxes/mailboxBulk.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(MailboxBulkBody)
ORV_RECORD_CODERS(MailboxBulkResult)

}  // namespace orv
