#include <QTemporaryDir>
#include <QTest>

#include "app/shell/AppModel.h"
#include "tests/app/shell/shellPlatform.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto me = u"GET /api/v1/auth/me"_s;
const auto methods = u"GET /api/v1/auth/methods"_s;
const auto logOut = u"POST /api/v1/auth/logout"_s;
const QByteArray offered = R"({"google":false,"dev":false})";

/// The fixture's clock says 2026-11-21 12:00.
StoredSession sessionUntil(const QDateTime& expiry) {
  StoredSession stored;
  stored.token = u"orv_sess_canary"_s;
  stored.issuedAt = QDateTime({2026, 11, 1}, {0, 0}, Qt::UTC);
  stored.expiresAt = expiry;
  stored.user = {u"u1"_s, u"ada@b.c"_s, u"Ada"_s, {}, {}};
  stored.workspaces = {{u"w1"_s, u"a"_s, u"A"_s, {u"owner"_s}, {}, {}}};
  return stored;
}

}  // namespace

/// How a sign-in comes to its end, and what is kept of it then.
class SessionEndTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<AppModel> app;

  void start(const QDateTime& expiry) {
    f->keychain.items[u"session"_s] = encodeJSON(sessionUntil(expiry));
    app = std::make_unique<AppModel>(platformOf(*f));
    f->api.expect(f->clock.now() < expiry ? me : methods);
    app->start();
  }
  void answerMethods(const QByteArray& date) {
    QList<QPair<QByteArray, QByteArray>> headers;
    if (!date.isEmpty()) headers.append({"Date", date});
    f->api.answer(methods, offered, 200, headers);
  }
  bool isKept() const { return !f->keychain.items.empty(); }

 private Q_SLOTS:
  void init() { f = std::make_unique<AppFixture>(); }
  void cleanup() {
    app.reset();
    f.reset();
  }

  void whatTheClockSaysIsOverGoesWhenTheServiceSaysSoToo_data() {
    QTest::addColumn<QByteArray>("date");
    QTest::addColumn<bool>("kept");
    QTest::addColumn<bool>("clockIsWrong");
    QTest::newRow("past it") << "Sat, 21 Nov 2026 11:00:01 GMT"_ba << false << false;
    QTest::newRow("at that instant") << "Sat, 21 Nov 2026 11:00:00 GMT"_ba << false << false;
    QTest::newRow("before it") << "Sat, 21 Nov 2026 10:59:59 GMT"_ba << true << true;
    QTest::newRow("the service does not say") << QByteArray() << true << false;
    QTest::newRow("nonsense") << "tomorrow"_ba << true << false;
  }
  void whatTheClockSaysIsOverGoesWhenTheServiceSaysSoToo() {
    QFETCH(QByteArray, date);
    start(QDateTime({2026, 11, 21}, {11, 0}, Qt::UTC));
    QCOMPARE(app->phase(), AppModel::Phase::signedOut);
    QVERIFY2(isKept(), "nobody but this computer's clock has said anything yet");
    QVERIFY2(f->api.last().token.isEmpty(), "the session is not used to ask");
    answerMethods(date);
    QTEST(isKept(), "kept");
    QTEST(app->signIn()->notice().contains(u"clock is wrong"_s), "clockIsWrong");
  }

  void aSessionThatRunsOutInUseIsDoubtedAlike_data() {
    QTest::addColumn<QByteArray>("date");
    QTest::addColumn<bool>("kept");
    QTest::newRow("over") << "Mon, 30 Nov 2026 12:00:00 GMT"_ba << false;
    QTest::newRow("not over") << "Sat, 21 Nov 2026 12:00:00 GMT"_ba << true;
  }
  void aSessionThatRunsOutInUseIsDoubtedAlike() {
    QFETCH(QByteArray, date);
    start(QDateTime({2026, 11, 25}, {0, 0}, Qt::UTC));
    f->api.answer(me, R"({"user":{"id":"u1","email":"ada@b.c","name":"Ada"},"workspaces":[{"id":"w1","slug":"a",)"
                      R"("name":"A","role":"owner"}]})");
    QCOMPARE(app->phase(), AppModel::Phase::signedIn);
    // Noticed by itself, at the instant.
    f->clock.advance(std::chrono::hours(24 * 3 + 12) - 1ms);
    settle();
    QCOMPARE(app->phase(), AppModel::Phase::signedIn);
    f->api.expect(methods);
    f->clock.advance(1ms);
    settle();
    QCOMPARE(app->phase(), AppModel::Phase::signedOut);
    QVERIFY(isKept());
    answerMethods(date);
    QTEST(isKept(), "kept");
  }

  void aKeyringThatSpeaksLateIsDoubtedAlike() {
    f->keychain.items[u"session"_s] = encodeJSON(sessionUntil(QDateTime({2026, 11, 21}, {11, 0}, Qt::UTC)));
    f->keychain.gate.emplace();
    app = std::make_unique<AppModel>(platformOf(*f));
    app->start();
    f->api.expect(methods);
    f->clock.advance(3s);
    answerMethods("Sat, 21 Nov 2026 12:00:00 GMT");
    f->api.expect(methods);
    f->keychain.gate->give(true);
    f->keychain.gate.reset();
    settle();
    answerMethods("Sat, 21 Nov 2026 12:00:03 GMT");
    QVERIFY2(!isKept(), "the service was asked once more");
  }

  void aNewSignInOutlivesTheDoubtAboutTheOld() {
    start(QDateTime({2026, 11, 21}, {11, 0}, Qt::UTC));
    auto fresh = sessionUntil(QDateTime({2026, 12, 21}, {11, 0}, Qt::UTC));
    fresh.token = u"orv_sess_new"_s;
    app->signIn()->onSignedIn(fresh);
    answerMethods("Sat, 21 Nov 2026 12:00:00 GMT");
    QVERIFY(f->keychain.items[u"session"_s].contains("orv_sess_new"));
  }

  void aSignOutThatTheServiceDidNotHearIsSaid_data() {
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("said");
    QTest::newRow("heard") << 204 << false;
    QTest::newRow("over already") << 401 << false;
    QTest::newRow("fault") << 503 << true;
    QTest::newRow("offline") << 0 << true;
  }
  void aSignOutThatTheServiceDidNotHearIsSaid() {
    QFETCH(int, status);
    start(QDateTime({2026, 12, 1}, {0, 0}, Qt::UTC));
    f->api.expect(logOut);
    f->api.expect(methods);
    app->signOut();
    QCOMPARE(app->phase(), AppModel::Phase::signedOut);
    QVERIFY(!isKept());
    if (status == 0)
      f->api.fail(logOut, TransportFailure::offline);
    else
      f->api.answer(logOut, {}, status);
    answerMethods({});
    QTEST(app->signIn()->notice().contains(u"didn’t hear of it"_s), "said");
  }

  void thePersonSeesWhichServiceItIs_data() {
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("service");
    QTest::addColumn<bool>("refused");
    QTest::newRow("production") << u"https://app.orvella.example"_s << QString() << false;
    QTest::newRow("another") << u"https://b.example:8443/x"_s << u"b.example:8443"_s << false;
    QTest::newRow("this machine") << u"http://127.0.0.1:8787"_s << u"127.0.0.1:8787"_s << false;
    QTest::newRow("another, in plain") << u"http://b.example"_s << u"b.example"_s << true;
    QTest::newRow("a letter of another script") << u"https://app.\u043ervella.example"_s << QString() << false;
  }
  void thePersonSeesWhichServiceItIs() {
    QFETCH(QString, address);
    QFETCH(QString, service);
    QFETCH(bool, refused);
    const SignInModel model(f->api, f->clock, f->browser, QUrl(address), Device{});
    if (address.contains(QChar(0x43e)))
      QVERIFY2(model.service().startsWith(u"app.xn--"_s), qPrintable(model.service()));
    else
      QCOMPARE(model.service(), service);
    QCOMPARE(model.serviceTrouble().contains(u"isn’t encrypted"_s), refused);
  }
};

QTEST_GUILESS_MAIN(SessionEndTest)
#include "sessionend_test.moc"
