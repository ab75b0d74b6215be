#include "kit/models/leads/ownLeads.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(OwnLeadsBody)
ORV_RECORD_CODERS(OwnLeads)

}  // namespace orv
