#include "kit/models/campaigns/campaign.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(Campaign)
ORV_RECORD_CODERS(CreateCampaignBody)
ORV_RECORD_CODERS(CampaignPatch)

}  // namespace orv
