#pragma once

#include <QStringList>

namespace orv {

/// What the program writes down of itself.
class ActivityLog {
 public:
  virtual ~ActivityLog() = default;

  /// The newest lines, oldest first; so many at most.
  virtual QStringList lines(int atMost) const = 0;
};

}  // namespace orv
