#pragma once

#include <QUrl>

#include "app/base/Actions.h"
#include "app/base/Resource.h"
#include "kit/models/setup/setupChanges.h"
#include "kit/models/setup/setupProject.h"

namespace orv {

inline constexpr qsizetype mostPhotoBytes = 1024 * 1024;

/// "image/jpeg" or "image/png" by how the bytes begin; empty for anything else.
QString photoTypeOf(QByteArrayView bytes);

/// A project's photo: read, chosen from a file, taken away.
class SetupPhoto final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool stored READ stored NOTIFY changed)
  Q_PROPERTY(QString source READ source NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)

 public:
  SetupPhoto(QString id, Actions& actions, Resource<SetupProject>& project, Store& whole);

  bool stored() const { return m_project.value() && m_project.value()->hasPhoto; }
  /// The picture itself, as an address that holds it; empty until it is here.
  const QString& source() const { return m_source; }
  bool busy() const { return !m_busy.ids().isEmpty(); }

  Q_INVOKABLE void choose() { m_tasks.start(chooseTask()); }
  Q_INVOKABLE void take(const QUrl& file);
  Q_INVOKABLE void remove() { m_tasks.start(removeTask()); }
  Task<void> chooseTask();
  Task<void> uploadTask(QString path);
  Task<void> removeTask();

 Q_SIGNALS:
  void changed();

 private:
  void follow();
  Task<void> loadTask();
  void show(const QByteArray& photo);

  QString m_id;
  Actions& m_actions;
  Resource<SetupProject>& m_project;
  BusySet m_busy;
  TaskSlot m_load;
  QString m_source;
  /// Counts the changes made here, past caches.
  int m_seen = 0;
  /// The photo of that version of the project is here, or was asked for.
  std::optional<qint64> m_loaded;
};

}  // namespace orv
