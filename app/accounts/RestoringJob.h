#pragma once

#include <QStringList>
#include <functional>

namespace orv {

class WorkspaceContext;

/// Takes back the removal of many accounts. The service restores one at a time, so it is long work of the workspace.
std::function<void()> undoBulkRemoval(WorkspaceContext& workspace, const QStringList& ids);

}  // namespace orv
