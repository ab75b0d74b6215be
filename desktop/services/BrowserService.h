#pragma once

#include <functional>

#include "app/base/desktop/Browser.h"

namespace orv {

class BrowserService final : public Browser {
 public:
  using Open = std::function<bool(const QString& address)>;

  BrowserService();
  explicit BrowserService(Open open) : m_open(std::move(open)) {}

  bool open(const QUrl& url) override;

 private:
  Open m_open;
};

}  // namespace orv
