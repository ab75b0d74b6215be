#include "kit/models/mailboxes/mailboxHealth.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(MailboxHealth)

}  // namespace orv
