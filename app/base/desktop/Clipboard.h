#pragma once

#include <QString>

namespace orv {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  /// False when the desktop does not take it.
  virtual bool setText(const QString& text) = 0;
};

}  // namespace orv
