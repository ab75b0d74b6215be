#pragma once

#include <QUrl>

#include "app/base/Navigator.h"
#include "app/base/Overlays.h"
#include "app/base/Toasts.h"
#include "app/base/desktop/Browser.h"
#include "app/base/desktop/Clipboard.h"
#include "app/base/desktop/FilePanel.h"
#include "app/base/desktop/FileRevealer.h"
#include "app/base/desktop/Preferences.h"
#include "kit/async/Clock.h"

namespace orv {

class Jobs;
class Journal;
class Program;

/// What stores use besides their transport. Everything outlives every store.
struct Services {
  Clock& clock;
  Toasts& toasts;
  Overlays& overlays;
  Navigator& navigator;
  Browser& browser;
  Clipboard& clipboard;
  FilePanel& filePanel;
  FileRevealer& revealer;
  Preferences& preferences;
  Journal& journal;
  Jobs& jobs;
  /// Where links that people share point to.
  QUrl webOrigin;
  Program& program;
};

}  // namespace orv
