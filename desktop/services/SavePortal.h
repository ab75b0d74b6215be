#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>

#include "kit/async/OneShot.h"

namespace orv {

/// One question to the desktop's file portal: where to keep a file. The panel closes with the object.
/// Source: org.freedesktop.portal.FileChooser, version 1.
class SavePortal final : public QObject {
  Q_OBJECT

 public:
  struct Outcome {
    /// A panel was shown; false where the desktop has none.
    bool asked = false;
    /// Absolute; empty when the person cancelled.
    QString path;
  };

  explicit SavePortal(QDBusConnection bus);
  SavePortal(const SavePortal&) = delete;
  SavePortal& operator=(const SavePortal&) = delete;
  ~SavePortal() override;

  /// Once per object. `suggestion` is an absolute path, `kind` the file's kind in words, `suffix` its ending.
  OneShot<Outcome> ask(const QString& suggestion, const QString& kind, const QString& suffix);

 private Q_SLOTS:
  void respond(const QDBusMessage& message);

 private:
  QDBusConnection m_bus;
  QDBusServiceWatcher m_portal;
  QString m_request;
  OneShot<Outcome> m_outcome;
};

}  // namespace orv
