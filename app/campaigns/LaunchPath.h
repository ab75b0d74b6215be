#pragma once

#include "app/base/Choice.h"
#include "app/campaigns/DraftStep.h"
#include "kit/models/campaigns/campaign.h"

namespace orv {

/// What a campaign needs before it is launched, the emails as they are being written: key, label, count and, ticked,
/// whether it is there. The key is a tab of the campaign or a section of its settings; the hours say when in `detail`.
QList<Choice> launchPath(const Campaign& campaign, const QList<DraftStep>& steps);

}  // namespace orv
