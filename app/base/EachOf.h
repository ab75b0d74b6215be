#pragma once

#include <QStringList>
#include <functional>

#include "kit/async/Task.h"

namespace orv {

/// What came of something that was done for each of many.
struct EachOutcome {
  QStringList done;
  QStringList failed;
  /// Why the first of them failed.
  QString reason;
};

/// Does `one` for each of the ids, a few at a time; where it throws an APIError, that one has failed and the others go
/// on. `told` is called with how many have ended. Whoever holds the task ends it by letting go.
Task<EachOutcome> eachOf(QStringList ids, std::function<Task<void>(QString)> one,
                         std::function<void(qsizetype)> told = {});

}  // namespace orv
