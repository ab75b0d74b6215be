#pragma once

#include <QString>
#include <optional>

#include "kit/async/Task.h"

namespace orv {

/// What the person chose in a FilePanel.
struct ChosenFile {
  /// Absolute.
  QString path;
  /// The panel has asked whether a file that is there already may go. Not every desktop's does.
  bool mayReplace = false;
  bool operator==(const ChosenFile&) const = default;
};

/// The desktop's panels for choosing files.
class FilePanel {
 public:
  virtual ~FilePanel() = default;
  /// The chosen file, or nothing when the person cancels. `kind` names the file's kind in words, `suffix` is
  /// its ending without the dot.
  virtual Task<std::optional<ChosenFile>> saveFile(QString suggestedName, QString kind, QString suffix) = 0;
  /// The absolute path of a file to read, or nothing when the person cancels.
  virtual Task<std::optional<QString>> openFile(QString kind, QString suffix) = 0;
};

}  // namespace orv
