#include "kit/models/inbox/draft.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(Draft)

}  // namespace orv
