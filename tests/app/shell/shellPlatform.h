#pragma once

#include "app/shell/Platform.h"
#include "tests/support/AppFixture.h"

namespace orv::test {

/// A process that has nothing but fakes; what a test wants otherwise, it sets.
inline Platform platformOf(AppFixture& f) {
  return {f.api,       f.keychain,  f.clock,    f.preferences,    f.browser,
          f.clipboard, f.filePanel, f.revealer, f.memoryPressure, QUrl(QStringLiteral("https://app.orvella.example")),
          Device{},    std::nullopt};
}

}  // namespace orv::test
