#include "kit/models/analytics/warmupHealth.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(WarmupHealth)

}  // namespace orv
