#include "kit/models/campaigns/subsequence.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(SubsequenceList)
ORV_RECORD_CODERS(SubsequenceBody)

}  // namespace orv
