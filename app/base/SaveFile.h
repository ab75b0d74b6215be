#pragma once

#include <QByteArray>
#include <QString>

#include "app/base/Jobs.h"

namespace orv {

/// Asks where to keep a comma-separated file, writes it whole or not at all, and says "Saved …" with a way to find it,
/// or in other words where `told` has them. Silent when the person cancels the panel; `failure` is the toast of a write
/// that failed. A job of the workspace, which goes on when whoever asked for it is gone.
///
/// `text` makes the file's content, on another thread: it owns what it reads.
Task<void> saveCsv(WorkspaceContext& context, QString fileName, std::function<QByteArray()> text, QString failure,
                   QString told = QStringLiteral("Saved "));

/// The same as the end of a job that has got the bytes.
Task<JobOutcome> saveCsvOf(Job* job, QString fileName, QByteArray bytes, QString failure, QString told);

/// The same for what holds passwords: nobody else may read the file, whoever could read the one that it takes the place
/// of, and the bytes are overwritten once they have been written.
Task<void> saveSecretCsv(WorkspaceContext& context, QString fileName, QByteArray bytes, QString failure);

}  // namespace orv
