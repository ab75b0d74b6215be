#pragma once

#include "app/base/WorkspaceContext.h"

namespace orv {

/// What a message's "Undo" does. It keeps the workspace's context, whose session may have left the cache, and nothing
/// of the store it came from, which may be gone, with its page and tab, when somebody takes back what they did.
template <class MakeTask>
std::function<void()> undo(WorkspaceContext& workspace, MakeTask make) {
  return [context = workspace.shared_from_this(), make = std::move(make)] { context->start(make(context)); };
}

}  // namespace orv
