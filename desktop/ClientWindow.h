#pragma once

#include <QQmlEngine>
#include <QQuickWindow>
#include <memory>

#include "app/base/NameForm.h"
#include "app/shell/AppModel.h"
#include "app/shell/CommandPalette.h"
#include "app/shell/Commands.h"
#include "ui/design/TableMemory.h"

namespace orv {

/// The application with its window, on whatever platform it is given.
class ClientWindow {
 public:
  /// What stands in for the desktop's file panels; null where no file is ever chosen.
  struct FileForms {
    NameForm* save = nullptr;
    NameForm* open = nullptr;
  };

  /// Without `tables` each table is at every start as it was made.
  ClientWindow(QQmlEngine& engine, Platform platform, FileForms fileForms = {nullptr, nullptr},
               TableMemory* tables = nullptr);

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
  FileForms m_fileForms;
  AppModel m_app;
  Commands m_commands;
  CommandPalette m_palette;
  TableMemory* m_tables;
  std::unique_ptr<QQuickWindow> m_window;
};

}  // namespace orv
