#include <QTcpSocket>
#include <QTest>

#include "tests/service/ServiceProcess.h"

using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto methods = "GET /api/v1/auth/methods HTTP/1.1\r\nHost: x\r\n\r\n"_ba;

QByteArray post(const QByteArray& headers, const QByteArray& body = {}) {
  return "POST /api/v1/auth/email/check HTTP/1.1\r\nHost: x\r\n" + headers + "\r\n" + body;
}

}  // namespace

/// What the service does with bytes that are hard on a server.
class DoorTest : public QObject {
  Q_OBJECT

  std::unique_ptr<ServiceProcess> service;
  QTcpSocket socket;
  QByteArray received;

  void write(const QByteArray& bytes) { socket.write(bytes); }
  int answers() const { return int(received.count("HTTP/1.1 ")); }
  QByteArray firstLine() const { return received.first(std::max(received.indexOf("\r\n"), qsizetype(0))); }
  bool isClosed() const { return socket.state() == QAbstractSocket::UnconnectedState; }

 private Q_SLOTS:
  void initTestCase() {
    service = std::make_unique<ServiceProcess>();
    connect(&socket, &QTcpSocket::readyRead, this, [this] { received += socket.readAll(); });
  }
  void init() {
    received.clear();
    socket.abort();
    socket.connectToHost(u"127.0.0.1"_s, quint16(service->url().port()));
    QTRY_COMPARE(socket.state(), QAbstractSocket::ConnectedState);
  }

  void refusesWhatIsNoRequest_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("line");
    const auto bad = "HTTP/1.1 400 Bad Request"_ba;
    QTest::newRow("garbage") << "\x16\x03\x01\x02\r\n\r\n"_ba << bad;
    QTest::newRow("no path") << "GET  HTTP/1.1\r\n\r\n"_ba << bad;
    QTest::newRow("a whole address") << "GET http://x/ HTTP/1.1\r\n\r\n"_ba << bad;
    QTest::newRow("another version") << "GET / HTTP/2.0\r\n\r\n"_ba << bad;
    QTest::newRow("header without colon") << "GET / HTTP/1.1\r\nHost\r\n\r\n"_ba << bad;
    QTest::newRow("length no number") << post("Content-Length: many\r\n") << bad;
    QTest::newRow("length negative") << post("Content-Length: -1\r\n") << bad;
    QTest::newRow("two lengths") << post("Content-Length: 2\r\nContent-Length: 3\r\n", "{}") << bad;
    QTest::newRow("body too long") << post("Content-Length: 67108865\r\n") << "HTTP/1.1 413 Content Too Large"_ba;
    QTest::newRow("chunks") << post("Transfer-Encoding: chunked\r\n", "0\r\n\r\n") << "HTTP/1.1 411 Length Required"_ba;
    const auto longHead = "HTTP/1.1 431 Request Header Fields Too Large"_ba;
    QTest::newRow("head too long") << post("X: " + QByteArray(70'000, 'x') + "\r\n") << longHead;
    QTest::newRow("head without end") << "GET / HTTP/1.1\r\nX: "_ba + QByteArray(70'000, 'x') << longHead;
  }
  void refusesWhatIsNoRequest() {
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, line);
    write(bytes);
    QTRY_VERIFY(isClosed());
    QCOMPARE(firstLine(), line);
    QCOMPARE(answers(), 1);
  }

  void answersRequestsInPiecesAndInOneGo() {
    for (const char byte : methods) {
      write(QByteArray(1, byte));
      socket.flush();
    }
    QTRY_COMPARE(answers(), 1);
    write(methods + post("Content-Length: 13\r\n", R"({"email":"x"})") + methods);
    QTRY_COMPARE(answers(), 4);
    QVERIFY(!isClosed());
    QCOMPARE(received.count("\"account\":false"), 1);
  }

  void asksForABodyThatWaits() {
    write(post("Content-Length: 13\r\nExpect: 100-continue\r\n"));
    QTRY_COMPARE(received, "HTTP/1.1 100 Continue\r\n\r\n"_ba);
    write(R"({"email":)");
    write(R"("x"})");
    QTRY_VERIFY(received.contains("HTTP/1.1 200 OK"));
    QCOMPARE(answers(), 2);
  }

  void closesWhenAskedTo_data() {
    QTest::addColumn<QByteArray>("request");
    QTest::newRow("by the header") << "GET /api/v1/auth/methods HTTP/1.1\r\nConnection: Close\r\n\r\n"_ba;
    QTest::newRow("by the version") << "GET /api/v1/auth/methods HTTP/1.0\r\n\r\n"_ba;
  }
  void closesWhenAskedTo() {
    QFETCH(QByteArray, request);
    write(request);
    QTRY_VERIFY(isClosed());
    QCOMPARE(firstLine(), "HTTP/1.1 200 OK"_ba);
  }

  void endsWithASentenceOnOptionsItDoesNotTake_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("every address") << QStringList{u"--host"_s, u"0.0.0.0"_s} << "loopback only"_ba;
    QTest::newRow("another machine's") << QStringList{u"--host"_s, u"192.0.2.1"_s} << "loopback only"_ba;
    QTest::newRow("taken port") << QStringList{u"--port"_s, QString::number(service->url().port())} << "is taken"_ba;
    QTest::newRow("no port") << QStringList{u"--port"_s, u"70000"_s} << "--port takes"_ba;
    QTest::newRow("no rate") << QStringList{u"--faults"_s, u"often"_s} << "--faults takes"_ba;
    QTest::newRow("no fault") << QStringList{u"--fault-kinds"_s, u"401,418"_s} << "--fault-kinds takes"_ba;
  }
  void endsWithASentenceOnOptionsItDoesNotTake() {
    QFETCH(QStringList, options);
    QFETCH(QByteArray, word);
    QProcess process;
    process.start(QStringLiteral(ORVELLA_SERVICE), options);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 2);
    QVERIFY2(process.readAllStandardError().contains(word), word.constData());
  }

  void listensOnLoopbackAlone() {
    QFile table(u"/proc/net/tcp"_s);
    QVERIFY(table.open(QIODevice::ReadOnly));
    const QByteArray port = ':' + QByteArray::number(service->url().port(), 16).toUpper().rightJustified(4, '0');
    int listening = 0;
    for (const QByteArray& line : table.readAll().split('\n')) {
      const auto columns = line.simplified().split(' ');
      if (columns.value(3) != "0A" || !columns.value(1).endsWith(port)) continue;
      ++listening;
      QCOMPARE(columns.value(1), "0100007F" + port);
    }
    QCOMPARE(listening, 1);
  }
};

QTEST_GUILESS_MAIN(DoorTest)
#include "door_test.moc"
