#include "desktop/services/DesktopNotifications.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QLoggingCategory>

using namespace Qt::Literals::StringLiterals;

namespace orv {

Q_LOGGING_CATEGORY(lcNotifications, "orvella.notifications")

namespace {

const auto service = u"org.freedesktop.Notifications"_s;
const auto path = u"/org/freedesktop/Notifications"_s;
/// Of many at once while the server says nothing, the last ones are worth showing.
constexpr qsizetype mostWaiting = 20;

}  // namespace

DesktopNotifications::DesktopNotifications(QDBusConnection bus, QString desktopEntry, QObject* parent)
    : Notifications(parent), m_bus(std::move(bus)), m_desktopEntry(std::move(desktopEntry)), m_server(m_bus, service) {
  // Another server knows none of the numbers, and can do other things.
  connect(&m_server, &BusName::taken, this, &DesktopNotifications::forget);
  connect(&m_server, &BusName::dropped, this, &DesktopNotifications::forget);
  m_bus.connect({}, path, service, u"ActivationToken"_s, this, SLOT(takeToken(QDBusMessage)));
  m_bus.connect({}, path, service, u"ActionInvoked"_s, this, SLOT(takeAction(QDBusMessage)));
  m_bus.connect({}, path, service, u"NotificationClosed"_s, this, SLOT(takeClosed(QDBusMessage)));
}

QString DesktopNotifications::trouble() const {
  if (!m_bus.isConnected()) return u"There is no session bus, so the desktop can’t be told anything."_s;
  return m_isMissing ? u"Nothing on this desktop shows notifications."_s : QString();
}

void DesktopNotifications::setMissing(bool missing) {
  if (std::exchange(m_isMissing, missing) != missing) Q_EMIT troubleChanged();
}

void DesktopNotifications::show(const Notice& notice) {
  if (!m_bus.isConnected()) return;
  if (m_can) return send(notice);
  m_waiting.removeIf([&notice](const Notice& waiting) { return waiting.id == notice.id; });
  m_waiting.append(notice);
  if (m_waiting.size() > mostWaiting) m_waiting.removeFirst();
  askCapabilities();
}

void DesktopNotifications::withdraw(const QString& id) {
  m_waiting.removeIf([&id](const Notice& waiting) { return waiting.id == id; });
  const auto known = m_shown.find(id);
  if (known == m_shown.end()) return;
  if (known->call != 0) {
    known->withdrawn = true;
    known->next.reset();
    return;
  }
  close(known->number);
  m_shown.erase(known);
}

void DesktopNotifications::askCapabilities() {
  if (std::exchange(m_asking, true)) return;
  auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call(u"GetCapabilities"_s)), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    watcher->deleteLater();
    m_asking = false;
    const QDBusPendingReply<QStringList> reply = *watcher;
    const auto waiting = std::exchange(m_waiting, {});
    // Somebody may come, and is asked then.
    setMissing(reply.isError());
    if (reply.isError()) {
      qCInfo(lcNotifications, "Nobody here shows notifications: %s", qPrintable(reply.error().message()));
      return;
    }
    m_can = reply.value();
    for (const Notice& notice : waiting) send(notice);
  });
}

void DesktopNotifications::forget() {
  setMissing(false);
  m_can.reset();
  m_shown.clear();
  m_tokens.clear();
}

void DesktopNotifications::send(const Notice& notice) {
  Shown& shown = m_shown[notice.id];
  shown.withdrawn = false;
  if (shown.call != 0) {
    shown.next = notice;
    return;
  }
  // The summary is never markup. The body is where the server says so, and only there are its letters escaped.
  const bool hasMarkup = m_can->contains(u"body-markup"_s);
  const QString body = !m_can->contains(u"body"_s) ? QString() : hasMarkup ? notice.body.toHtmlEscaped() : notice.body;
  QStringList actions;
  // Servers that make nothing of a click on the notification itself have the button.
  if (m_can->contains(u"actions"_s)) actions = {u"default"_s, u"Open"_s, u"open"_s, u"Open"_s};
  QVariantMap hints{{u"desktop-entry"_s, m_desktopEntry},
                    {u"urgency"_s, QVariant::fromValue<uchar>(notice.urgency == Notice::Urgency::critical ? 2 : 1)}};
  if (!notice.category.isEmpty()) hints.insert(u"category"_s, notice.category);
  shown.call = ++m_calls;
  auto message = call(u"Notify"_s);
  message << QCoreApplication::applicationName() << shown.number << m_desktopEntry << notice.title << body << actions
          << hints << -1;
  auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, id = notice.id, mine = m_calls] {
    watcher->deleteLater();
    const QDBusPendingReply<uint> reply = *watcher;
    answered(id, mine, reply.isError() ? std::nullopt : std::optional(reply.value()));
  });
}

void DesktopNotifications::answered(const QString& id, quint64 call, std::optional<uint> number) {
  const auto known = m_shown.find(id);
  // Another server has come meanwhile.
  if (known == m_shown.end() || known->call != call) return;
  const Shown shown = *known;
  if (number && !shown.withdrawn)
    *known = {.number = *number};
  else
    m_shown.erase(known);
  if (number && shown.withdrawn) close(*number);
  if (shown.next) send(*shown.next);
}

void DesktopNotifications::close(uint number) { m_bus.asyncCall(call(u"CloseNotification"_s) << number); }

QDBusMessage DesktopNotifications::call(const QString& method) const {
  return QDBusMessage::createMethodCall(service, path, service, method);
}

QString DesktopNotifications::idOf(uint number) const {
  for (const auto& [id, shown] : m_shown.asKeyValueRange())
    if (shown.number == number && number != 0) return id;
  return {};
}

void DesktopNotifications::takeToken(const QDBusMessage& message) {
  const uint number = message.arguments().value(0).toUInt();
  if (m_server.sent(message) && !idOf(number).isEmpty())
    m_tokens.insert(number, message.arguments().value(1).toString());
}

void DesktopNotifications::takeAction(const QDBusMessage& message) {
  const uint number = message.arguments().value(0).toUInt();
  const QString id = idOf(number);
  if (!m_server.sent(message) || id.isEmpty()) return;
  m_shown.remove(id);
  close(number);
  Q_EMIT followed(id, m_tokens.take(number));
}

void DesktopNotifications::takeClosed(const QDBusMessage& message) {
  const uint number = message.arguments().value(0).toUInt();
  if (!m_server.sent(message)) return;
  m_shown.remove(idOf(number));
  m_tokens.remove(number);
}

}  // namespace orv
