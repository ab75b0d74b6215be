#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QFile>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QTest>

#include "desktop/services/SingleInstance.h"
#include "tests/support/PrivateBus.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {
const auto id = u"com.orvella.test"_s;
const auto signInLink = u"com.orvella.test://auth/callback?code=a%2Bb"_s;
}  // namespace

class InstanceTest : public QObject {
  Q_OBJECT

  std::unique_ptr<PrivateBus> m_bus;
  int m_connections = 0;

  QDBusConnection connection(const QString& address) {
    return QDBusConnection::connectToBus(address, u"test%1"_s.arg(++m_connections));
  }
  QByteArray startAnother(const QStringList& arguments, const QString& token = {}) {
    QProcess process;
    auto environment = m_bus->environment();
    environment.insert(u"XDG_ACTIVATION_TOKEN"_s, token);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ORVELLA_SECOND_START), arguments);
    // The event loop must run: this process may be the one that is asked.
    if (!QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 10000)) return "it hangs";
    return process.readAllStandardOutput().trimmed();
  }

 private Q_SLOTS:
  void init() { m_bus = std::make_unique<PrivateBus>(); }
  void cleanup() { m_bus.reset(); }

  void theSecondStartHandsOver_data() {
    QTest::addColumn<bool>("onBus");
    QTest::newRow("on the bus") << true;
    QTest::newRow("without a bus") << false;
  }
  void theSecondStartHandsOver() {
    QFETCH(bool, onBus);
    const QString nowhere = u"unix:path="_s + m_bus->folder() + u"/nothing"_s;
    if (!onBus) m_bus->setSessionAddress(nowhere);
    qputenv("XDG_RUNTIME_DIR", m_bus->environment().value(u"XDG_RUNTIME_DIR"_s).toUtf8());

    auto first = std::make_unique<SingleInstance>(id, connection(onBus ? m_bus->address() : nowhere));
    QSignalSpy opened(first.get(), &SingleInstance::opened);
    QSignalSpy activated(first.get(), &SingleInstance::activated);
    QCOMPARE(first->claim({}), SingleInstance::Start::first);

    QCOMPARE(startAnother({u"--quiet"_s, signInLink, u"https://elsewhere.example"_s}, u"tok"_s), "second");
    QTRY_COMPARE(opened, (QList<QVariantList>{{QStringList{signInLink}, u"tok"_s}}));
    QVERIFY2(activated.isEmpty(), "whether a link shows the window is for whoever expects one to say");

    QCOMPARE(startAnother({}, u"other"_s), "second");
    QTRY_COMPARE(activated, (QList<QVariantList>{{u"other"_s}}));
    QCOMPARE(opened.size(), 1);
    first->receive({u"https://evil.example"_s, signInLink.left(20) + QString(10000, u'x')}, {});
    first->receive(QStringList(1000, signInLink), {});
    QCOMPARE(activated.size(), 1);
    QCOMPARE(opened.last().constFirst().toStringList().size(), 16);

    // However many false ones come first, and whoever takes a place and has nothing to say.
    std::vector<std::unique_ptr<QLocalSocket>> callers;
    for (int i = 0; i < 20; ++i) {
      first->receive({u"com.orvella.test://auth/callback?code=false%1"_s.arg(i)}, {});
      if (onBus) continue;
      auto& caller = callers.emplace_back(std::make_unique<QLocalSocket>());
      caller->connectToServer(m_bus->environment().value(u"XDG_RUNTIME_DIR"_s) + u'/' + id);
      QVERIFY(caller->waitForConnected());
      caller->write(i % 2 ? "half a message" : "no message\n");
    }
    QCOMPARE(startAnother({signInLink}, u"late"_s), "second");
    QTRY_COMPARE(opened.last(), (QVariantList{QStringList{signInLink}, u"late"_s}));

    first.reset();
    QCOMPARE(startAnother({signInLink}), "first");
  }

  void aHolderThatDoesNotListenIsNoReasonToStay() {
    auto deaf = connection(m_bus->address());
    QVERIFY(deaf.registerService(id));
    QCOMPARE(startAnother({signInLink}), "first");
    deaf.unregisterService(id);

    SingleInstance closing(id, connection(m_bus->address()));
    QCOMPARE(closing.claim({}), SingleInstance::Start::first);
    closing.release();
    QCOMPARE(startAnother({}), "first");
  }

  void aSocketLeftBehindIsTakenOver() {
    const QString runtime = m_bus->environment().value(u"XDG_RUNTIME_DIR"_s);
    qputenv("XDG_RUNTIME_DIR", runtime.toUtf8());
    QFile left(runtime + u'/' + id);
    QVERIFY(left.open(QIODevice::WriteOnly));
    left.close();
    const QString nowhere = u"unix:path="_s + m_bus->folder() + u"/nothing"_s;
    m_bus->setSessionAddress(nowhere);
    SingleInstance first(id, connection(nowhere));
    QCOMPARE(first.claim({}), SingleInstance::Start::first);
    QCOMPARE(startAnother({}), "second");
  }

  void oneThatHangsWithoutABusSwallowsNothing() {
    const QString runtime = m_bus->environment().value(u"XDG_RUNTIME_DIR"_s);
    m_bus->setSessionAddress(u"unix:path="_s + m_bus->folder() + u"/nothing"_s);
    // The kernel takes its connections; nobody reads them.
    const int hung = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, (runtime + u'/' + id).toLocal8Bit().constData(), sizeof address.sun_path);
    QCOMPARE(::bind(hung, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    QCOMPARE(::listen(hung, 8), 0);
    QCOMPARE(startAnother({signInLink}), "first");
    ::close(hung);
  }

  void whoSaysNothingIsHungUpOn() {
    const QString runtime = m_bus->environment().value(u"XDG_RUNTIME_DIR"_s);
    qputenv("XDG_RUNTIME_DIR", runtime.toUtf8());
    const QString nowhere = u"unix:path="_s + m_bus->folder() + u"/nothing"_s;
    SingleInstance instance(id, connection(nowhere));
    QCOMPARE(instance.claim({}), SingleInstance::Start::first);
    QLocalSocket silent;
    silent.connectToServer(runtime + u'/' + id);
    QVERIFY(silent.waitForConnected());
    silent.write("half a message");
    QTRY_COMPARE_WITH_TIMEOUT(silent.state(), QLocalSocket::UnconnectedState, 10000);
  }

  void onlyItsOwnLinksCount() {
    const SingleInstance instance(id, connection(m_bus->address()));
    QCOMPARE(instance.linksIn({u"orvella"_s, u"--demo"_s, signInLink, u"file:///etc/passwd"_s,
                               u"com.orvella.testing://x"_s, u"COM.ORVELLA.TEST://auth"_s}),
             QStringList({signInLink, u"COM.ORVELLA.TEST://auth"_s}));
  }
};

QTEST_GUILESS_MAIN(InstanceTest)
#include "instance_test.moc"
