#pragma once

#include "demo/DemoState.h"
#include "kit/models/campaigns/campaignFeed.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/sentMessage.h"

namespace orv::demo {

/// What happened in a campaign: the emails and answers that follow from each lead's state, and what people did.

/// Writes down what somebody did, to the campaign or to one of its leads.
void note(DemoCampaign& campaign, const QString& kind, const QDateTime& now, const CampaignLead* lead = nullptr);

/// Of one lead, newest first.
QList<LeadActivity> activityOf(const DemoCampaign& campaign, const CampaignLead& lead);

/// Of the whole campaign, newest first. A cursor is the number of items that were older than the page it came with.
/// Nothing when it is no cursor.
std::optional<FeedPage> feedOf(const DemoCampaign& campaign, qint64 limit, const QString& cursor);

/// Emails sent, the last ones first, then some of those booked, the next ones first.
MessagePage messagesOf(const DemoCampaign& campaign, qint64 limit);

}  // namespace orv::demo
