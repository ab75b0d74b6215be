#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/socket.h>

#include <QLoggingCategory>
#include <QTest>
#include <QThread>
#include <algorithm>
#include <atomic>
#include <semaphore>

#include "kit/api/SideWork.h"
#include "tests/kit/Wire.h"

using namespace orv;
using namespace orv::test;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;
using Kind = APIError::Kind;
using Then = WireServer::Reply::Then;

Q_DECLARE_METATYPE(WireServer::Reply)
Q_DECLARE_METATYPE(std::optional<Kind>)

namespace {

Task<void> countAnswers(Task<SpintaxOut> task, int* answers) {
  co_await std::move(task);
  ++*answers;
}

/// Sends `count` requests at once and tells how many got the answer that names them.
int answeredAsAsked(APIClient& client, const QString& prefix, int count) {
  std::vector<std::optional<SpintaxOut>> answers(static_cast<size_t>(count));
  std::vector<std::exception_ptr> failures(answers.size());
  TaskScope scope;
  for (size_t i = 0; i < answers.size(); ++i)
    scope.start(
        keepOutcome(client.send(request(i % 3 ? HTTPMethod::get : HTTPMethod::post, prefix + QString::number(i))),
                    &answers[i], &failures[i]));
  if (!QTest::qWaitFor([&scope] { return scope.isIdle(); }, 20000)) return -1;
  int right = 0;
  for (size_t i = 0; i < answers.size(); ++i)
    right += answers[i] && answers[i]->text.contains(prefix + QString::number(i) + u' ');
  return right;
}

/// Bytes that never end, as far as any test waits.
QByteArray endless() { return QByteArray(1 << 20, 'x'); }

}  // namespace

class ExchangeTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { QLoggingCategory::setFilterRules(u"orvella.api.info=false"_s); }

  void isOnTheWireOnce_data() {
    QTest::addColumn<HTTPMethod>("method");
    QTest::addColumn<WireServer::Reply>("reply");
    QTest::addColumn<bool>("reused");
    const QByteArray half = "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{\"text\":";
    const QList<QPair<const char*, WireServer::Reply>> endings{
        {"closed unread", {.then = Then::close, .read = false}},
        {"reset unread", {.then = Then::reset, .read = false}},
        {"closed after reading", {.then = Then::close}},
        {"reset after reading", {.then = Then::reset}},
        {"closed in the first line", {.bytes = half.first(11), .then = Then::close}},
        {"closed in the head", {.bytes = half.first(20), .then = Then::close}},
        {"closed after an early answer", {.bytes = "HTTP/1.1 103 Early Hints\r\n\r\n", .then = Then::close}},
        {"closed between chunks",
         {.bytes = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\n{}\r\n", .then = Then::close}},
        {"closed in the body", {.bytes = half, .then = Then::close}},
        {"reset in the body", {.bytes = half, .then = Then::reset}}};
    for (const auto method : {HTTPMethod::get, HTTPMethod::post, HTTPMethod::put, HTTPMethod::patch, HTTPMethod::del})
      for (const auto& [name, reply] : endings)
        for (const bool reused : {false, true})
          QTest::addRow("%s %s, %s", token(method).constData(), name, reused ? "after another" : "first")
              << method << reply << reused;
  }
  void isOnTheWireOnce() {
    QFETCH(HTTPMethod, method);
    QFETCH(WireServer::Reply, reply);
    QFETCH(bool, reused);
    Wire wire;
    if (reused) await(wire.send(request(HTTPMethod::get, u"/warm"_s)));
    wire.server.reply(reply);
    // A read may be asked again where not a line came back on a connection kept from before: it changes nothing,
    // and a service that closes idle connections would look like an offline one otherwise.
    const bool repeats = method == HTTPMethod::get && reused && !reply.bytes.contains('\n');
    QCOMPARE(wire.failureOf(request(method)), repeats ? std::nullopt : std::optional(Kind::offline));
    await(wire.send(request(HTTPMethod::get, u"/done"_s)));
    QCOMPARE(wire.seen(method), repeats ? 2 : 1);
  }

  void changesNeverShareAConnection() {
    Wire wire;
    for (int i = 0; i < 2; ++i)
      for (const auto method : {HTTPMethod::get, HTTPMethod::post, HTTPMethod::del}) await(wire.send(request(method)));
    const auto received = wire.server.received();
    QCOMPARE(received.size(), size_t(6));
    QCOMPARE(wire.server.connections(), 5);
    QCOMPARE(received[0].connection, received[3].connection);
  }

  void noAnswerAtAll_data() {
    QTest::addColumn<QString>("scheme");
    QTest::addColumn<bool>("listening");
    QTest::newRow("refused") << u"http"_s << false;
    QTest::newRow("no TLS") << u"https"_s << true;
  }
  void noAnswerAtAll() {
    QFETCH(QString, scheme);
    QFETCH(bool, listening);
    Wire wire(patient, scheme);
    wire.server.reply({.then = Then::close, .read = false});
    const QUrl nobody = WireServer().url();
    if (!listening) wire.client = std::make_unique<APIClient>(APIEnvironment{nobody}, identity, patient);
    QCOMPARE(wire.failureOf(request()), Kind::unreachable);
  }

  void tooLongAnAnswerIsRefused_data() {
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<std::optional<Kind>>("failure");
    const std::optional<Kind> none, refused = Kind::invalidResponse;
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    const QByteArray fitting = "{\"text\":\"" + QByteArray(989, 'x') + "\"}";
    QTest::newRow("fits") << ok + "Content-Length: 1000\r\n" << fitting << none;
    QTest::newRow("fits, length untold") << ok << fitting << none;
    QTest::newRow("one byte more") << ok + "Content-Length: 1001\r\n" << fitting + " " << refused;
    QTest::newRow("one byte more, length untold") << ok << fitting + " " << refused;
    QTest::newRow("announced") << ok + "Content-Length: 300000000000\r\n" << QByteArray() << refused;
    QTest::newRow("unfolds") << ok + "Content-Encoding: deflate\r\n" << qCompress(endless()).sliced(4) << refused;
    const std::optional<Kind> fault = Kind::server;
    const QByteArray error = "HTTP/1.1 500 No\r\n";
    QTest::newRow("of an error") << error << endless().repeated(2) << fault;
    QTest::newRow("of an error, announced") << error + "Content-Length: 300000000000\r\n" << QByteArray() << fault;
  }
  void tooLongAnAnswerIsRefused() {
    QFETCH(QByteArray, head);
    QFETCH(QByteArray, body);
    Wire wire;
    auto call = request();
    call.answerAtMost = 1000;
    const bool announced = body.isEmpty();
    wire.server.reply({.bytes = head + "\r\n" + body, .then = announced ? Then::keep : Then::close});
    QTEST(wire.failureOf(call), "failure");
  }

  void givesUpInTime_data() {
    QTest::addColumn<WireServer::Reply>("reply");
    QTest::addColumn<APIClient::Limits>("limits");
    QTest::addColumn<int>("timeout");
    const QByteArray head = "HTTP/1.1 200 OK\r\n";
    const WireServer::Reply silence{}, half{.bytes = head + "Content-Length: 9\r\n\r\n{"};
    const APIClient::Limits idle{.idle = 100ms, .whole = 40s}, whole{.idle = 20s, .whole = 150ms};
    QTest::newRow("silence") << silence << idle << 60000;
    QTest::newRow("silence after a part") << half << idle << 60000;
    QTest::newRow("silence, by the request's own limit") << silence << patient << 100;
    QTest::newRow("endless body") << WireServer::Reply{.bytes = head + "\r\n", .slowly = endless()} << whole << 60000;
    QTest::newRow("endless head") << WireServer::Reply{.bytes = head + "X: ", .slowly = endless()} << whole << 60000;
  }
  void givesUpInTime() {
    QFETCH(WireServer::Reply, reply);
    QFETCH(APIClient::Limits, limits);
    QFETCH(int, timeout);
    for (const auto method : {HTTPMethod::get, HTTPMethod::post}) {
      Wire wire(limits);
      wire.server.reply(reply);
      auto call = request(method);
      call.timeout = std::chrono::milliseconds(timeout);
      QCOMPARE(wire.failureOf(call), Kind::timedOut);
      QTRY_COMPARE(wire.server.givenUp(), 1);
      QCOMPARE(wire.seen(method), 1);
    }
  }

  /// An answer that keeps coming, be it slowly, is not idle.
  void everyByteIsASignOfLife_data() {
    QTest::addColumn<QByteArray>("atOnce");
    QTest::addColumn<QByteArray>("slowly");
    const QByteArray answer = WireServer::answer(200, "{\"text\":\"slow\"}", "X-1: \r\nX-2: \r\nX-3: \r\nX-4: \r\n");
    const qsizetype head = answer.indexOf("\r\n\r\n") + 4;
    QTest::newRow("body") << answer.first(head) << QByteArray(60, ' ') + answer.sliced(head);
    QTest::newRow("head") << answer.first(9) << answer.sliced(9);
  }
  void everyByteIsASignOfLife() {
    QFETCH(QByteArray, atOnce);
    QFETCH(QByteArray, slowly);
    Wire wire({.idle = 400ms, .whole = 40s});
    atOnce.replace("Content-Length: 15", "Content-Length: 75");
    wire.server.reply({.bytes = atOnce, .slowly = slowly});
    QCOMPARE(await(wire.send(request())).text, u"slow"_s);
  }

  void aDroppedTaskEndsItsExchange() {
    for (const auto method : {HTTPMethod::get, HTTPMethod::post}) {
      Wire wire;
      wire.server.reply({});
      int answers = 0;
      auto scope = std::make_unique<TaskScope>();
      scope->start(countAnswers(wire.send(request(method)), &answers));
      QTRY_COMPARE(wire.seen(method), 1);
      scope.reset();
      QTRY_COMPARE(wire.server.givenUp(), 1);
      QCOMPARE(await(wire.send(request(HTTPMethod::get, u"/next"_s))).text.isEmpty(), false);
      QCOMPARE(answers, 0);
      QCOMPARE(wire.seen(method), 1);
    }
  }

  void aLongBodyIsCountedAsItGoes() {
    Wire wire;
    auto call = request(HTTPMethod::post);
    call.body = "\"" + QByteArray(1 << 20, 'x') + "\"";
    call.sent = std::make_shared<std::atomic<qint64>>(0);
    await(wire.send(call));
    QCOMPARE(call.sent->load(), call.body->size());
  }

  void anAnswerForNobodyIsForgotten() {
    Wire wire;
    int answers = 0;
    TaskScope scope;
    for (int i = 0; i < 300; ++i) {
      scope.start(countAnswers(wire.send(request()), &answers));
      // Some have not begun by now, some are under way, some have their answer on its way here.
      if (i % 7 == 0) QCoreApplication::processEvents();
      if (i % 5 == 0) scope.cancel();
    }
    scope.cancel();
    const int before = answers;
    QCOMPARE(answeredAsAsked(*wire.client, u"/after"_s, 10), 10);
    QCOMPARE(answers, before);
  }

  void aClientThatGoesDeliversNothing() {
    Wire wire;
    wire.server.reply({});
    int answers = 0;
    TaskScope scope;
    scope.start(countAnswers(wire.send(request()), &answers));
    QTRY_COMPARE(wire.seen(HTTPMethod::get), 1);
    wire.client.reset();
    QTRY_COMPARE(wire.server.givenUp(), 1);
    scope.cancel();
    QCOMPARE(answers, 0);
  }

  void programsThatAreStartedGetNoConnection() {
    Wire wire;
    wire.server.reply({});
    int answers = 0, connections = 0;
    TaskScope scope;
    scope.start(countAnswers(wire.send(request()), &answers));
    QTRY_COMPARE(wire.seen(HTTPMethod::get), 1);
    for (int descriptor = 3; descriptor < 1024; ++descriptor) {
      sockaddr_in peer{};
      socklen_t size = sizeof peer;
      if (::getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) != 0) continue;
      if (peer.sin_family != AF_INET || ntohs(peer.sin_port) != wire.server.url().port()) continue;
      ++connections;
      QVERIFY(::fcntl(descriptor, F_GETFD) & FD_CLOEXEC);
    }
    QCOMPARE(connections, 1);
  }

  void whatSignsSomebodyInIsOverwritten() {
    Wire wire;
    auto signingIn = request(HTTPMethod::post);
    signingIn.body = QByteArray(R"({"password":"hunter2"})");
    auto ordinary = signingIn;
    ordinary.body->detach();
    signingIn.secret = true;
    const QByteArray held = *signingIn.body, kept = *ordinary.body;
    for (const auto& each : {signingIn, ordinary}) {
      wire.server.reply(200, "{}");
      wire.errorOf(each);
    }
    QVERIFY(wire.server.received().front().bytes.contains("hunter2"));
    // The network's thread has ended by then.
    wire.client.reset();
    QVERIFY(!held.contains("hunter2"));
    QVERIFY(kept.contains("hunter2"));
  }

  void everyoneGetsHisOwnAnswer() {
    Wire wire;
    QCOMPARE(answeredAsAsked(*wire.client, u"/main"_s, 100), 100);
    std::vector<std::unique_ptr<QThread>> threads;
    // The thread sanitizer does not see that Qt's wait() orders what the threads wrote before what comes after it.
    std::array<std::atomic<int>, 3> right{};
    for (size_t i = 0; i < right.size(); ++i) {
      threads.emplace_back(QThread::create(
          [&, i] { right[i] = answeredAsAsked(*wire.client, u"/thread"_s + QString::number(i) + u'-', 30); }));
      threads.back()->start();
    }
    QCOMPARE(answeredAsAsked(*wire.client, u"/beside"_s, 30), 30);
    for (const auto& thread : threads) QVERIFY(thread->wait(30000));
    for (const auto& each : right) QCOMPARE(each.load(), 30);
  }

  void whatTakesLongIsDoneTwoAtATime() {
    constexpr int pieces = 8;
    std::counting_semaphore<> begun(0), go(0);
    std::atomic<int> now = 0, most = 0, done = 0;
    {
      SideWork side;
      for (int i = 0; i < pieces; ++i)
        side.start([&] {
          const int here = ++now;
          for (int before = most; before < here && !most.compare_exchange_weak(before, here);) continue;
          begun.release();
          go.acquire();
          --now;
          ++done;
        });
      for (size_t i = 0; i < SideWork::atOnce; ++i) begun.acquire();
      QCOMPARE(done.load(), 0);
      go.release(pieces);
      for (size_t i = SideWork::atOnce; i < pieces; ++i) begun.acquire();
    }
    QCOMPARE(most.load(), int(SideWork::atOnce));
    QVERIFY2(done == pieces, "what has begun is waited for");
  }
};

QTEST_GUILESS_MAIN(ExchangeTest)
#include "exchange_test.moc"
