#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>

#include "kit/api/JSONCoding.h"
#include "kit/session/KeptPlaces.h"
#include "kit/session/SessionStore.h"
#include "kit/session/SessionTransport.h"
#include "kit/session/authRequests.h"
#include "tests/support/AppFixture.h"
#include "tests/support/await.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto account = u"session"_s;

StoredSession session() {
  StoredSession result;
  result.token = u"orv_sess_canary"_s;
  result.issuedAt = QDateTime({2026, 11, 21}, {9, 30}, Qt::UTC);
  result.expiresAt = QDateTime({2026, 12, 21}, {9, 30}, Qt::UTC);
  result.user = {u"u1"_s, u"maren@northgate.example.com"_s, u"Maren"_s, std::nullopt, std::nullopt};
  result.workspaces = {{u"w1"_s, u"northgate"_s, u"Northgate"_s, Role(u"owner"_s), std::nullopt, u"pro"_s},
                       {u"w2"_s, u"other"_s, u"Other"_s, Role(u"auditor"_s), std::nullopt, std::nullopt}};
  result.currentSlug = u"northgate"_s;
  return result;
}

std::optional<KeychainError> failureOf(Task<void> task) {
  try {
    await(std::move(task));
  } catch (const KeychainError& error) {
    return error;
  }
  return std::nullopt;
}

Task<void> dropValue(Task<std::optional<StoredSession>> task) { co_await std::move(task); }

/// Accepts everything and keeps nothing.
class ForgetfulKeychain final : public Keychain {
 public:
  ForgetfulKeychain() : Keychain(u"com.orvella.test"_s) {}
  Task<std::optional<QByteArray>> read(QString) override { co_return std::nullopt; }
  Task<void> write(QString, QByteArray) override { co_return; }
  Task<void> remove(QString) override { co_return; }
};

}  // namespace

class SessionTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void isKeptWhole() {
    MemoryKeychain keychain;
    SessionStore store(keychain);
    QVERIFY(!await(store.load()));

    StoredSession first = session();
    first.currentSlug.reset();
    await(store.save(first));
    await(store.save(session()));
    QCOMPARE(keychain.items.size(), size_t(1));
    QVERIFY(await(store.load()) == session());

    const auto json = QJsonDocument::fromJson(keychain.items[account]).object();
    QCOMPARE(json.value("expiresAt"_L1).toString(), u"2026-12-21T09:30:00.000Z"_s);
    QCOMPARE(json.value("workspaces"_L1).toArray().size(), 2);

