#pragma once

#include "demo/Routes.h"

namespace orv::demo {

constexpr qint64 mostPerPage = 500;

/// The call's campaign, or nothing when it is not there, or no longer.
DemoCampaign* findCampaign(Call& call);

/// As an answer, with what its senders did today.
HTTPAnswer campaignAnswer(const Call& call, const DemoCampaign& campaign, int status = 200);
/// The campaign as it now is, under its next version.
HTTPAnswer changedAnswer(const Call& call, DemoCampaign& campaign);

/// Answers calls about one campaign: it is the first of their ids.
template <HTTPAnswer (*answer)(Call&, DemoCampaign&)>
HTTPAnswer onCampaign(Call& call) {
  DemoCampaign* campaign = findCampaign(call);
  return campaign ? answer(call, *campaign) : notFound(QStringLiteral("This campaign no longer exists"));
}

}  // namespace orv::demo
