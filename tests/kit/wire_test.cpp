#include <QLoggingCategory>
#include <QTest>
#include <algorithm>
#include <mutex>

#include "kit/api/APIClient.h"
#include "kit/models/campaigns/sequence.h"
#include "tests/support/WireServer.h"
#include "tests/support/await.h"

using namespace orv;
using namespace orv::test;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace {

const ClientIdentity identity{u"1.4.2"_s, u"318"_s, u"14.5"_s};

/// A service and a client of it.
struct Wire {
  WireServer server;
  APIClient client{{server.url()}, identity, {.idle = 10s, .whole = 20s}};
};

template <class R>
Request<R> request(HTTPMethod method, const QString& path) {
  Request<R> result;
  result.method = method;
  result.path = path;
  return result;
}

template <class R = Empty>
std::optional<APIError> errorOf(Task<R> task) {
  try {
    await(std::move(task));
  } catch (const APIError& error) {
    return error;
  }
  return std::nullopt;
}

/// How one call differs from a plain GET of "/campaigns" without a credential.
struct Case {
  APIRequest request{.path = u"/campaigns"_s};
  QString slug = u"northgate"_s;
  QString token;
  std::optional<QList<QPair<QString, QString>>> form;
  /// Of the base address, behind the port.
  QString base;

  QByteArray line = "GET /api/v1/w/northgate/campaigns HTTP/1.1";
  /// Besides the fixed ones.
  QList<QByteArray> headers;
  QByteArray body;
};

Case calling(HTTPMethod method, std::optional<QByteArray> body = {}) {
  Case result;
  result.request.method = method;
  result.line.replace("GET", token(method));
  result.body = body.value_or(method == HTTPMethod::get || method == HTTPMethod::del ? "" : "{}");
  result.request.body = std::move(body);
  if (!result.body.isEmpty())
    result.headers = {"Content-Length: " + QByteArray::number(result.body.size()), "Content-Type: application/json"};
  return result;
}

Case at(const QString& path, const QByteArray& line, const QList<QueryItem>& query = {}) {
  Case result;
  result.request.path = path;
  result.request.query = query;
  result.line = "GET " + line + " HTTP/1.1";
  return result;
}

Case withToken(const QString& token, const QByteArray& header) {
  Case result;
  result.token = token;
  result.headers = {header};
  return result;
}

Case withForm() {
  Case result = calling(HTTPMethod::post);
  result.request.path = u"/api/v1/auth/form"_s;
  result.request.body = "ignored"_ba;
  result.form = {{u"b"_s, u"1 & 2"_s}, {u"a"_s, u"x=y+z%é"_s}, {u"c"_s, u""_s}};
  result.line = "POST /api/v1/auth/form HTTP/1.1";
  result.body = "b=1%20%26%202&a=x%3Dy+z%25%C3%A9&c=";
  result.headers = {"Content-Length: " + QByteArray::number(result.body.size()),
                    "Content-Type: application/x-www-form-urlencoded"};
  return result;
}

Case with(Case result, const std::function<void(Case&)>& change) {
  change(result);
  return result;
}

QList<QPair<const char*, Case>> cases() {
  const auto root = u"/api/v1/w/northgate"_s;
  return {
      {"plain", {}},
      {"the root itself", at(u"/"_s, "/api/v1/w/northgate/")},
      {"no leading slash", at(u"jobs/1"_s, "/api/v1/w/northgate/jobs/1")},
      {"items in their order",
       at(u"/x"_s, "/api/v1/w/northgate/x?z=1&a=2&z=3&flag&none=",
          {{u"z"_s, u"1"_s}, {u"a"_s, u"2"_s}, {u"z"_s, u"3"_s}, {u"flag"_s, {}}, {u"none"_s, u""_s}})},
      {"items encoded",
       at(u"/x"_s, "/api/v1/w/northgate/x?q=a%20b%26c%3Dd+e%2541/%C3%A9?%23%22", {{u"q"_s, u"a b&c=d+e%41/é?#\""_s}})},
      {"path encoded once",
       at(u"/leads/"_s + pathSegment(u"a/b c%2Fd%é"_s), "/api/v1/w/northgate/leads/a%2Fb%20c%2Fd%25%C3%A9")},
      {"raw path", at(u"/a b?c#d/é%20"_s, "/api/v1/w/northgate/a%20b%3Fc%23d/%C3%A9%20")},
      {"dots stay where they are", at(u"/campaigns/../x"_s, "/api/v1/w/northgate/campaigns/../x")},
      {"workspace encoded", with(at(u"/x"_s, "/api/v1/w/a%2Fb%20c/x"), [](Case& c) { c.slug = u"a/b c"_s; })},
      {"account level", at(u"/api/v1/auth/me"_s, "/api/v1/auth/me")},
      {"base with a slash", with({}, [](Case& c) { c.base = u"/"_s; })},
      {"base with more", with({}, [](Case& c) { c.base = u"/?a=b#c"_s; })},
      {"post", calling(HTTPMethod::post)},
      {"put", calling(HTTPMethod::put)},
      {"patch", calling(HTTPMethod::patch)},
      {"delete", calling(HTTPMethod::del)},
      {"post with a body", calling(HTTPMethod::post, R"({"name":"é","x":[1]})"_ba)},
      {"delete with a body", calling(HTTPMethod::del, R"({"confirm":"DELETE"})"_ba)},
      {"large body", calling(HTTPMethod::put, QByteArray(300000, 'x'))},
      {"session token", withToken(u"orv_sess_abc"_s, "Authorization: Bearer orv_sess_abc")},
      {"key", withToken(u"orv_key_abc"_s, "Authorization: Bearer orv_key_abc")},
      {"browser session", withToken(u"abc.def"_s, "Cookie: orv_session=abc.def")},
      {"almost a session token", withToken(u"Xorv_sess_abc"_s, "Cookie: orv_session=Xorv_sess_abc")},
      {"no second line", withToken(u"orv_key_a\r\nX-Evil: 1"_s, "Authorization: Bearer orv_key_aX-Evil: 1")},
      {"version",
       with(calling(HTTPMethod::patch), [](Case& c) { c.request.ifMatch = 7, c.headers += "If-Match: \"7\""; })},
      {"version 0",
       with(calling(HTTPMethod::patch), [](Case& c) { c.request.ifMatch = 0, c.headers += "If-Match: \"0\""; })},
      {"key of its own",
       with(calling(HTTPMethod::post),
            [](Case& c) { c.request.idempotencyKey = u"k-1"_s, c.headers += "Idempotency-Key: k-1"; })},
      {"form", withForm()},
      {"form to no workspace", with(withForm(),
                                    [](Case& c) {
                                      c.request.path = u"oauth/token"_s;
                                      c.line = "POST /oauth/token HTTP/1.1";
                                    })},
  };
}

/// What an answer became, in words.
QString shown(const APIError& error) {
  QString text = QString::fromLatin1(error.what());
  if (error.is(APIError::Kind::server)) text += u' ' + QString::number(error.status());
  if (error.retryAfter()) text += u' ' + QString::number(*error.retryAfter());
  if (error.is(APIError::Kind::problem))
    text += u": "_s + error.message() + u" ["_s + error.code().value_or(u"-"_s) + u"] "_s +
            error.requestId().value_or(u"-"_s);
  return text;
}

/// Everything logged while it lives, from whatever thread.
class LogKeeper {
 public:
  LogKeeper() {
    QLoggingCategory::setFilterRules(u"orvella.*=true"_s);
    s_kept.clear();
    m_previous = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
      const std::lock_guard lock(s_mutex);
      s_kept += text + u'\n';
    });
  }
  LogKeeper(const LogKeeper&) = delete;
  LogKeeper& operator=(const LogKeeper&) = delete;
  ~LogKeeper() {
    qInstallMessageHandler(m_previous);
    QLoggingCategory::setFilterRules(u"orvella.api.info=false"_s);
  }
  QString text() const {
    const std::lock_guard lock(s_mutex);
    return s_kept;
  }

 private:
  static inline std::mutex s_mutex;
  static inline QString s_kept;
  QtMessageHandler m_previous;
};

}  // namespace

class WireTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { QLoggingCategory::setFilterRules(u"orvella.api.info=false"_s); }

  void bytes_data() {
    QTest::addColumn<int>("number");
    int number = 0;
    for (const auto& [name, each] : cases()) QTest::newRow(name) << number++;
  }
  void bytes() {
    QFETCH(int, number);
    const Case expected = cases().at(number).second;
    WireServer server;
    const QByteArray place = "127.0.0.1:" + QByteArray::number(server.port());
    APIClient client({QUrl(server.url().toString() + expected.base)}, identity, {});
    Request<Empty> sent;
    static_cast<APIRequest&>(sent) = expected.request;
    await(expected.form ? client.sendForm(sent, *expected.form, expected.token)
                        : client.send(sent, expected.slug, expected.token));

    const auto received = server.last();
    QCOMPARE(received.line(), expected.line);
    QVERIFY(received.bytes.contains("\r\nHost: " + place + "\r\n"));
    QList<QByteArray> headers =
        expected.headers + QList<QByteArray>{"Accept: application/json, application/problem+json",
                                             "Origin: http://" + place, "X-Requested-With: orvella",
                                             "X-Orvella-Client: macos/1.4.2 (318; macOS 14.5)",
                                             "User-Agent: Orvella-Mac/1.4.2 (macOS 14.5)"};
    std::ranges::sort(headers);
    QCOMPARE(received.headers(), headers);
    QCOMPARE(received.body(), expected.body);
    QCOMPARE(server.received().size(), size_t(1));
  }

  void aBoundTransportAddsWorkspaceAndCredential() {
    Wire wire;
    WorkspaceTransport bound(wire.client, u"northgate"_s, u"orv_sess_a"_s);
    await(bound.send(request<Empty>(HTTPMethod::get, u"/x"_s), u"other"_s, u"orv_sess_b"_s));
    QCOMPARE(wire.server.last().line(), "GET /api/v1/w/northgate/x HTTP/1.1"_ba);
    QVERIFY(wire.server.last().headers().contains("Authorization: Bearer orv_sess_a"));
    await(bound.send(request<Empty>(HTTPMethod::get, u"/api/v1/auth/me"_s)));
    QCOMPARE(wire.server.last().line(), "GET /api/v1/auth/me HTTP/1.1"_ba);
  }

  void refusals_data() {
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const QByteArray& answer, const QString& error) {
      QTest::newRow(name) << answer << error;
    };
    const auto answer = &WireServer::answer;
    const QByteArray problem =
        R"({"title":"Invalid input","detail":"Name is required.","code":"bad","requestId":"own"})";
    const auto shownProblem = u"problem: Invalid input: Name is required. [bad] "_s;
    row("problem", answer(400, problem, {}), shownProblem + u"own"_s);
    row("the header's id wins", answer(400, problem, "X-REQUEST-ID: head\r\n"), shownProblem + u"head"_s);
    row("an early answer's id does not",
        "HTTP/1.1 103 Early Hints\r\nx-request-id: early\r\n\r\n" + answer(404, problem, {}), shownProblem + u"own"_s);
    row("problem of a redirect", answer(307, problem, "Location: /elsewhere\r\n"), shownProblem + u"own"_s);
    row("only a code", answer(409, R"({"code":"taken"})", {}),
        u"problem: Something went wrong. Please try again. [taken] -"_s);
    row("only a title", answer(404, R"({"title":"Not found","status":404,"x":{}})", {}), u"problem: Not found [-] -"_s);
    row("empty title", answer(400, R"({"title":"","detail":"No."})", {}), u"problem: No. [-] -"_s);
    row("only fields", answer(422, R"({"errors":[{"path":"name","message":"No."}]})", {}), u"server 422"_s);
    row("html", answer(502, "<html>Bad gateway</html>", {}), u"server 502"_s);
    row("nothing", answer(404, "", {}), u"server 404"_s);
    row("half a problem", answer(500, problem.chopped(1), {}), u"server 500"_s);
    row("a wrong type in it", answer(400, R"({"title":"x","status":"400"})", {}), u"server 400"_s);
    row("redirect", answer(302, "", "Location: /elsewhere\r\n"), u"server 302"_s);
    row("not modified", "HTTP/1.1 304 Not Modified\r\n\r\n", u"server 304"_s);
    row("unauthorized", answer(401, problem, {}), u"unauthorized"_s);
    row("limited", answer(429, problem, "Retry-After: 1.5\r\n"), u"rateLimited 1.5"_s);
    row("limited, no time", answer(429, "", {}), u"rateLimited"_s);
    for (const char* time : {"soon", "", "Wed, 21 Oct 2026 07:28:00 GMT", "nan", "inf", "1,5"})
      row(time, answer(429, "", "Retry-After: "_ba + time + "\r\n"), u"rateLimited"_s);
    row("ok, empty", answer(200, "", {}), u"invalidResponse"_s);
    row("no content", "HTTP/1.1 204 No Content\r\n\r\n", u"invalidResponse"_s);
    row("ok, html", answer(200, "<html></html>", {}), u"invalidResponse"_s);
    row("ok, half", answer(200, R"({"text":"x")", {}), u"invalidResponse"_s);
    row("ok, another record", answer(200, R"({"id":"x"})", {}), u"invalidResponse"_s);
    row("ok, wrong encoding", answer(200, R"({"text":"x"})", "Content-Encoding: gzip\r\n"), u"invalidResponse"_s);
    row("not HTTP", "SSH-2.0-OpenSSH_9.2p1\r\n", u"invalidResponse"_s);
    row("not quite HTTP", "HTTP/1.1 OK\r\n\r\n", u"invalidResponse"_s);
  }
  void refusals() {
    QFETCH(QByteArray, answer);
    QFETCH(QString, error);
    Wire wire;
    int sessionsEnded = 0;
    wire.client.onUnauthorized([&sessionsEnded] { ++sessionsEnded; });
    wire.server.reply({.bytes = answer, .then = WireServer::Reply::Then::close});
    const auto failure = errorOf(wire.client.send(request<SpintaxOut>(HTTPMethod::post, u"/campaigns/spintax"_s)));
    QVERIFY(failure);
    QCOMPARE(shown(*failure), error);
    QCOMPARE(sessionsEnded, error == "unauthorized"_L1 ? 1 : 0);
    QCOMPARE(wire.server.received().size(), size_t(1));
  }

  void answersArriveWhole() {
    Wire wire;
    const auto get = [&wire](const QByteArray& answer) {
      wire.server.reply({.bytes = answer});
      return await(wire.client.send(request<SpintaxOut>(HTTPMethod::get, u"/x"_s))).text;
    };
    QCOMPARE(get(WireServer::answer(201, R"({"text":"é"})")), u"é"_s);
    QCOMPARE(get("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\n{\"tex\r\n7\r\nt\":\"x\"}\r\n0\r\n\r\n"),
             u"x"_s);
    const QByteArray zipped = qCompress(QByteArray(R"({"text":"zipped"})")).sliced(4);
    QCOMPARE(get(WireServer::answer(200, zipped, "Content-Encoding: deflate\r\n")), u"zipped"_s);
    const QString large(8 << 20, u'x');
    QCOMPARE(get(WireServer::answer(200, "{\"text\":\"" + large.toUtf8() + "\"}")), large);
  }

  void filesAndNothingTakeAnyBody() {
    Wire wire;
    wire.server.reply(200, "a,b\n\x00\xff"_ba, "Content-Type: text/csv; charset=utf-8\r\n");
    const auto file = await(wire.client.send(request<RawData>(HTTPMethod::get, u"/x"_s)));
    QCOMPARE(file.data, "a,b\n\x00\xff"_ba);
    QCOMPARE(file.contentType, u"text/csv; charset=utf-8"_s);
    wire.server.reply({.bytes = "HTTP/1.1 204 No Content\r\n\r\n"});
    const auto none = await(wire.client.send(request<RawData>(HTTPMethod::get, u"/x"_s)));
    QVERIFY(none.data.isEmpty() && !none.contentType);
    wire.server.reply(200, "<html>");
    await(wire.client.send(request<Empty>(HTTPMethod::del, u"/x"_s)));
  }

  void logsNameTheRequestAndNothingOfIt() {
    Wire wire;
    LogKeeper log;
    auto call = request<SpintaxOut>(HTTPMethod::post, u"/campaigns/spintax"_s);
    call.query = {{u"q"_s, u"canary"_s}};
    call.body = R"({"password":"canary"})"_ba;
    for (const QByteArray& body : {R"({"text":"canary"})"_ba, R"({"text":["canary"]})"_ba, R"({"canary":1})"_ba})
      for (const int status : {200, 401, 500}) {
        wire.server.reply(status, body, "Set-Cookie: orv_session=canary\r\nx-request-id: r-1\r\n");
        errorOf(wire.client.send(call, u"northgate"_s, u"orv_sess_canary"_s));
      }
    QVERIFY2(log.text().contains("POST /campaigns/spintax: 401 in "_L1), qPrintable(log.text()));
    QVERIFY(log.text().contains("request r-1"_L1));
    QVERIFY2(!log.text().contains("canary"_L1), qPrintable(log.text()));
  }

  void aConflictIsARefusedVersion_data() {
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("versioned");
    QTest::addColumn<bool>("conflict");
    QTest::newRow("409 with a version") << 409 << true << true;
    QTest::newRow("412 with a version") << 412 << true << true;
    QTest::newRow("409 without one") << 409 << false << false;
    QTest::newRow("422 with a version") << 422 << true << false;
  }
  void aConflictIsARefusedVersion() {
    QFETCH(int, status);
    QFETCH(bool, versioned);
    Wire wire;
    wire.server.reply(status, R"({"title":"Changed"})");
    auto changing = request<Empty>(HTTPMethod::patch, u"/x"_s);
    if (versioned) changing.ifMatch = 3;
    const auto failure = errorOf(wire.client.send(changing));
    QVERIFY(failure);
    QTEST(isVersionConflict(*failure), "conflict");
    QVERIFY(*failure == APIError::problem({.title = u"Changed"_s}, {}));
  }
};

QTEST_GUILESS_MAIN(WireTest)
#include "wire_test.moc"
