#include "kit/models/analytics/analyticsOverview.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(AnalyticsOverview)

}  // namespace orv
