#include "kit/models/analytics/analyticsSummary.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(AnalyticsSummary)
ORV_RECORD_CODERS(AnalyticsSummary::CampaignRow)
ORV_RECORD_CODERS(AnalyticsSummary::AccountRow)

}  // namespace orv
