#include "kit/models/campaigns/testEmail.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(TestEmail)
ORV_RECORD_CODERS(TestEmailBody)

}  // namespace orv
