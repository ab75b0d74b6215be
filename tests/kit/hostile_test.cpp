#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLoggingCategory>
#include <QSemaphore>
#include <QTemporaryFile>
#include <QTest>
#include <QThread>

#include "tests/kit/Wire.h"

using namespace orv;
using namespace orv::test;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;
using Kind = APIError::Kind;
using Then = WireServer::Reply::Then;

namespace {

/// Answers that decode into something else than a record.
struct Unaffordable {};
struct Patient {
  Qt::HANDLE thread = nullptr;
};

QSemaphore patience;

}  // namespace

namespace orv::detail {

template <>
struct AnswerDecoder<Unaffordable> {
  static Unaffordable decode(const HTTPAnswer&) { throw std::bad_alloc(); }
};
template <>
struct AnswerDecoder<Patient> {
  static Patient decode(const HTTPAnswer&) {
    patience.acquire();
    return {QThread::currentThreadId()};
  }
};

}  // namespace orv::detail

Q_DECLARE_METATYPE(WireServer::Reply)
Q_DECLARE_METATYPE(std::optional<Kind>)

namespace {

/// The protocol versions that a ClientHello offers, in hex. Its random bytes can look like anything, so it is walked.
QByteArrayList versionsOffered(QByteArrayView hello) {
  qsizetype at = 0;
  const auto take = [&](int bytes) {
    qsizetype number = 0;
    for (; bytes > 0 && at < hello.size(); --bytes) number = number << 8 | uchar(hello[at++]);
    return number;
  };
  const auto skip = [&](int lengthBytes) {
    const qsizetype length = take(lengthBytes);
    at += length;
  };
  at = 5 + 4 + 2 + 32;  // the record's head, the message's head, the old version, the random bytes
  skip(1);              // session
  skip(2);              // ciphers
  skip(1);              // compressions
  take(2);
  constexpr qsizetype supportedVersions = 43;
  while (at < hello.size() && take(2) != supportedVersions) skip(2);
  take(2);
  QByteArrayList versions;
  for (qsizetype left = take(1); left > 0 && at < hello.size(); left -= 2) {
    versions << hello.sliced(at, std::min<qsizetype>(2, hello.size() - at)).toByteArray().toHex();
    at += 2;
  }
  return versions;
}

template <class R>
Request<R> reading() {
  Request<R> result;
  result.path = u"/x"_s;
  return result;
}

template <class R>
std::optional<Kind> failureOf(Task<R> task) {
  try {
    await(std::move(task));
  } catch (const APIError& error) {
    return error.kind();
  }
  return std::nullopt;
}

QByteArray packed(const QByteArray& body) {
  const QByteArray small = qCompress(body, 9).sliced(4);
  return WireServer::answer(200, small, "Content-Encoding: deflate\r\n");
}

/// How long the network thread has been running, as the kernel counts it.
std::chrono::nanoseconds networkTime() {
  for (const QString& thread : QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    QFile name(u"/proc/self/task/%1/comm"_s.arg(thread)), run(u"/proc/self/task/%1/schedstat"_s.arg(thread));
    if (name.open(QIODevice::ReadOnly) && name.readAll().trimmed() == "network" && run.open(QIODevice::ReadOnly))
      return std::chrono::nanoseconds(run.readAll().split(' ').first().toLongLong());
  }
  return {};
}

}  // namespace

