#pragma once

#include "app/shell/AppModel.h"
#include "app/shell/CommandPalette.h"

namespace orv {

/// Everything that can be done from anywhere, in the palette's order: pages, actions, records, workspaces, settings.
/// The palette, the shortcut sheet and the shortcuts all read this one list.
class Commands final : public QObject {
  Q_OBJECT

 public:
  explicit Commands(AppModel& app, QObject* parent = nullptr);

  QList<Command> all() const;
  /// The shortcut sheet's lines: group, title and keys of every command that has keys, and of what controls do by
  /// themselves.
  Q_INVOKABLE QVariantList sheet() const;
  /// Presses the newest message's "Undo"; false when none has one.
  Q_INVOKABLE bool undo();
  /// Has loaded what is found by name; changed() follows.
  void load();

 Q_SIGNALS:
  /// Something else is found by name.
  void changed();

 private:
  void addPages(QList<Command>& commands) const;
  void addOpenPage(QList<Command>& commands) const;
  void addOtherPages(QList<Command>& commands) const;
  const Toasts::Toast* undoable() const;
  void addGeneral(QList<Command>& commands) const;
  void addRecords(QList<Command>& commands) const;
  void addWorkspaces(QList<Command>& commands) const;
  void addSettings(QList<Command>& commands) const;

  AppModel& m_app;
};

}  // namespace orv
