#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "app/analytics/AnalyticsStore.h"
#include "app/analytics/DashboardStore.h"
#include "app/base/Undo.h"
#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/CampaignsStore.h"
#include "app/settings/SettingsStore.h"
#include "app/shell/AppModel.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "tests/app/shell/shellPlatform.h"
#include "tests/support/AppFixture.h"
#include "tests/support/await.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto me = u"GET /api/v1/auth/me"_s;
const auto methods = u"GET /api/v1/auth/methods"_s;
const auto logOut = u"POST /api/v1/auth/logout"_s;
const auto remember = u"PUT /api/v1/auth/me/workspace"_s;
const auto campaigns = u"GET /campaigns"_s;

StoredSession session(const QStringList& slugs, const QString& token = u"orv_sess_canary"_s) {
  StoredSession stored;
  stored.token = token;
  stored.issuedAt = QDateTime({2026, 11, 1}, {0, 0}, Qt::UTC);
  stored.expiresAt = QDateTime({2026, 12, 1}, {0, 0}, Qt::UTC);
  stored.user = {u"u1"_s, u"ada@b.c"_s, u"Ada"_s, {}, {}};
  for (const QString& slug : slugs) stored.workspaces.append({slug, slug, slug.toUpper(), {u"owner"_s}, {}, {}});
  return stored;
}

QByteArray account(const QStringList& slugs, const QByteArray& role = "owner") {
  QList<QByteArray> workspaces;
  for (const QString& slug : slugs)
    workspaces.append(R"({"id":")" + slug.toUtf8() + R"(","slug":")" + slug.toUtf8() + R"(","name":"The )" +
                      slug.toUpper().toUtf8() + R"(","role":")" + role + R"("})");
  return R"({"user":{"id":"u1","email":"ada@b.c","name":"Ada"},"workspaces":[)" + workspaces.join(',') + "]}";
}

Task<void> count(int* calls) {
  ++*calls;
  co_return;
}

}  // namespace

class AppModelTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<AppModel> app;
  std::unique_ptr<QTemporaryDir> state;

  void create() {
    Platform platform = platformOf(*f);
    platform.stateFolder = state->path();
    app = std::make_unique<AppModel>(platform);
  }
  void keep(const StoredSession& stored) { f->keychain.items[u"session"_s] = encodeJSON(stored); }
  void startSignedIn(const QStringList& slugs) {
    keep(session(slugs));
    create();
    f->api.expect(me);
    app->start();
    QCOMPARE(app->phase(), AppModel::Phase::signedIn);
    f->api.answer(me, account(slugs));
  }
  void open(const QString& slug) {
    f->api.expect(remember);
    app->openWorkspace(slug);
    f->api.answer(remember, {}, 204);
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    state = std::make_unique<QTemporaryDir>();
  }
  void cleanup() {
    app.reset();
    f.reset();
  }

  void startsWhereThePersonLeft() {
    auto stored = session({u"a"_s, u"b"_s});
    stored.currentSlug = u"b"_s;
    keep(stored);
    create();
    QCOMPARE(app->phase(), AppModel::Phase::booting);
    f->api.expect(me);
    app->start();
    QCOMPARE(app->current()->slug, u"b"_s);
    QCOMPARE(f->api.last().token, u"orv_sess_canary"_s);
  }

  void startsSignedOut_data() {
    QTest::addColumn<QByteArray>("item");
    QTest::addColumn<bool>("fails");
    QTest::addColumn<bool>("cleared");
    auto expired = session({u"a"_s});
    expired.expiresAt = QDateTime({2026, 11, 21}, {12, 0}, Qt::UTC);
    QTest::newRow("no session") << QByteArray() << false << true;
    QTest::newRow("expired this very instant") << encodeJSON(expired) << false << false;
    QTest::newRow("corrupted") << "{\"token\":1}"_ba << false << false;
    QTest::newRow("keyring locked") << encodeJSON(session({u"a"_s})) << true << false;
  }
  void startsSignedOut() {
    QFETCH(QByteArray, item);
    QFETCH(bool, fails);
    QFETCH(bool, cleared);
    if (!item.isEmpty()) f->keychain.items[u"session"_s] = item;
    if (fails) f->keychain.failure = KeychainError::status(-1, KeychainError::Reason::locked);
    create();
    f->api.expect(methods);
    app->start();
    QCOMPARE(app->phase(), AppModel::Phase::signedOut);
    QCOMPARE(f->keychain.items.empty(), cleared);
    QCOMPARE(app->signIn()->notice().contains(u"locked"_s), fails);
  }

  void aSilentKeyringDoesNotHoldUpTheWindow() {
    keep(session({u"a"_s}));
    f->keychain.gate.emplace();
    create();
    app->start();
    QCOMPARE(app->phase(), AppModel::Phase::booting);
    f->api.expect(methods);
    f->clock.advance(3s);
    QCOMPARE(app->phase(), AppModel::Phase::signedOut);
    QVERIFY(!app->signIn()->notice().isEmpty());
    f->api.expect(me);
    f->keychain.gate->give(true);
    QCOMPARE(app->phase(), AppModel::Phase::signedIn);
    QCOMPARE(app->signIn()->notice(), QString());
  }

  void theKeyringsLateAnswerDisturbsNoSignIn_data() {
    QTest::addColumn<bool>("answersWithSession");
    QTest::newRow("the stored session") << true;
    QTest::newRow("a refusal") << false;
  }
  void theKeyringsLateAnswerDisturbsNoSignIn() {
    QFETCH(bool, answersWithSession);
    const auto check = u"POST /api/v1/auth/email/check"_s;
    keep(session({u"a"_s}));
    f->keychain.gate.emplace();
    create();
    app->start();
    f->api.expect(methods);
    f->clock.advance(3s);
    app->signIn()->setEmail(u"eve@b.c"_s);
    f->api.expect(check);
    app->signIn()->submitEmail();
    if (!answersWithSession) f->keychain.failure = KeychainError::status(-1, KeychainError::Reason::other);
    f->keychain.gate->give(true);
    QCOMPARE(app->phase(), AppModel::Phase::signedOut);
    f->api.answer(check, R"({"account":true,"password":true,"signUp":false})");
    QCOMPARE(app->signIn()->step(), SignInModel::Step::password);
    QVERIFY(!f->keychain.items.empty());
  }

  void aSessionThatTheKeyringKeepsIsNotOpenedAgain() {
    startSignedIn({u"a"_s});
    f->keychain.failure = KeychainError::status(-1, KeychainError::Reason::locked);
    f->api.expect(logOut);
    f->api.expect(methods);
    app->signOut();
    app.reset();
    f->keychain.failure.reset();
    f->keychain.gate.reset();
    create();
    f->api.expect(methods);
    app->start();
    QCOMPARE(app->phase(), AppModel::Phase::signedOut);
  }

  void signingInSavesAndOpens() {
    create();
    f->api.expect(methods);
    app->start();
    f->api.expect(logOut);
    app->signIn()->onSignedIn(session({}));
    QCOMPARE(f->api.last().token, u"orv_sess_canary"_s);
    QCOMPARE(app->phase(), AppModel::Phase::signedOut);
    QCOMPARE(app->signIn()->notice(),
             u"You’re signed in, but you’re not in a workspace yet. Ask a workspace owner to invite you."_s);
    app->signIn()->onSignedIn(session({u"a"_s}));
    QCOMPARE(app->phase(), AppModel::Phase::signedIn);
    QCOMPARE(decodeJSON<StoredSession>(f->keychain.items[u"session"_s]).currentSlug, u"a"_s);
  }

  void anUnsavedSessionWorksAndSaysSo() {
    f->keychain.failure = KeychainError::status(-1, KeychainError::Reason::absent);
    create();
    f->api.expect(methods);
    app->start();
    app->signIn()->onSignedIn(session({u"a"_s}));
    QCOMPARE(app->phase(), AppModel::Phase::signedIn);
    QCOMPARE(app->toasts()->count(), 1);
  }

  void theKeyringIsTroubledOnlyWhenSomethingChanged_data() {
    QTest::addColumn<bool>("fails");
    QTest::newRow("a keyring that works") << false;
    QTest::newRow("a locked one, which asks each time") << true;
  }
  void theKeyringIsTroubledOnlyWhenSomethingChanged() {
    QFETCH(bool, fails);
    create();
    f->api.expect(methods);
    app->start();
    if (fails) f->keychain.failure = KeychainError::status(-1, KeychainError::Reason::locked);
    app->signIn()->onSignedIn(session({u"a"_s}));
    const auto refresh = [&](const QByteArray& role) {
      f->api.expect(me);
      app->refreshAccount();
      f->api.answer(me, account({u"a"_s}, role));
      return std::exchange(f->keychain.changes, 0);
    };
    refresh("owner");
    QCOMPARE(refresh("owner"), 0);
    QCOMPARE(refresh("viewer"), 1);
    QCOMPARE(refresh("viewer"), 0);
  }

  void leavingSaysWhatHappenedWhateverTheKeyringDoes_data() {
    QTest::addColumn<KeychainError::Reason>("reason");
    QTest::addColumn<int>("toasts");
    QTest::newRow("there is none") << KeychainError::Reason::absent << 0;
    QTest::newRow("locked") << KeychainError::Reason::locked << 1;
  }
  void leavingSaysWhatHappenedWhateverTheKeyringDoes() {
    QFETCH(KeychainError::Reason, reason);
    startSignedIn({u"a"_s});
    QCOMPARE(f->preferences.name, u"Ada"_s);
    f->keychain.failure = KeychainError::status(-1, reason);
    f->keychain.gate.emplace();
    f->api.expect(campaigns);
    app->session()->store<CampaignsStore>()->ensureLoaded();
    f->api.expect(methods);
    f->api.answer(campaigns, {}, 401);
    QVERIFY2(app->isFinishing(), "the program must not end yet");
    f->keychain.gate->give(true);
    QVERIFY(!app->isFinishing());
    QCOMPARE(app->signIn()->notice(), u"Your session ended. Sign in again."_s);
    QTEST(app->toasts()->count(), "toasts");
    QCOMPARE(f->preferences.name, QString());
  }

  void aSessionThatRunsOutIsNotUsed_data() {
    QTest::addColumn<QString>("asked");
    for (const char* each : {"account", "campaigns"}) QTest::newRow(each) << QString::fromLatin1(each);
  }
  void aSessionThatRunsOutIsNotUsed() {
    QFETCH(QString, asked);
    startSignedIn({u"a"_s});
    // The machine slept: no timer has told yet.
    f->clock.jump(std::chrono::hours(24 * 10));
    f->api.expect(methods);
    if (asked == "account"_L1)
      app->refreshAccount();
    else
      app->session()->store<CampaignsStore>()->ensureLoaded();
    settle();
    QCOMPARE(app->phase(), AppModel::Phase::signedOut);
    QCOMPARE(app->signIn()->notice(), u"Your session ended. Sign in again."_s);
  }

  void keepsThreeWorkspacesByLastOpening() {
    startSignedIn({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    QPointer<WorkspaceSession> first = app->session();
    for (const auto& slug : {u"b"_s, u"c"_s, u"d"_s}) open(slug);
    settle();
    QVERIFY(!first);
    QCOMPARE(app->sessionOrder(), (QStringList{u"b"_s, u"c"_s, u"d"_s}));
    open(u"a"_s);
    QCOMPARE(app->sessionOrder(), (QStringList{u"c"_s, u"d"_s, u"a"_s}));
    QCOMPARE(decodeJSON<StoredSession>(f->keychain.items[u"session"_s]).currentSlug, u"a"_s);
  }

  void anUndoOutlivesItsWorkspacesSession() {
    startSignedIn({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    int undone = 0;
    app->toasts()->show({.message = u"x"_s,
                         .actionLabel = u"Undo"_s,
                         .action = undo(app->session()->context(), [&undone](auto) { return count(&undone); })});
    const std::weak_ptr context = app->session()->context().weak_from_this();
    for (const auto& slug : {u"b"_s, u"c"_s, u"d"_s}) open(slug);
    settle();
    app->toasts()->act(app->toasts()->toasts().last().id);
    QCOMPARE(undone, 1);
    settle();
    QVERIFY2(context.expired(), "and no longer than its message");
  }

  void keepsEightCampaignsByFirstOpening() {
    startSignedIn({u"a"_s});
    for (int i = 0; i < 8; ++i) app->session()->item<CampaignStore>(Page::campaigns, QString::number(i));
    app->session()->item<CampaignStore>(Page::campaigns, u"0"_s);
    QPointer<CampaignStore> first = app->session()->item<CampaignStore>(Page::campaigns, u"0"_s);
    app->session()->item<CampaignStore>(Page::campaigns, u"8"_s);
    settle();
    QVERIFY(!first);
    QCOMPARE(app->session()->itemOrder(Page::campaigns).first(), u"1"_s);
  }

  void memoryPressureKeepsTheOpenWorkspaceOnly() {
    startSignedIn({u"a"_s, u"b"_s, u"c"_s});
    open(u"b"_s);
    open(u"c"_s);
    app->session()->item<CampaignStore>(Page::campaigns, u"x"_s);
    Q_EMIT f->memoryPressure.pressure();
    QCOMPARE(app->sessionOrder(), QStringList{u"c"_s});
    QVERIFY(app->session()->itemOrder(Page::campaigns).isEmpty());
  }

  void workspacesFollowTheAccount() {
    startSignedIn({u"a"_s, u"b"_s});
    QVERIFY(app->session()->store<CampaignsStore>()->canWrite());
    f->api.expect(me);
    app->refreshAccount();
    app->refreshAccount();
    f->api.answer(me, account({u"a"_s, u"b"_s}, "viewer"));
    QVERIFY(!app->session()->store<CampaignsStore>()->canWrite());
    f->api.expect(me);
    f->api.expect(remember);
    app->refreshAccount();
    const QPointer<WorkspaceSession> lost = app->session();
    const auto held = lost->context().shared_from_this();
    f->api.answer(me, account({u"b"_s}));
    QCOMPARE(app->current()->slug, u"b"_s);
    QCOMPARE(app->toasts()->toasts().last().message, u"You’re no longer in The A"_s);
    QCOMPARE(app->sessionOrder(), QStringList{u"b"_s});
    settle();
    QVERIFY2(!lost, "its session is let go");
    QVERIFY_THROWS_EXCEPTION(APIError, await(held->api().send(Requests::listCampaigns(false))));
  }

  void aRefusedCallEndsTheSessionOnce() {
    startSignedIn({u"a"_s});
    f->api.expect(campaigns);
    app->session()->store<CampaignsStore>()->ensureLoaded();
    f->api.expect(methods);
    QPointer<WorkspaceSession> old = app->session();
    f->api.answer(campaigns, {}, 401);
    QCOMPARE(app->phase(), AppModel::Phase::signedOut);
    QCOMPARE(app->signIn()->notice(), u"Your session ended. Sign in again."_s);
    QVERIFY(!app->session());
    QCOMPARE(app->toasts()->count(), 0);
    QVERIFY(f->keychain.items.empty());
    settle();
    QVERIFY(!old);
  }

  void aRefusedAccountCallEndsTheSession() {
    startSignedIn({u"a"_s, u"b"_s});
    f->api.expect(remember);
    app->openWorkspace(u"b"_s);
    f->api.expect(methods);
    f->api.answer(remember, {}, 401);
    QCOMPARE(app->signIn()->notice(), u"Your session ended. Sign in again."_s);
  }

  void whoIsInNoWorkspaceAnyLongerIsSignedOut() {
    startSignedIn({u"a"_s});
    f->api.expect(me);
    app->refreshAccount();
    f->api.expect(logOut);
    f->api.expect(methods);
    f->api.answer(me, account({}));
    QCOMPARE(app->phase(), AppModel::Phase::signedOut);
    QVERIFY(app->signIn()->notice().startsWith(u"You’re signed in, but you’re not in a workspace yet."_s));
    QVERIFY(f->keychain.items.empty());
  }

  void theAccountWithoutAUserEndsTheSession() {
    keep(session({u"a"_s}));
    create();
    f->api.expect(me);
    app->start();
    f->api.expect(methods);
    f->api.answer(me, R"({"workspaces":[]})");
    QCOMPARE(app->signIn()->notice(), u"Your session ended. Sign in again."_s);
  }

  void aDeletionIsNobodyElsesDoing() {
    using Deletion = Program::Deletion;
    startSignedIn({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    // Of one that was left meanwhile, whose answer was lost.
    f->api.expect(me);
    app->deletesWorkspace(u"d"_s, Deletion::unknown);
    f->api.answer(me, account({u"a"_s, u"b"_s, u"c"_s}));
    QCOMPARE(app->toasts()->toasts().last().message, u"Deleted The D"_s);
    app->toasts()->clear();
    app->deletesWorkspace(u"a"_s, Deletion::underWay);
    f->api.expect(me);
    app->refreshAccount();
    f->api.answer(me, account({u"b"_s, u"c"_s}));
    QVERIFY2(app->current()->slug == u"a"_s && app->toasts()->toasts().isEmpty(), "whoever waits for it hears the end");
    // Its answer was lost, but it has come to that.
    f->api.expect(me);
    app->deletesWorkspace(u"a"_s, Deletion::unknown);
    f->api.expect(remember);
    f->api.answer(me, account({u"b"_s, u"c"_s}));
    QCOMPARE(app->current()->slug, u"b"_s);
    QCOMPARE(app->toasts()->toasts().last().message, u"Deleted The A"_s);

    // One that is not open holds what was typed in it.
    app->session()->store<SettingsStore>()->workspaceForm()->set(u"name"_s, u"Mine"_s);
    open(u"c"_s);
    f->api.expect(me);
    app->refreshAccount();
    f->api.answer(me, account({u"c"_s}));
    QCOMPARE(app->toasts()->toasts().last().message, u"You’re no longer in The B"_s);
    QVERIFY(app->toasts()->toasts().last().detail.contains(u"unsaved"_s));
  }

  void lateAnswersOfAnOldSessionChangeNothing() {
    startSignedIn({u"a"_s});
    f->api.expect(campaigns);
    app->session()->store<CampaignsStore>()->ensureLoaded();
    f->api.expect(me);
    app->refreshAccount();
    f->api.expect(logOut);
    f->api.expect(methods);
    app->router()->setShortcutsOpen(true);
    app->router()->startGo();
    app->program()->setLogShown(true);
    app->signOut();
    QVERIFY2(!app->router()->shortcutsOpen() && !app->router()->goPending() && !app->program()->logShown(),
             "nothing opens by itself for the next");
    QCOMPARE(f->api.last().token.isEmpty(), true);
    QVERIFY(f->api.cancelled().contains(campaigns));
    QVERIFY(f->api.cancelled().contains(me));
    QVERIFY(!app->session());
    QVERIFY(app->workspaces().isEmpty());
    QVERIFY(f->keychain.items.empty());
    QVERIFY2(app->isFinishing(), "the service has not heard of it yet");

    app->signIn()->onSignedIn(session({u"b"_s}, u"orv_sess_second"_s));
    f->api.answer(logOut, {}, 401);
    QCOMPARE(app->phase(), AppModel::Phase::signedIn);
    QCOMPARE(app->current()->slug, u"b"_s);
  }

  void nobodyGoesWithUnsavedFormsUnasked() {
    startSignedIn({u"a"_s});
    QVERIFY(app->mayClose());
    const auto form = [this] { return app->session()->item<CampaignStore>(Page::campaigns, u"c1"_s)->settings(); };
    f->api.expect(u"GET /campaigns/c1"_s);
    app->session()->item<CampaignStore>(Page::campaigns, u"c1"_s)->ensureLoaded();
    f->api.answer(u"GET /campaigns/c1"_s, R"({"id":"c1","name":"Fair","status":"draft"})");
    form()->draft()->set(u"gap"_s, u"9"_s);
    QSignalSpy closable(app.get(), &AppModel::closable);
    const auto unsaved = u"“Fair” has unsaved changes: settings.\n"_s;
    for (int round = 0; round < 2; ++round) {
      QVERIFY(!app->mayClose());
      QVERIFY(app->overlays()->asking());
      QCOMPARE(app->overlays()->text(), unsaved + u"What you wrote is kept on this computer for when you’re back."_s);
      app->overlays()->answer(app->overlays()->token(), false);
    }
    QCOMPARE(closable.count(), 0);
    app->signOut();
    QCOMPARE(app->overlays()->text(), unsaved + u"They would be lost."_s);
    app->overlays()->answer(app->overlays()->token(), false);
    QCOMPARE(app->phase(), AppModel::Phase::signedIn);

    // Whoever shows it opens it again at once, and hears nothing of it.
    app->session()->trim();
    QVERIFY(form()->dirty());
    settle();
    QCOMPARE(app->toasts()->count(), 0);
    // The first of eight more goes, and is kept with what was typed.
    for (int other = 2; other < 10; ++other) app->session()->item<CampaignStore>(Page::campaigns, u"c%1"_s.arg(other));
    settle();
    QCOMPARE(app->toasts()->toasts().last().message, u"“Fair” has unsaved changes: settings."_s);
    app->toasts()->act(app->toasts()->toasts().last().id);
    QCOMPARE(app->router()->campaign(), u"c1"_s);
    QCOMPARE(form()->draft()->values().value(u"gap"_s).toString(), u"9"_s);

    QVERIFY(!app->mayClose());
    app->overlays()->answer(app->overlays()->token(), true);
    QCOMPARE(closable.count(), 1);
    QVERIFY(app->mayClose());
  }

  void aSessionThatGoesTakesItsQuestionsAlong() {
    bool ended = false;
    const auto context =
        std::make_shared<WorkspaceContext>(WorkspaceSummary{u"w1"_s, u"acme"_s, u"Acme"_s, {u"member"_s}, {}, {}},
                                           u"t"_s, f->api, f->services, [&ended] { ended = true; });
    auto opened = std::make_unique<WorkspaceSession>(context);
    QCOMPARE(opened->store<AnalyticsStore>(), opened->store<AnalyticsStore>());
    f->api.expect(u"GET /analytics/summary"_s);
    opened->store<AnalyticsStore>()->ensureLoaded();
    f->api.expect(u"GET /analytics/overview"_s);
    opened->store<DashboardStore>()->ensureLoaded();
    opened->close();
    QCOMPARE(f->api.waiting(), 0);
    QVERIFY(!opened->store<AnalyticsStore>()->summary()->hasContent());
    f->api.expect(u"GET /analytics/summary"_s);
    opened->store<AnalyticsStore>()->refresh();
    opened.reset();
    QCOMPARE(f->api.waiting(), 0);
    QVERIFY(!ended);
  }
};

QTEST_GUILESS_MAIN(AppModelTest)
#include "appmodel_test.moc"
