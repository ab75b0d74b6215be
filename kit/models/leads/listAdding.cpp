#include "kit/models/leads/listAdding.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(ListAddBody)
ORV_RECORD_CODERS(ListCreated)
ORV_RECORD_CODERS(ListAddResult)
ORV_RECORD_CODERS(ListRemoved)

}  // namespace orv
