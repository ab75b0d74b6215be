#pragma once

#include <QDBusConnection>
#include <QLocalServer>
#include <QObject>
#include <QStringList>

namespace orv {

/// One running application per session: the first start holds the application's name, later ones hand it their links
/// and leave. The name on the session bus is the lock, which the bus lets go with the process; without a bus a socket
/// in the runtime folder serves.
class SingleInstance final : public QObject {
  Q_OBJECT

 public:
  enum class Start { first, second };

  /// `id` is the application's reverse-domain identifier, and the scheme of its links.
  SingleInstance(QString id, QDBusConnection bus, QObject* parent = nullptr);
  ~SingleInstance() override;

  /// Those of a command line's arguments that are links of the application.
  QStringList linksIn(const QStringList& arguments) const;

  /// Decides which start this is. A second one has handed over `links`, or asked for the window when there are none.
  /// Nothing that comes for the first is delivered before the event loop runs.
  Start claim(const QStringList& links);
  /// Lets the next start be the first: this one is closing and hears nothing any more.
  void release();

  /// What another start says on the socket.
  struct Handed {
    QStringList links;
    QString activationToken;
  };
  static QByteArray written(const Handed& handed);
  static Handed read(const QByteArray& line);

  /// What another start or the desktop hands over; `activationToken` lets the window come to the front.
  void receive(const QStringList& links, const QString& activationToken);

 Q_SIGNALS:
  /// Links came, which any page can open; `activationToken` lets the window come to the front if one is expected.
  void opened(const QStringList& links, const QString& activationToken);
  /// The window is wanted in front.
  void activated(const QString& activationToken);

 private:
  Start claimOnBus(const QStringList& links);
  bool takeName();
  bool handOverOnBus(const QStringList& links);
  Start claimSocket(const QStringList& links);
  bool handOverBySocket(const QString& path, const QStringList& links);
  void readFromSocket();

  QString m_id;
  QDBusConnection m_bus;
  QLocalServer m_server;
  bool m_ownsName = false;
};

}  // namespace orv
