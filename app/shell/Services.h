#pragma once

#include <QUrl>

#include "app/shell/Overlays.h"
#include "app/shell/Router.h"
#include "app/shell/Toasts.h"
#include "app/shell/desktop/Browser.h"
#include "app/shell/desktop/Clipboard.h"
#include "app/shell/desktop/FilePanel.h"
#include "app/shell/desktop/FileRevealer.h"
#include "app/shell/desktop/Preferences.h"
#include "kit/async/Clock.h"

namespace orv {

/// What stores use besides their transport. Everything outlives every store.
struct Services {
  Clock& clock;
  Toasts& toasts;
  Overlays& overlays;
  Router& router;
  Clipboard& clipboard;
  FilePanel& filePanel;
  FileRevealer& revealer;
  Preferences& preferences;
  /// Where links that people share point to.
  QUrl webOrigin;
};

}  // namespace orv
