#include "kit/models/leads/leadCounts.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(LeadCount)
ORV_RECORD_CODERS(LeadPools)
ORV_RECORD_CODERS(LeadTotals)

}  // namespace orv
