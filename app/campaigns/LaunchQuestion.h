#pragma once

#include "app/base/Overlays.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/launchCheck.h"

namespace orv {

/// What the person is asked before a campaign sends: who gets it, from how many inboxes, and what the last check said.
ConfirmRequest launchQuestion(const Campaign& campaign);

/// The question names people outside the workspace's own inboxes, so a yes confirms them.
bool namesExternal(const Campaign& campaign);

/// A paused campaign is resumed; any other is launched.
bool isResume(const Campaign& campaign);

/// Checks that keep the campaign from being launched.
QList<QcCheck> blockingChecks(const Campaign& campaign);

/// The tab where what a check found is mended, by its name; empty when there is none.
QString tabOfCheck(const QString& key);

}  // namespace orv
