#pragma once

#include "app/base/Jobs.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/leads/ownLeads.h"

namespace orv {

/// News of a campaign's leads: told under its id when some may have come in from elsewhere.
struct AddedLeads;
/// Tells it, and whoever counts the campaign's leads.
void leadsCameTo(WorkspaceContext& workspace, const QString& campaignId);

/// Adds leads that the workspace has to a campaign, in as many requests as that takes. `took` is called with what came
/// of each; gives how many there were to add. Throws APIError.
Task<qsizetype> addOwnLeads(Job* job, QString campaignId, OwnLeadsBody whom, bool allowOtherCampaigns,
                            std::function<void(const AddLeadsResult&)> took);

}  // namespace orv
