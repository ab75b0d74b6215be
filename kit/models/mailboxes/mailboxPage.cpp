#include "kit/models/mailboxes/mailboxPage.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(MailboxPage)

}  // namespace orv
