#include "desktop/services/DesktopProxy.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv {

DesktopProxy::DesktopProxy(QDBusConnection bus, QUrl service, Found found, QObject* parent)
    : QObject(parent), m_bus(std::move(bus)), m_service(std::move(service)), m_found(std::move(found)) {}

bool DesktopProxy::ask() {
  if (!m_bus.isConnected() || environmentDecides()) return false;
  auto message =
      QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                                     u"org.freedesktop.portal.ProxyResolver"_s, u"Lookup"_s);
  message << m_service.toString(QUrl::FullyEncoded | QUrl::RemoveUserInfo);
  auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    watcher->deleteLater();
    const QDBusPendingReply<QStringList> reply = *watcher;
    m_found(reply.isError() ? std::nullopt : usable(reply.value()));
  });
  return true;
}

bool DesktopProxy::environmentDecides() const {
  const QByteArray own = m_service.scheme().toLatin1() + "_proxy";
  // Of plain http, only the small letters count: a web server sets the others from a request's header.
  const auto names = m_service.scheme() == "http"_L1 ? QByteArrayList{own, "all_proxy", "ALL_PROXY"}
                                                     : QByteArrayList{own, own.toUpper(), "all_proxy", "ALL_PROXY"};
  return std::ranges::any_of(names, [](const QByteArray& name) { return qEnvironmentVariableIsSet(name.constData()); });
}

std::optional<QByteArray> DesktopProxy::usable(const QStringList& answers) {
  for (const QString& answer : answers) {
    QUrl url(answer);
    if (url.scheme() == "direct"_L1) return QByteArray("");
    // Without a version it is the newest, which looks names up at the proxy.
    if (url.scheme() == "socks"_L1 || url.scheme() == "socks5"_L1) url.setScheme(u"socks5h"_s);
    const bool isKnown =
        QStringList{u"http"_s, u"https"_s, u"socks4"_s, u"socks4a"_s, u"socks5h"_s}.contains(url.scheme());
    if (isKnown && !url.host().isEmpty()) return url.toEncoded(QUrl::RemovePath);
  }
  return std::nullopt;
}

}  // namespace orv
