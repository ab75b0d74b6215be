#pragma once

#include "app/base/WorkspaceContext.h"

namespace orv {

/// What a message's "Undo" does. It holds the workspace's context and nothing of the store it came from, which may be
/// gone, with its page and tab, when somebody takes back what they did.
template <class MakeTask>
std::function<void()> undo(WorkspaceContext& workspace, MakeTask make) {
  return [context = workspace.weak_from_this(), make = std::move(make)] {
    if (const auto there = context.lock()) there->start(make(there));
  };
}

}  // namespace orv
