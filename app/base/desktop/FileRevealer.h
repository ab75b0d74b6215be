#pragma once

#include <QString>

namespace orv {

/// Shows a saved file in the desktop's file manager.
class FileRevealer {
 public:
  virtual ~FileRevealer() = default;
  virtual void reveal(const QString& path) = 0;
};

}  // namespace orv
