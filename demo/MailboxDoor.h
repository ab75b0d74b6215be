#pragma once

#include "demo/DemoState.h"

namespace orv::demo {

/// The mailboxes picked by id and then those that join by a tag; nothing when a picked one is not there.
std::optional<QList<CampaignSender>> sendersOf(const DemoWorkspace& workspace, const QList<QString>& pickedIds,
                                               const QList<QString>& tags);

/// What the senders of a campaign have sent today, for all campaigns together, as their limits count it.
void tellTodaysSends(QList<CampaignSender>& senders, const DemoWorkspace& workspace, const QDateTime& now);

}  // namespace orv::demo
