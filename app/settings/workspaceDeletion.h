#pragma once

#include "app/base/WorkspaceContext.h"
#include "kit/async/OneShot.h"

namespace orv {

/// True once the person has typed the word, under the name of what goes.
Task<bool> askToDelete(Overlays& overlays, QString name);

/// Deletes the context's workspace, sent once, and leads the person on. Whatever came of it, `done` is given then.
Task<void> deleteForGood(std::shared_ptr<WorkspaceContext> context, QString name, OneShot<bool> done);

}  // namespace orv
