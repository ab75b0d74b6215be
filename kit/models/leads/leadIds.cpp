#include "kit/models/leads/leadIds.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(LeadIdsBody)

}  // namespace orv
