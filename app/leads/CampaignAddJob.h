#pragma once

#include "app/base/Choice.h"
#include "app/base/Jobs.h"
#include "kit/models/leads/campaignAddSum.h"
#include "kit/models/leads/leadTarget.h"

namespace orv {

/// An adding of leads to a campaign, and what it has come to so far: shared by the job and the form that shows it.
struct CampaignAdded {
  /// Empty until a new campaign has been made.
  QString campaignId;
  QString campaignName;
  /// The adding has made the campaign.
  bool isMade = false;
  CampaignAddSum sum;
};

/// Makes the campaign where there is none yet, and adds the leads. With `skipOthers`, those that are in another
/// campaign are left out.
Task<JobOutcome> addToCampaign(Job* job, LeadTarget target, bool skipOthers, std::shared_ptr<CampaignAdded> added);

/// "12 leads added to Fair".
QString campaignAddSummary(const CampaignAdded& added);
/// A line for each kind of lead, and how many that are.
QList<Choice> campaignAddLines(const CampaignAddSum& sum);

}  // namespace orv
