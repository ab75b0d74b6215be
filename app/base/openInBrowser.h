#pragma once

#include "app/base/Toasts.h"
#include "app/base/desktop/Browser.h"

namespace orv {

/// Opens the page in the person's browser, or tells them that there is none to be opened.
inline void openInBrowser(Browser& browser, Toasts& toasts, const QUrl& page) {
  if (!browser.open(page))
    toasts.show({.message = QStringLiteral("Couldn’t open your browser."), .tone = Toasts::Tone::error});
}

}  // namespace orv
