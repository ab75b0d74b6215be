#pragma once

#include <QDBusConnection>
#include <QHash>
#include <optional>

#include "app/base/desktop/Notifications.h"
#include "desktop/services/BusName.h"

namespace orv {

/// Notifications by the desktop's server of them. Never waits for it; without one, nothing is shown.
class DesktopNotifications final : public Notifications {
  Q_OBJECT

 public:
  /// `desktopEntry` is the program's, without its ending.
  DesktopNotifications(QDBusConnection bus, QString desktopEntry, QObject* parent = nullptr);

  QString trouble() const override;
  void show(const Notice& notice) override;
  void withdraw(const QString& id) override;

 private Q_SLOTS:
  void takeToken(const QDBusMessage& message);
  void takeAction(const QDBusMessage& message);
  void takeClosed(const QDBusMessage& message);

 private:
  /// What the server knows of one; zero before it has said.
  struct Shown {
    uint number = 0;
    /// The call that shows it, until it is answered: whatever is wanted of it meanwhile has to wait for its number.
    quint64 call = 0;
    std::optional<Notice> next{};
    bool withdrawn = false;
  };

  void askCapabilities();
  void setMissing(bool missing);
  void forget();
  void send(const Notice& notice);
  void answered(const QString& id, quint64 call, std::optional<uint> number);
  void close(uint number);
  QDBusMessage call(const QString& method) const;
  QString idOf(uint number) const;

  QDBusConnection m_bus;
  const QString m_desktopEntry;
  BusName m_server;
  bool m_asking = false;
  /// Somebody was asked to show something, and nobody answered.
  bool m_isMissing = false;
  /// What the server can do; nothing while it has not said.
  std::optional<QStringList> m_can;
  /// Wait for that.
  QList<Notice> m_waiting;
  QHash<QString, Shown> m_shown;
  QHash<uint, QString> m_tokens;
  quint64 m_calls = 0;
};

}  // namespace orv
