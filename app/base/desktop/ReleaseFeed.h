#pragma once

#include <QString>
#include <QUrl>
#include <optional>

#include "kit/async/Task.h"

namespace orv {

/// Where the newest version is named.
class ReleaseFeed {
 public:
  struct Newest {
    QString version;
    /// Where it is to be had; https only.
    QUrl page;
  };
  virtual ~ReleaseFeed() = default;

  /// Nothing when it cannot be read, or says nothing that can be understood.
  virtual Task<std::optional<Newest>> newest() = 0;
};

}  // namespace orv
