#include "kit/models/leads/leadList.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(LeadList)
ORV_RECORD_CODERS(LeadListPage)
ORV_RECORD_CODERS(ListPatch)

}  // namespace orv
