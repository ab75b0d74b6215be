#pragma once

#include <QString>

namespace orv {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void setText(const QString& text) = 0;
};

}  // namespace orv
