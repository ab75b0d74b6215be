#include "kit/models/mailboxes/mailboxHistory.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(MailboxHistory)

}  // namespace orv
