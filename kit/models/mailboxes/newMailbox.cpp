#include "kit/models/mailboxes/newMailbox.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(MailboxConnectionIn::SmtpImap)
ORV_RECORD_CODERS(MailboxConnectionIn::MsGraphApp)
ORV_RECORD_CODERS(MailboxConnectionIn::GoogleDwd)
ORV_RECORD_CODERS(NewMailboxBody)

}  // namespace orv
