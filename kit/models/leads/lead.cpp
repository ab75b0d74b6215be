#include "kit/models/leads/lead.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(Lead)
ORV_RECORD_CODERS(LeadSearchPage)

}  // namespace orv
