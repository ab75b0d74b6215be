#include "kit/models/campaigns/campaignSummary.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(CampaignSummary)
ORV_RECORD_CODERS(CampaignList)

}  // namespace orv
