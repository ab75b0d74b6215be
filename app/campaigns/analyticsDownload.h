#pragma once

#include "app/base/Actions.h"
#include "kit/models/campaigns/campaignSummary.h"

namespace orv {

/// Has the person save the figures of one campaign's whole life as a table. Context and actions are the caller's, who
/// holds the task.
Task<void> downloadAnalyticsOf(CampaignSummary campaign, WorkspaceContext* context, Actions* actions);

}  // namespace orv
