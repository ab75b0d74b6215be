#pragma once

#include "demo/DemoState.h"
#include "kit/models/analytics/warmupHealth.h"

namespace orv::demo {

/// How a mailbox's warm-up fares at that time of its workspace's day; the same mailbox always fares the same.
WarmupHealth::Account warmupOf(const DemoMailbox& mailbox, const QTime& time);

/// All mailboxes of the workspace; the summary counts them.
WarmupHealth warmupHealthOf(const DemoWorkspace& workspace, const QDateTime& now);

}  // namespace orv::demo
