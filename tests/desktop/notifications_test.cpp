#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QSignalSpy>
#include <QTest>

#include "desktop/services/DesktopNotifications.h"
#include "tests/support/PrivateBus.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto name = u"org.freedesktop.Notifications"_s;
const auto path = u"/org/freedesktop/Notifications"_s;

}  // namespace

/// A notification server that shows nothing and tells what it was given.
class FakeServer : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  struct Got {
    uint replaces;
    QString summary, body;
    QStringList actions;
    QVariantMap hints;
  };

  FakeServer(QDBusConnection bus, QStringList capabilities) : m_bus(std::move(bus)), m_can(std::move(capabilities)) {
    m_bus.registerObject(path, this, QDBusConnection::ExportAllSlots);
    m_bus.registerService(name);
  }
  ~FakeServer() override {
    m_bus.unregisterService(name);
    m_bus.unregisterObject(path);
  }

  int asked = 0;
  QList<Got> got;
  QList<uint> closed;

  void say(const QString& signal, const QVariantList& values) { sayBy(m_bus, signal, values); }
  static void sayBy(QDBusConnection bus, const QString& signal, const QVariantList& values) {
    auto message = QDBusMessage::createSignal(path, name, signal);
    message.setArguments(values);
    bus.send(message);
  }

 public Q_SLOTS:
  QStringList GetCapabilities() {
    ++asked;
    return m_can;
  }
  uint Notify(const QString&, uint replaces, const QString&, const QString& summary, const QString& body,
              const QStringList& actions, const QVariantMap& hints, int) {
    got.append({replaces, summary, body, actions, hints});
    return replaces ? replaces : ++m_last;
  }
  void CloseNotification(uint number) { closed.append(number); }

 private:
  QDBusConnection m_bus;
  QStringList m_can;
  uint m_last = 40;
};

class NotificationsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<PrivateBus> m_bus;
  std::unique_ptr<DesktopNotifications> m_desktop;
  int m_connections = 0;

  QDBusConnection connection() {
    return QDBusConnection::connectToBus(m_bus->address(), u"notes%1"_s.arg(++m_connections));
  }
  static Notifications::Notice notice(const QString& id = u"reply/a/t1"_s) {
    return {.id = id, .title = u"<b>Mara</b> & Co"_s, .body = u"1 < 2 & <img src=x>"_s, .category = u"email.arrived"_s};
  }
  void make() { m_desktop = std::make_unique<DesktopNotifications>(connection(), u"com.orvella.desktop"_s); }

 private Q_SLOTS:
  void init() { m_bus = std::make_unique<PrivateBus>(); }
  void cleanup() {
    m_desktop.reset();
    m_bus.reset();
  }

  void bodiesAreWrittenAsTheServerReadsThem_data() {
    QTest::addColumn<QStringList>("can");
    QTest::addColumn<QString>("body");
    QTest::addColumn<int>("actions");
    QTest::newRow("markup") << QStringList{u"body"_s, u"body-markup"_s, u"actions"_s}
                            << u"1 &lt; 2 &amp; &lt;img src=x&gt;"_s << 4;
    QTest::newRow("plain") << QStringList{u"body"_s} << u"1 < 2 & <img src=x>"_s << 0;
    QTest::newRow("no body") << QStringList{u"body-markup"_s, u"actions"_s} << QString() << 4;
  }
  void bodiesAreWrittenAsTheServerReadsThem() {
    QFETCH(QStringList, can);
    QFETCH(QString, body);
    QFETCH(int, actions);
    FakeServer server(connection(), can);
    make();
    m_desktop->show(notice());
    m_desktop->show(notice(u"reply/a/t2"_s));
    QTRY_COMPARE(server.got.size(), 2);
    QCOMPARE(server.asked, 1);
    const auto& got = server.got.first();
    QCOMPARE(got.summary, u"<b>Mara</b> & Co"_s);
    QCOMPARE(got.body, body);
    QCOMPARE(got.actions.size(), actions);
    QCOMPARE(got.hints[u"desktop-entry"_s].toString(), u"com.orvella.desktop"_s);
    QCOMPARE(got.hints[u"category"_s].toString(), u"email.arrived"_s);
    QCOMPARE(got.hints[u"urgency"_s].typeId(), int(QMetaType::UChar));
    QVERIFY2(!got.hints.contains(u"sound-name"_s) && !got.hints.contains(u"sound-file"_s), "no sound of its own");
  }

  void whereNobodyShowsThemItIsSaid() {
    make();
    QCOMPARE(m_desktop->trouble(), QString());
    m_desktop->show(notice());
    QTRY_COMPARE(m_desktop->trouble(), u"Nothing on this desktop shows notifications."_s);
    FakeServer server(connection(), {u"body"_s});
    QTRY_COMPARE(m_desktop->trouble(), QString());
    m_desktop->show(notice());
    QTRY_COMPARE(server.got.size(), 1);
    const DesktopNotifications alone(QDBusConnection(QString()), u"com.orvella.desktop"_s);
    QVERIFY(!alone.trouble().isEmpty());
  }

  void aSecondOneOfTheNameReplacesTheFirst() {
    FakeServer server(connection(), {u"body"_s, u"actions"_s});
    make();
    m_desktop->show(notice());
    QTRY_COMPARE(server.got.size(), 1);
    m_desktop->withdraw(u"reply/a/nobody"_s);
    m_desktop->show(notice(u"reply/a/t2"_s));
    QTRY_COMPARE(server.got.size(), 2);
    m_desktop->show(notice());
    QTRY_COMPARE(server.got.size(), 3);
    QCOMPARE(server.got.last().replaces, 41u);
    m_desktop->withdraw(u"reply/a/t1"_s);
    QTRY_COMPARE(server.closed, QList<uint>{41});
    m_desktop->show(notice(u"late"_s));
    m_desktop->withdraw(u"late"_s);
    QTRY_COMPARE(server.closed, (QList<uint>{41, 43}));
  }

  void onlyTheServerCanFollowOne() {
    FakeServer server(connection(), {u"body"_s, u"actions"_s});
    make();
    QSignalSpy followed(m_desktop.get(), &Notifications::followed);
    m_desktop->show(notice());
    m_desktop->show(notice(u"reply/a/t2"_s));
    QTRY_COMPARE(server.got.size(), 2);
    m_desktop->show(notice());
    QTRY_COMPARE(server.got.size(), 3);
    const auto stranger = connection();
    FakeServer::sayBy(stranger, u"ActionInvoked"_s, {41u, u"default"_s});
    FakeServer::sayBy(stranger, u"ActivationToken"_s, {41u, u"stolen"_s});
    server.say(u"ActionInvoked"_s, {7u, u"default"_s});
    server.say(u"NotificationClosed"_s, {42u, 1u});
    server.say(u"ActionInvoked"_s, {42u, u"default"_s});
    server.say(u"ActivationToken"_s, {41u, u"token"_s});
    server.say(u"ActionInvoked"_s, {41u, u"open"_s});
    QTRY_COMPARE(followed.size(), 1);
    QCOMPARE(followed.first(), (QVariantList{u"reply/a/t1"_s, u"token"_s}));
  }

  void anotherServerIsAskedAnew() {
    make();
    // Nobody is there: nothing waits for ever, and nothing is told twice.
    m_desktop->show(notice(u"lost"_s));
    {
      QDBusConnection bus = connection();
      auto call = QDBusMessage::createMethodCall(name, path, name, u"GetCapabilities"_s);
      QVERIFY(bus.call(call).type() == QDBusMessage::ErrorMessage);
    }
    auto first = std::make_unique<FakeServer>(connection(), QStringList{u"body"_s, u"body-markup"_s});
    QTRY_VERIFY([&] {
      m_desktop->show(notice());
      return QTest::qWaitFor([&] { return !first->got.isEmpty(); }, 200);
    }());
    first.reset();
    FakeServer second(connection(), {u"body"_s});
    QTRY_VERIFY([&] {
      m_desktop->show(notice());
      return QTest::qWaitFor([&] { return second.asked > 0 && !second.got.isEmpty(); }, 200);
    }());
    // What it is shown before it has been asked, it was not asked for.
    QTRY_COMPARE(second.got.last().body, notice().body);
  }
};

QTEST_MAIN(NotificationsTest)
#include "notifications_test.moc"
