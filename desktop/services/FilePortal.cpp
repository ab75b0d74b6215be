#include "desktop/services/FilePortal.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QUrl>
#include <QWindow>

using namespace Qt::Literals::StringLiterals;

namespace orv {

/// The portal's filter: a name and what it lets through.
struct PortalFilter {
  struct Pattern {
    uint kind = 0;
    QString glob;
  };
  QString name;
  QList<Pattern> patterns;
};

// Where the toolkit's templates find them: beside the types.
QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter::Pattern& pattern) {
  argument.beginStructure();
  argument << pattern.kind << pattern.glob;
  argument.endStructure();
  return argument;
}
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter::Pattern& pattern) {
  argument.beginStructure();
  argument >> pattern.kind >> pattern.glob;
  argument.endStructure();
  return argument;
}
QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter& filter) {
  argument.beginStructure();
  argument << filter.name << filter.patterns;
  argument.endStructure();
  return argument;
}
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter& filter) {
  argument.beginStructure();
  argument >> filter.name >> filter.patterns;
  argument.endStructure();
  return argument;
}

}  // namespace orv

Q_DECLARE_METATYPE(orv::PortalFilter)
Q_DECLARE_METATYPE(orv::PortalFilter::Pattern)

namespace orv {

Q_LOGGING_CATEGORY(lcFilePortal, "orvella.files")

namespace {

const auto portalName = u"org.freedesktop.portal.Desktop"_s;
const auto portalPath = u"/org/freedesktop/portal/desktop"_s;
const auto requestInterface = u"org.freedesktop.portal.Request"_s;
// The portal answers as soon as it has put the question; one that has to be started first may take this long.
constexpr int answerMilliseconds = 5000;

void registerTypes() {
  static const bool done = [] {
    qDBusRegisterMetaType<PortalFilter::Pattern>();
    qDBusRegisterMetaType<QList<PortalFilter::Pattern>>();
    qDBusRegisterMetaType<PortalFilter>();
    qDBusRegisterMetaType<QList<PortalFilter>>();
    return true;
  }();
  Q_UNUSED(done)
}

/// The endings stand apart by blanks where a kind has several.
QVariant filterOf(const QString& kind, const QString& suffixes) {
  registerTypes();
  PortalFilter filter{kind, {}};
  for (const QString& suffix : suffixes.split(u' ')) filter.patterns.append({0, u"*."_s + suffix});
  return QVariant::fromValue(QList<PortalFilter>{filter});
}

/// The window that the panel belongs to, as the portal names it; on Wayland it takes none without a handle exported
/// for it, and the panel stands by itself.
QString parentWindow() {
  const QWindow* window = QGuiApplication::focusWindow();
  return window && QGuiApplication::platformName() == "xcb"_L1 ? u"x11:"_s + QString::number(window->winId(), 16)
                                                               : QString();
}

/// That nobody can guess.
QString newToken() {
  auto& random = *QRandomGenerator::system();
  return u"orvella%1%2"_s.arg(random.generate64(), 16, 16, QChar(u'0')).arg(random.generate64(), 16, 16, QChar(u'0'));
}

/// Where the portal will tell the answer. Known before it is asked, so that no answer comes too early.
QString newRequest(const QDBusConnection& bus, const QString& token) {
  QString sender = bus.baseService().mid(1);
  sender.replace(u'.', u'_');
  return portalPath + u"/request/"_s + sender + u'/' + token;
}

}  // namespace

FilePortal::FilePortal(QDBusConnection bus) : m_bus(std::move(bus)), m_portal(m_bus, portalName) {
  // A portal that ends takes its panel along, and never answers.
  connect(&m_portal, &BusName::dropped, this, [this] { m_outcome.give({true, {}}); });
}

FilePortal::~FilePortal() {
  if (m_request.isEmpty() || m_outcome.isGiven()) return;
  m_bus.asyncCall(QDBusMessage::createMethodCall(portalName, m_request, requestInterface, u"Close"_s));
}

OneShot<FilePortal::Outcome> FilePortal::askToSave(const QString& suggestion, const QString& kind,
                                                   const QString& suffix) {
  const QFileInfo file(suggestion);
  return ask(u"SaveFile"_s, u"Save file"_s, file.absolutePath(),
             {{u"current_name"_s, file.fileName()}, {u"filters"_s, filterOf(kind, suffix)}});
}

OneShot<FilePortal::Outcome> FilePortal::askToOpen(const QString& folder, const QString& kind, const QString& suffix) {
  return ask(u"OpenFile"_s, u"Open file"_s, folder, {{u"filters"_s, filterOf(kind, suffix)}});
}

OneShot<FilePortal::Outcome> FilePortal::ask(const QString& method, const QString& title, const QString& folder,
                                             QVariantMap options) {
  if (!m_bus.isConnected()) {
    m_outcome.give({});
    return m_outcome;
  }
  const QString token = newToken();
  m_request = newRequest(m_bus, token);
  m_bus.connect(QString(), m_request, requestInterface, u"Response"_s, this, SLOT(respond(QDBusMessage)));

  options.insert(u"handle_token"_s, token);
  // The portal wants the end of the path marked.
  options.insert(u"current_folder"_s, QFile::encodeName(folder).append('\0'));
  auto message =
      QDBusMessage::createMethodCall(portalName, portalPath, u"org.freedesktop.portal.FileChooser"_s, method);
  message << parentWindow() << title << options;
  auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, answerMilliseconds), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    watcher->deleteLater();
    if (!watcher->isError()) return;
    qCInfo(lcFilePortal, "The desktop has no file panel, so the window asks: %s",
           qPrintable(watcher->error().message()));
    m_outcome.give({});
  });
  return m_outcome;
}

void FilePortal::respond(const QDBusMessage& message) {
  if (!m_portal.sent(message) || message.signature() != "ua{sv}"_L1) return;
  const QVariantList arguments = message.arguments();
  m_outcome.give({true, chosen(arguments[0].toUInt(), qdbus_cast<QVariantMap>(arguments[1]))});
}

QString FilePortal::chosen(uint outcome, const QVariantMap& results) {
  if (outcome != 0) return {};
  const QUrl url(results.value(u"uris"_s).toStringList().value(0));
  // A host would become a part of the path.
  const QString path = url.host().isEmpty() ? url.toLocalFile() : QString();
  return path.startsWith(u'/') && !path.contains(QChar::Null) ? path : QString();
}

}  // namespace orv
