#pragma once

#include <functional>
#include <memory>

#include "app/base/WorkspaceContext.h"

namespace orv {

/// For a message about a record whose page may have been left: leads back to it, into its workspace first, as long as
/// that is there.
inline std::function<void()> wayTo(WorkspaceContext& context, Page page, const QString& id) {
  return [there = context.weak_from_this(), page, id] {
    if (const auto open = there.lock()) open->openItem(page, id);
  };
}

}  // namespace orv
