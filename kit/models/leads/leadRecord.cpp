#include "kit/models/leads/leadRecord.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(LeadRecord)

}  // namespace orv
