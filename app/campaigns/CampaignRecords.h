#pragma once

#include "app/base/Archive.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignSummary.h"

namespace orv {

/// Brings the row up to what a campaign read or answered later says.
void follow(CampaignSummary& row, const Campaign& campaign);

/// The requests of what is deleted and brought back, whose words differ by place.
Archive<Campaign>::Requests campaignArchiveRequests();

/// What the "Resume" of a message does once the page that paused the campaign is gone; `told` is said when it has.
std::function<void()> laterResume(WorkspaceContext& context, const QString& id, const QString& told);

/// What is typed of a new name is one text in the journal, wherever it is typed.
QString renameKey(const QString& id);

/// Puts the campaign's address for other people on the clipboard, and says so.
void copyCampaignLink(Services& services, const QString& id);

}  // namespace orv
