#pragma once

#include "app/base/desktop/Browser.h"

namespace orv {

class BrowserService final : public Browser {
 public:
  bool open(const QUrl& url) override;
};

}  // namespace orv
