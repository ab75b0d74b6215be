#pragma once

#include <QUrl>
#include <optional>

#include "app/base/desktop/ActivityLog.h"
#include "app/base/desktop/Browser.h"
#include "app/base/desktop/Clipboard.h"
#include "app/base/desktop/FilePanel.h"
#include "app/base/desktop/FileRevealer.h"
#include "app/base/desktop/JournalFiles.h"
#include "app/base/desktop/MemoryPressure.h"
#include "app/base/desktop/NetworkWatch.h"
#include "app/base/desktop/Notifications.h"
#include "app/base/desktop/Preferences.h"
#include "app/base/desktop/ReleaseFeed.h"
#include "kit/api/APITransport.h"
#include "kit/async/Clock.h"
#include "kit/session/Keychain.h"
#include "kit/session/StoredSession.h"
#include "kit/session/records.h"

namespace orv {

/// What the process gives the application: everything that touches the network, the desktop or time.
struct Platform {
  APITransport& api;
  Keychain& keychain;
  Clock& clock;
  Preferences& preferences;
  Browser& browser;
  Clipboard& clipboard;
  FilePanel& filePanel;
  FileRevealer& revealer;
  MemoryPressure& memoryPressure;
  QUrl baseURL;
  Device device;
  /// Set in demo mode: the session that is simply there. Nothing is then read from or written to the keychain.
  std::optional<StoredSession> demoSession;
  /// Where the person's state is kept that is no setting; empty to keep none.
  QString stateFolder = {};
  /// Where what is typed survives this process; null keeps it in memory alone.
  JournalFiles* journalFiles = nullptr;
  /// Null where nobody tells of the network.
  NetworkWatch* network = nullptr;
  /// Null where nobody is to be told anything beside the window.
  Notifications* notifications = nullptr;
  /// Null where nothing is written down.
  ActivityLog* log = nullptr;
  /// Null where nobody asked to be told of newer versions.
  ReleaseFeed* releases = nullptr;
};

}  // namespace orv
