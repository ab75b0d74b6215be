#pragma once

#include <QQmlEngine>
#include <QQuickWindow>
#include <memory>

#include "app/shell/AppModel.h"
#include "app/shell/CommandPalette.h"
#include "desktop/QuickFilePanel.h"

namespace orv {

/// The application with its window, on whatever platform it is given.
class ClientWindow {
 public:
  /// `files` is the platform's panel as the window sees it, null where nothing is ever saved.
  ClientWindow(QQmlEngine& engine, Platform platform, QuickFilePanel* files = nullptr);

  AppModel& app() { return m_app; }
  /// Makes the window, hidden. Null, with the reason in the log, when its QML does not load.
  QQuickWindow* open();
  QQuickWindow* window() const { return m_window.get(); }

  /// This machine, as sessions are listed.
  static Device thisDevice();
  /// Registers the window's QML modules with the engine.
  static void prepare(QQmlEngine& engine);

 private:
  QQmlEngine& m_engine;
  QuickFilePanel* m_files;
  AppModel m_app;
  CommandPalette m_palette;
  std::unique_ptr<QQuickWindow> m_window;
};

}  // namespace orv
