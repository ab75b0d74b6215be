#pragma once

#include <QString>
#include <optional>

#include "kit/async/Task.h"

namespace orv {

/// The desktop's panel for choosing where to keep a file.
class FilePanel {
 public:
  virtual ~FilePanel() = default;
  /// The chosen absolute path, or nothing when the person cancels. `kind` names the file's kind in words, `suffix` is
  /// its ending without the dot.
  virtual Task<std::optional<QString>> saveFile(QString suggestedName, QString kind, QString suffix) = 0;
};

}  // namespace orv
