#include "desktop/services/ColorSchemeWatcher.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QLoggingCategory>

using namespace Qt::Literals::StringLiterals;

namespace orv {

Q_LOGGING_CATEGORY(lcColorScheme, "orvella.style")

namespace {
const auto portalName = u"org.freedesktop.portal.Desktop"_s;
const auto portalPath = u"/org/freedesktop/portal/desktop"_s;
const auto settings = u"org.freedesktop.portal.Settings"_s;
const auto group = u"org.freedesktop.appearance"_s;
}  // namespace

ColorSchemeWatcher::ColorSchemeWatcher(QDBusConnection bus, QObject* parent)
    : QObject(parent), m_bus(std::move(bus)), m_portal(m_bus, portalName) {
  // One that starts later, or again, may know better.
  connect(&m_portal, &BusName::taken, this, &ColorSchemeWatcher::readAll);
  // No service name: the toolkit would ask the bus for its owner, and wait for the answer.
  m_bus.connect(QString(), portalPath, settings, u"SettingChanged"_s, this, SLOT(settingChanged(QDBusMessage)));
  readAll();
}

void ColorSchemeWatcher::readAll() {
  if (!m_bus.isConnected()) return;
  auto message = QDBusMessage::createMethodCall(portalName, portalPath, settings, u"ReadAll"_s);
  message << QStringList(group);
  auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    watcher->deleteLater();
    const QDBusMessage reply = watcher->reply();
    if (watcher->isError())
      qCInfo(lcColorScheme, "The desktop does not tell its style: %s", qPrintable(watcher->error().message()));
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != "a{sa{sv}}"_L1) return;
    const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(reply.arguments().constFirst());
    const QVariantMap values = groups.value(group);
    for (auto value = values.begin(); value != values.end(); ++value) apply(value.key(), value.value());
  });
}

void ColorSchemeWatcher::settingChanged(const QDBusMessage& message) {
  const QVariantList arguments = message.arguments();
  if (!m_portal.sent(message) || message.signature() != "ssv"_L1 || arguments[0].toString() != group) return;
  apply(arguments[1].toString(), arguments[2].value<QDBusVariant>().variant());
}

void ColorSchemeWatcher::apply(const QString& key, const QVariant& value) {
  bool isNumber = false;
  const uint number = value.toUInt(&isNumber);
  if (!isNumber) return;
  const auto scheme = key != "color-scheme"_L1 ? m_scheme
                      : number == 1            ? Scheme::dark
                      : number == 2            ? Scheme::light
                                               : Scheme::none;
  const bool reduced = key == "reduced-motion"_L1 ? number == 1 : m_reducedMotion;
  if (scheme == m_scheme && reduced == m_reducedMotion) return;
  m_scheme = scheme;
  m_reducedMotion = reduced;
  Q_EMIT changed();
}

}  // namespace orv
