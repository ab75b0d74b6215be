#include "kit/models/leads/campaignAddSum.h"

#include "kit/models/campaigns/addLeads.h"

namespace orv {

CampaignAddSum& CampaignAddSum::operator+=(const AddLeadsResult& more) {
  added += more.added;
  alreadyInCampaign += more.skipped.alreadyInCampaign;
  inOtherCampaign += more.skipped.inOtherCampaign;
  inList += more.skipped.inList;
  suppressed += more.skipped.suppressed;
  invalid += more.skipped.invalid;
  total += more.total;
  return *this;
}

}  // namespace orv
