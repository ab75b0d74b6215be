#include "kit/models/campaigns/sentMessage.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(MessagePage)

}  // namespace orv