/// A service, or somebody on the way to it, that means harm.
class HostileTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { QLoggingCategory::setFilterRules(u"orvella.api*=false"_s); }

  void headsComeToAnEnd_data() {
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<std::optional<Kind>>("failure");
    const auto row = [](const char* name, const QByteArray& head, std::optional<Kind> failure = Kind::invalidResponse) {
      QTest::newRow(name) << head << failure;
    };
    const QByteArray early = "HTTP/1.1 103 Early Hints\r\nLink: </a>\r\n\r\n", line = "X-A: 1234567890\r\n";
    const QByteArray answer = WireServer::answer(200, R"({"text":"x"})"),
                     rest = answer.sliced(answer.indexOf('\n') + 1);
    row("a few before it", early.repeated(20) + answer, std::nullopt);
    row("a long one", "HTTP/1.1 200 OK\r\n" + line.repeated(4000) + rest, std::nullopt);
    row("many before it", early.repeated(10'000));
    row("many bare ones before it", QByteArray("HTTP/1.1 100 \r\n\r\n").repeated(20'000));
    row("many lines", "HTTP/1.1 200 OK\r\n" + line.repeated(20'000));
    row("one line", "HTTP/1.1 200 OK\r\nX-A: " + QByteArray(400'000, 'x'));
    row("one line folded", "HTTP/1.1 200 OK\r\nX-A: 1\r\n" + QByteArray(" 1234567890\r\n").repeated(40'000));
    row("lines after the body",
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\n{}\r\n0\r\n" + line.repeated(20'000));
  }
  void headsComeToAnEnd() {
    QFETCH(QByteArray, head);
    Wire wire;
    wire.server.reply({.bytes = head});
    QTEST(wire.failureOf(request()), "failure");
    if (wire.server.givenUp() == 0) await(wire.send(request()));
  }

  void nothingIsReadThatNobodyWants_data() {
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("packed");
    for (const int status : {200, 204, 401, 429})
      for (const bool isPacked : {false, true})
        QTest::addRow("%d%s", status, isPacked ? ", packed" : "") << status << isPacked;
  }
  void nothingIsReadThatNobodyWants() {
    QFETCH(int, status);
    QFETCH(bool, packed);
    Wire wire;
    const QByteArray head = "HTTP/1.1 " + QByteArray::number(status) + " Whatever\r\nRetry-After: 1\r\n" +
                            (packed ? "Content-Encoding: gzip\r\n" : "");
    // The body never comes, or never ends.
    wire.server.reply({.bytes = head + "Content-Length: 100000000\r\n\r\n"});
    wire.server.reply({.bytes = head + "\r\n" + QByteArray(100'000, 'x'), .slowly = QByteArray(100'000, 'x')});
    for (int i = 0; i < 2; ++i) {
      const auto failure = failureOf(wire.client->send(reading<Empty>()));
      QCOMPARE(failure, status < 300    ? std::nullopt
                        : status == 401 ? std::optional(Kind::unauthorized)
                                        : std::optional(Kind::rateLimited));
    }
    QCOMPARE(wire.server.connections(), status == 204 ? wire.server.connections() : 2);
  }

  void whatUnpacksToMuchIsRefused_data() {
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("refused");
    QByteArray names = "[";
    for (int i = 0; i < 100'000; ++i) names += "{\"id\":\"c" + QByteArray::number(i) + "\",\"status\":\"queued\"},";
    QTest::newRow("records") << R"({"text":"x","rows":)" + names + "{}]}" << false;
    QTest::newRow("blanks, a few") << R"({"text":"x")" + QByteArray(1'000'000, ' ') + "}" << false;
    QTest::newRow("blanks") << R"({"text":"x")" + QByteArray(10'000'000, ' ') + "}" << true;
    QTest::newRow("a list of nothing") << R"({"text":"x","rows":[)" + QByteArray("\"\",").repeated(4'000'000) + "\"\"]}"
                                       << true;
  }
  void whatUnpacksToMuchIsRefused() {
    QFETCH(QByteArray, body);
    QFETCH(bool, refused);
    Wire wire;
    wire.server.reply({.bytes = packed(body)});
    QCOMPARE(wire.failureOf(request()), refused ? std::optional(Kind::invalidResponse) : std::nullopt);
  }

  void whatCannotBeDecodedForLackOfMemoryIsUnreadable() {
    Wire wire;
    wire.server.reply(200, "{}");
    wire.server.reply(200, QByteArray(1 << 20, ' '));
    for (int i = 0; i < 2; ++i) QCOMPARE(failureOf(wire.client->send(reading<Unaffordable>())), Kind::invalidResponse);
  }

  void aLongAnswerIsDecodedBesideTheOthers() {
    Wire wire;
    wire.server.reply(200, QByteArray(1 << 20, ' '));
    std::optional<Patient> decoded;
    std::exception_ptr failure;
    TaskScope scope;
    scope.start(keepOutcome(wire.client->send(reading<Patient>()), &decoded, &failure));
    QTRY_COMPARE(wire.server.received().size(), size_t(1));
    for (int i = 0; i < 10; ++i) await(wire.send(request()));
    QVERIFY(!decoded);
    patience.release();
    QTRY_VERIFY(decoded);
    QVERIFY(decoded->thread != QThread::currentThreadId());

    // A client that goes waits for what is being decoded, and delivers nothing of it afterwards.
    wire.server.reply(200, QByteArray(1 << 20, ' '));
    decoded.reset();
    scope.start(keepOutcome(wire.client->send(reading<Patient>()), &decoded, &failure));
    QTRY_COMPARE(wire.server.received().size(), size_t(12));
    scope.cancel();
    patience.release();
    wire.client.reset();
    QVERIFY(!decoded);
  }

  void aDribbleDoesNotTakeAProcessor() {
    Wire wire;
    const QByteArray head = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
    wire.server.reply(
        {.bytes = head, .hastily = QByteArray("1\r\n \r\n").repeated(30'000) + "d\r\n{\"text\":\"x\"}\r\n0\r\n\r\n"});
    const auto before = networkTime();
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(await(wire.send(request())).text, u"x"_s);
    const auto whole = std::chrono::nanoseconds(timer.nsecsElapsed()), used = networkTime() - before;
    QVERIFY(used.count() > 0);
    // One byte at a time took all of it; how much of it is left to a busy machine's whim.
    QVERIFY2(used < whole / 2, qPrintable(u"%1 of %2 ms"_s.arg(used / 1ms).arg(whole / 1ms)));
  }

  void theServicesClockIsRead_data() {
    QTest::addColumn<QByteArray>("date");
    QTest::addColumn<QDateTime>("at");
    QTest::newRow("told") << "Sun, 22 Nov 2026 02:31:49 GMT"_ba << QDateTime({2026, 11, 22}, {2, 31, 49}, Qt::UTC);
    for (const char* none : {"", "soon", "2026-11-22T02:31:49Z", "Sun, 22 Nov 2026 02:31:49 +0100"})
      QTest::newRow(none) << QByteArray(none) << QDateTime();
  }
  void theServicesClockIsRead() {
    QFETCH(QByteArray, date);
    Wire wire;
    wire.server.reply(200, R"({"text":"x"})", "Date: " + date + "\r\n");
    const auto answer = await(wire.client->send(reading<Dated<SpintaxOut>>()));
    QCOMPARE(answer.value.text, u"x"_s);
    QTEST(answer.at.value_or(QDateTime()), "at");
  }

  void nothingGoesOutInPlain() {
    // A proxy would read all of it.
    WireServer proxy;
    APIClient client({QUrl(u"http://nowhere.test"_s)}, identity, patient);
    client.useProxy(proxy.url().toEncoded());
    Wire here;
    here.client->useProxy(proxy.url().toEncoded());
    std::optional<APIError> error;
    try {
      await(client.send(request(), u"w"_s, u"orv_sess_1"_s));
    } catch (const APIError& thrown) {
      error = thrown;
    }
    QVERIFY(error && error->is(Kind::unreachable) && !mayHaveActed(*error));
    qputenv("http_proxy", proxy.url().toEncoded());
    await(here.send(request()));
    qunsetenv("http_proxy");
    QCOMPARE(proxy.connections(), 0);
    QCOMPARE(here.server.connections(), 1);
  }

  /// The machine's own configuration allows more here: see main().
  void speaksNoOldTLS() {
    Wire wire(patient, u"https"_s);
    wire.server.reply({.then = Then::close, .read = false});
    QCOMPARE(wire.failureOf(request()), Kind::unreachable);
    const QByteArrayList versions = versionsOffered(wire.server.last().bytes);
    QVERIFY2(versions.contains("0303"), versions.join(' '));
    for (const char* old : {"0300", "0301", "0302"}) QVERIFY2(!versions.contains(old), versions.join(' '));
  }
};

int main(int argc, char** argv) {
  QTemporaryFile configuration;
  if (!configuration.open()) return 1;
  configuration.write(
      "openssl_conf = all\n[all]\nssl_conf = ssl\n[ssl]\nsystem_default = old\n"
      "[old]\nMinProtocol = TLSv1\nCipherString = DEFAULT@SECLEVEL=0\n");
  configuration.close();
  qputenv("OPENSSL_CONF", configuration.fileName().toUtf8());
  QCoreApplication application(argc, argv);
  HostileTest test;
  return QTest::qExec(&test, argc, argv);
}
#include "hostile_test.moc"
