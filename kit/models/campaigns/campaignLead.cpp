#include "kit/models/campaigns/campaignLead.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(CampaignLead)
ORV_RECORD_CODERS(LeadPage)
ORV_RECORD_CODERS(LeadDetail)
ORV_RECORD_CODERS(LeadPatchBody)

}  // namespace orv
