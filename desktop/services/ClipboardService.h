#pragma once

#include "app/base/desktop/Clipboard.h"

namespace orv {

class ClipboardService final : public Clipboard {
 public:
  void setText(const QString& text) override;
};

}  // namespace orv
