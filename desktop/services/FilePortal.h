#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include "desktop/services/BusName.h"
#include "kit/async/OneShot.h"

namespace orv {

/// One question to the desktop's file portal: where to keep a file, or which to read. The panel closes with the object.
/// Only the portal can answer it: whoever else on the bus names a file would have this program read or overwrite it.
/// Source: org.freedesktop.portal.FileChooser, version 1.
class FilePortal final : public QObject {
  Q_OBJECT

 public:
  struct Outcome {
    /// A panel was shown; false where the desktop has none.
    bool asked = false;
    /// Absolute; empty when the person cancelled.
    QString path;
  };

  explicit FilePortal(QDBusConnection bus);
  FilePortal(const FilePortal&) = delete;
  FilePortal& operator=(const FilePortal&) = delete;
  ~FilePortal() override;

  /// One of the two, once per object. Paths are absolute; `kind` is the file's kind in words, `suffix` its ending.
  OneShot<Outcome> askToSave(const QString& suggestion, const QString& kind, const QString& suffix);
  OneShot<Outcome> askToOpen(const QString& folder, const QString& kind, const QString& suffix);

  /// The file of an answer; empty when there is none that a program can open by its path.
  static QString chosen(uint outcome, const QVariantMap& results);

 private Q_SLOTS:
  void respond(const QDBusMessage& message);

 private:
  OneShot<Outcome> ask(const QString& method, const QString& title, const QString& folder, QVariantMap options);

  QDBusConnection m_bus;
  BusName m_portal;
  QString m_request;
  OneShot<Outcome> m_outcome;
};

}  // namespace orv