    await(store.clear(session().expiresAt));
    QVERIFY(keychain.items.empty());
    await(store.clear(session().expiresAt));
  }

  void everyServiceHasItsOwnPlaces() {
    const auto of = [](const QString& address) {
      return KeptPlaces::of(APIEnvironment::resolve({address}), u"com.orvella.test"_s, u"/state"_s);
    };
    QCOMPARE(of({}).keychainService, u"com.orvella.test"_s);
    QCOMPARE(of({}).stateFolder, u"/state"_s);
    QVERIFY(of(u"https://app.orvella.example:443/x"_s) == of({}));
    QCOMPARE(of(u"http://127.0.0.1:8787/x"_s).keychainService, u"com.orvella.test http://127.0.0.1:8787"_s);
    QCOMPARE(of(u"http://127.0.0.1:8787"_s).stateFolder, u"/state/http%3A%2F%2F127.0.0.1%3A8787"_s);
    for (const auto& other :
         {u"http://app.orvella.example"_s, u"https://app.orvella.example:444"_s, u"https://b.example"_s}) {
      QVERIFY(of(other).keychainService != of({}).keychainService);
      QVERIFY(of(other).stateFolder != of({}).stateFolder);
    }
  }

  void whatIsNoSessionIsCorrupted_data() {
    QTest::addColumn<QByteArray>("data");
    const QByteArray whole = encodeJSON(session());
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut short") << whole.chopped(1);
    QTest::newRow("no token") << QByteArray(whole).replace("\"token\"", "\"other\"");
    QTest::newRow("no instant") << QByteArray(whole).replace("2026-12-21T09:30:00.000Z", "next year");
    QTest::newRow("not an object") << QByteArray("[]");
  }
  void whatIsNoSessionIsCorrupted() {
    QFETCH(QByteArray, data);
    MemoryKeychain keychain;
    keychain.items[account] = data;
    const auto failure = failureOf(dropValue(SessionStore(keychain).load()));
    QVERIFY(failure && *failure == KeychainError::corrupted());
  }

  void failuresArriveUnchanged() {
    MemoryKeychain keychain;
    keychain.failure = KeychainError::status(-25308, KeychainError::Reason::locked);
    SessionStore store(keychain);
    for (const auto& failure : {failureOf(dropValue(store.load())), failureOf(store.save(session())),
                                failureOf(store.clear(session().expiresAt))}) {
      QVERIFY(failure && *failure == *keychain.failure);
      QCOMPARE(failure->reason(), KeychainError::Reason::locked);
    }
  }

  void whatIsNotKeptIsNotSaved() {
    ForgetfulKeychain keychain;
    QVERIFY(failureOf(SessionStore(keychain).save(session())));
  }

  void whatWasReplacedOrEndedIsNeverOpenedAgain_data() {
    QTest::addColumn<bool>("signsOut");
    QTest::addColumn<bool>("letsGo");
    QTest::newRow("another person, whose session is not kept") << false << true;
    QTest::newRow("another person, and the keyring keeps the first one's") << false << false;
    QTest::newRow("signed out, and the keyring keeps the session") << true << false;
  }
  void whatWasReplacedOrEndedIsNeverOpenedAgain() {
    QFETCH(bool, signsOut);
    QFETCH(bool, letsGo);
    QTemporaryDir state;
    MemoryKeychain keychain;
    await(SessionStore(keychain, state.path()).save(session()));
    StoredSession second = session();
    second.token = u"orv_sess_second"_s;
    second.issuedAt = second.issuedAt.addSecs(60);

    SessionStore store(keychain, state.path());
    QVERIFY(await(store.load()));
    using Reason = KeychainError::Reason;
    (letsGo ? keychain.writeFailure : keychain.failure) =
        KeychainError::status(-1, letsGo ? Reason::other : Reason::locked);
    QVERIFY(failureOf(signsOut ? store.clear(second.issuedAt) : store.save(second)));
    keychain.failure.reset();
    keychain.writeFailure.reset();

    const auto files = QDir(state.path()).entryInfoList(QDir::Files);
    QCOMPARE(files.size(), letsGo ? 0 : 1);
    for (const QFileInfo& file : files) {
      QFile opened(file.filePath());
      QVERIFY(opened.open(QIODevice::ReadOnly));
      QVERIFY(!opened.readAll().contains("canary"));
      QCOMPARE(file.permissions() & ~(QFile::ReadUser | QFile::WriteUser), QFile::ReadOwner | QFile::WriteOwner);
    }
    QVERIFY(!await(SessionStore(keychain, state.path()).load()));
    QVERIFY2(keychain.items.empty(), "and it goes as soon as the keyring lets it");

    await(SessionStore(keychain, state.path()).save(second));
    QVERIFY(await(SessionStore(keychain, state.path()).load()) == second);
  }

  void anOlderStateOfTheSameSignInStays() {
    QTemporaryDir state;
    MemoryKeychain keychain;
    await(SessionStore(keychain, state.path()).save(session()));
    SessionStore store(keychain, state.path());
    await(store.load());
    StoredSession changed = session();
    changed.currentSlug = u"other"_s;
    keychain.writeFailure = KeychainError::status(-1, KeychainError::Reason::locked);
    QVERIFY(failureOf(store.save(changed)));
    QVERIFY(await(SessionStore(keychain, state.path()).load()) == session());
  }

  void onlyTheOpenSessionIsEverUsed() {
    const auto me = u"GET /api/v1/auth/me"_s;
    FakeTransport api;
    ManualClock clock;
    SessionTransport transport(api, clock);
    const auto refused = [&](const QString& token) {
      try {
        await(transport.send(Requests::me(), {}, token));
      } catch (const APIError& error) {
        return error.is(APIError::Kind::unauthorized) && !mayHaveActed(error);
      }
      return false;
    };
    QVERIFY(refused(session().token));
    StoredSession open = session();
    open.expiresAt = clock.now().addSecs(60);
    transport.open(open);
    QVERIFY(refused(u"orv_sess_earlier"_s));
    api.expect(me);
    TaskScope scope;
    std::optional<MeResponse> answer;
    std::exception_ptr failure;
    scope.start(keepOutcome(transport.send(Requests::me(), {}, open.token), &answer, &failure));
    api.answer(me, R"({"workspaces":[]})");
    QVERIFY(answer);
    clock.advance(std::chrono::seconds(60));
    QVERIFY2(refused(open.token), "expired at this very instant");
    transport.close();
    QVERIFY(refused(open.token));
  }

  void expiresAtItsInstant() {
    const StoredSession stored = session();
    QVERIFY(!stored.isExpired(stored.expiresAt.addMSecs(-1)));
    QVERIFY(stored.isExpired(stored.expiresAt));
  }

  void logsShowNoToken() {
    QString shown;
    QDebug(&shown) << session();
    QCOMPARE(shown.trimmed(), u"StoredSession(user: maren@northgate.example.com, workspaces: 2, token: [redacted])"_s);
  }
};

QTEST_GUILESS_MAIN(SessionTest)
#include "session_test.moc"
