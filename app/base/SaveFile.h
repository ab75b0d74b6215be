#pragma once

#include <QByteArray>
#include <QString>

#include "app/base/Jobs.h"

namespace orv {

/// Asks where to keep a comma-separated file, writes it whole or not at all, and says "Saved …" with a way to find it.
/// Silent when the person cancels the panel; `failure` is the toast of a write that failed. A job of the workspace,
/// which goes on when whoever asked for it is gone.
Task<void> saveCsv(WorkspaceContext& context, QString fileName, QByteArray bytes, QString failure);

}  // namespace orv
