#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>

namespace orv {

/// Knows which connection holds a name on a bus, without ever waiting for the bus: everybody on it can send any signal,
/// and one counts only from whoever it is expected of.
class BusName final : public QObject {
  Q_OBJECT

 public:
  BusName(QDBusConnection bus, const QString& name, QObject* parent = nullptr);

  /// The message comes from the holder. What it sent before it was known does not count either.
  bool sent(const QDBusMessage& message) const { return !m_holder.isEmpty() && message.service() == m_holder; }

 Q_SIGNALS:
  /// Somebody took the name.
  void taken();
  void dropped();

 private:
  void ask(const QDBusConnection& bus, const QString& name);

  QDBusServiceWatcher m_watcher;
  /// Its unique name; empty for nobody.
  QString m_holder;
};

}  // namespace orv
