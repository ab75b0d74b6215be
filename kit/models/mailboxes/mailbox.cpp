#include "kit/models/mailboxes/mailbox.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(Mailbox)

}  // namespace orv
