#include "kit/models/campaigns/leadChanges.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(BulkLeadsBody)
ORV_RECORD_CODERS(BulkResult)
ORV_RECORD_CODERS(MoveLeadsBody)
ORV_RECORD_CODERS(MoveResult)
ORV_RECORD_CODERS(RestoredResult)

}  // namespace orv
