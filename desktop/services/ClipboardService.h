#pragma once

#include "app/base/desktop/Clipboard.h"

namespace orv {

class ClipboardService final : public Clipboard {
 public:
  bool setText(const QString& text) override;
};

}  // namespace orv
