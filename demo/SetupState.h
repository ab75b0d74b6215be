#pragma once

#include <QDateTime>
#include <QHash>
#include <QSet>

#include "kit/models/setup/setupProject.h"
#include "kit/models/setup/setupRun.h"

namespace orv::demo {

/// A project of domains and the inboxes on them.
struct DemoSetupProject {
  /// Without its last run, which is told from the runs.
  SetupProject record;
  QByteArray photo;
  QString photoType;
};

struct DemoSetupRun {
  SetupRun record;
  /// When each inbox, by its id, takes its next step.
  QHash<QString, QDateTime> next;
  std::optional<QDateTime> pausedAt;
  /// Domains whose trouble is over: the admin let the service in, a photo was mended, a lock ended.
  QSet<QString> mended;
};

}  // namespace orv::demo
