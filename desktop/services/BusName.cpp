#include "desktop/services/BusName.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

using namespace Qt::Literals::StringLiterals;

namespace orv {

BusName::BusName(QDBusConnection bus, const QString& name, QObject* parent)
    : QObject(parent), m_watcher(name, bus, QDBusServiceWatcher::WatchForOwnerChange) {
  connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this](const QString&, const QString&, const QString& holder) {
            m_holder = holder;
            holder.isEmpty() ? Q_EMIT dropped() : Q_EMIT taken();
          });
  if (bus.isConnected()) ask(bus, name);
}

void BusName::ask(const QDBusConnection& bus, const QString& name) {
  const auto daemon = u"org.freedesktop.DBus"_s;
  auto message = QDBusMessage::createMethodCall(daemon, u"/org/freedesktop/DBus"_s, daemon, u"GetNameOwner"_s);
  message << name;
  auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    watcher->deleteLater();
    const QDBusPendingReply<QString> reply = *watcher;
    // Whoever took it since was told of by the watcher.
    if (!reply.isError() && m_holder.isEmpty()) m_holder = reply.value();
  });
}

}  // namespace orv
