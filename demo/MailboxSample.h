#pragma once

#include "demo/DemoState.h"

namespace orv::demo {

/// Mailboxes as a workspace has them after some months, and the pool that warms them up.
void addMailboxes(DemoWorkspace& workspace, qint64 count, DemoRandom& random, const QDate& today);

/// Some that were removed not long ago.
void addArchivedMailboxes(DemoWorkspace& workspace, qint64 count, DemoRandom& random, const QDate& today);

}  // namespace orv::demo
