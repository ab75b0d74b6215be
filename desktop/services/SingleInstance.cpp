#include "desktop/services/SingleInstance.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QLoggingCategory>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include "desktop/services/ApplicationAdaptor.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Q_LOGGING_CATEGORY(lcInstance, "orvella.instance")

namespace {

constexpr int handOverMilliseconds = 3000;
constexpr qint64 longestMessage = 64 << 10;
/// No browser makes a longer one, and nobody clicks on more at a time.
constexpr qsizetype longestLink = 8192, mostLinks = 16;
const auto interface = u"org.freedesktop.Application"_s;

/// What the launcher gave this start, so that the running one may raise its window.
QString activationToken() {
  const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
  return token.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : token;
}

QString objectPath(const QString& id) { return u'/' + QString(id).replace(u'.', u'/').replace(u'-', u'_'); }

}  // namespace

SingleInstance::SingleInstance(QString id, QDBusConnection bus, QObject* parent)
    : QObject(parent), m_id(std::move(id)), m_bus(std::move(bus)) {
  new ApplicationAdaptor(this);
  m_server.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::readFromSocket);
}

SingleInstance::~SingleInstance() { release(); }

void SingleInstance::release() {
  m_server.close();
  if (!std::exchange(m_ownsName, false)) return;
  m_bus.unregisterService(m_id);
  m_bus.unregisterObject(objectPath(m_id));
}

QStringList SingleInstance::linksIn(const QStringList& arguments) const {
  QStringList links;
  for (const QString& argument : arguments)
    if (links.size() < mostLinks && argument.size() <= longestLink && QUrl(argument).scheme() == m_id)
      links.append(argument);
  return links;
}

SingleInstance::Start SingleInstance::claim(const QStringList& links) {
  return m_bus.isConnected() ? claimOnBus(links) : claimSocket(links);
}

SingleInstance::Start SingleInstance::claimOnBus(const QStringList& links) {
  // One that is closing may hold the name a little longer than it listens, and one that hangs holds it for good: a
  // start that opened nothing would help nobody.
  for (int attempt = 0; attempt < 2; ++attempt) {
    if (takeName()) return Start::first;
    if (handOverOnBus(links)) return Start::second;
  }
  if (!takeName()) qCWarning(lcInstance, "The running application does not answer; starting beside it");
  return Start::first;
}

bool SingleInstance::takeName() {
  // The object first: a start that finds the name taken calls it at once.
  m_bus.registerObject(objectPath(m_id), this, QDBusConnection::ExportAdaptors);
  const auto reply = m_bus.interface()->registerService(m_id, QDBusConnectionInterface::DontQueueService,
                                                        QDBusConnectionInterface::DontAllowReplacement);
  m_ownsName = reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered;
  if (!m_ownsName) m_bus.unregisterObject(objectPath(m_id));
  return m_ownsName;
}

bool SingleInstance::handOverOnBus(const QStringList& links) {
  const QVariantMap platform = {{u"activation-token"_s, activationToken()},
                                {u"desktop-startup-id"_s, activationToken()}};
  auto message =
      QDBusMessage::createMethodCall(m_id, objectPath(m_id), interface, links.isEmpty() ? u"Activate"_s : u"Open"_s);
  if (!links.isEmpty()) message << links;
  message << platform;
  const QDBusMessage answer = m_bus.call(message, QDBus::Block, handOverMilliseconds);
  if (answer.type() != QDBusMessage::ErrorMessage) return true;
  qCWarning(lcInstance, "The running application did not answer: %s", qPrintable(answer.errorName()));
  return false;
}

SingleInstance::Start SingleInstance::claimSocket(const QStringList& links) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  const QString path = folder + u'/' + m_id;
  if (handOverBySocket(path, links)) return Start::second;
  // Nobody listens: what is there was left by a process that died, or belongs to one that hangs.
  QLocalServer::removeServer(path);
  if (!m_server.listen(path))
    qCWarning(lcInstance, "Another start will open another window, and sign-in links have to be pasted: %s",
              qPrintable(m_server.errorString()));
  return Start::first;
}

bool SingleInstance::handOverBySocket(const QString& path, const QStringList& links) {
  QLocalSocket socket;
  socket.connectToServer(path);
  if (!socket.waitForConnected(handOverMilliseconds)) return false;
  socket.write(written({links, activationToken()}));
  // The kernel takes connection and message for one that hangs.
  const QDeadlineTimer deadline(handOverMilliseconds);
  while (!socket.canReadLine() && socket.waitForReadyRead(int(deadline.remainingTime()))) continue;
  if (socket.canReadLine()) return true;
  qCWarning(lcInstance, "The running application did not answer: %s", qPrintable(socket.errorString()));
  return false;
}

void SingleInstance::readFromSocket() {
  while (QLocalSocket* const socket = m_server.nextPendingConnection()) {
    const auto take = [this, socket] {
      if (socket->bytesAvailable() > longestMessage) return socket->abort();
      if (!socket->canReadLine()) return;
      const Handed handed = read(socket->readLine());
      socket->write("taken\n");
      receive(handed.links, handed.activationToken);
    };
    connect(socket, &QLocalSocket::readyRead, this, take);
    // One that says nothing would hold its place for good, and there are not many.
    QTimer::singleShot(handOverMilliseconds, socket, &QLocalSocket::abort);
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    take();
  }
}

QByteArray SingleInstance::written(const Handed& handed) {
  const QJsonObject message{{u"links"_s, QJsonArray::fromStringList(handed.links)},
                            {u"token"_s, handed.activationToken}};
  return QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
}

SingleInstance::Handed SingleInstance::read(const QByteArray& line) {
  const auto message = QJsonDocument::fromJson(line).object();
  Handed handed{{}, message["token"_L1].toString()};
  for (const QJsonValue& link : message["links"_L1].toArray()) handed.links.append(link.toString());
  return handed;
}

void SingleInstance::receive(const QStringList& links, const QString& activationToken) {
  if (links.isEmpty()) return Q_EMIT activated(activationToken);
  if (const QStringList ours = linksIn(links); !ours.isEmpty()) Q_EMIT opened(ours, activationToken);
}

}  // namespace orv
