#include "kit/models/analytics/dashboard.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(Dashboard)

}  // namespace orv
