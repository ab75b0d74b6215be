#include <QSignalSpy>

#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/mailboxes/mailbox.h"
#include "tests/app/campaigns/CampaignsPage.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

class CampaignsTest final : public CampaignsPage {
  Q_OBJECT

 private Q_SLOTS:
  void init() { open(); }
  void cleanup() { leave(); }

  void loadsOnceWhenFirstShown() {
    load();
    store->ensureLoaded();
    QCOMPARE(f->api.sent().size(), 1u);
    QVERIFY(f->api.last().request.query.isEmpty());
    QCOMPARE(store->archivedCount(), 2);
    QCOMPARE(store->summary(), u"1 running · 600 emails sent · 9 positive replies"_s);
  }

  void rowsFollowFilterSearchTagsAndSort_data() {
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<QStringList>("shown");
    const QStringList all{u"Acme Q3"_s, u"Beta"_s, u"gamma"_s};
    QTest::newRow("everything") << u"all"_s << QString() << QStringList() << all;
    QTest::newRow("status") << u"paused"_s << QString() << QStringList() << QStringList{u"Beta"_s};
    QTest::newRow("search ignores case") << u"all"_s << u"ACME"_s << QStringList() << QStringList{u"Acme Q3"_s};
    QTest::newRow("search is trimmed") << u"all"_s << u"  gam "_s << QStringList() << QStringList{u"gamma"_s};
    QTest::newRow("spaces filter nothing") << u"all"_s << u"   "_s << QStringList() << all;
    QTest::newRow("any tag suffices") << u"all"_s << QString() << QStringList{u"hot"_s, u"cold"_s}
                                      << QStringList{u"Acme Q3"_s, u"Beta"_s};
    QTest::newRow("all together") << u"running"_s << u"a"_s << QStringList{u"cold"_s} << QStringList();
  }
  void rowsFollowFilterSearchTagsAndSort() {
    QFETCH(QString, filter);
    QFETCH(QString, query);
    QFETCH(QStringList, tags);
    load();
    store->setFilter(filter);
    store->setQuery(query);
    for (const QString& tag : tags) store->toggleTag(tag);
    QTEST(names(), "shown");
    store->showAll();
    QCOMPARE(names().size(), 3);
  }

  void sortsAndKeepsNothingLast() {
    load(list({row("a", "b10", "running"), row("b", "B9", "draft", R"(,"x":0)"), row("c", "a", "paused")}));
    store->sort(u"name"_s, true);
    QCOMPARE(names(), (QStringList{u"b10"_s, u"B9"_s, u"a"_s}));
    store->sort(u"name"_s, false);
    QCOMPARE(names(), (QStringList{u"a"_s, u"B9"_s, u"b10"_s}));
    store->sort({}, true);
    QCOMPARE(names(), (QStringList{u"b10"_s, u"B9"_s, u"a"_s}));
    QCOMPARE(store->sortKey(), QString());
    store->sort(u"status"_s, true);
    QCOMPARE(names().first(), u"b10"_s);
    f->api.expect(u"GET /campaigns"_s);
    store->refresh();
    f->api.answer(u"GET /campaigns"_s, list({with("s", {0, 9, 1, 1, 1}), with("r", {0, 1, 9, 1, 1}),
                                             with("p", {0, 1, 1, 9, 1}), with("b", {0, 1, 1, 1, 9})}));
    for (const auto& key : {u"sent"_s, u"replied"_s, u"positive"_s, u"bounced"_s}) {
      store->sort(key, true);
      QCOMPARE(names().first(), key.left(1));
    }

    const QByteArray noLeads = R"({"id":"n","name":"none","status":"draft","senders":0,"steps":0,"leads":0,"sent":0,)"
                               R"("replied":0,"positive":0,"bounced":0,"createdAt":"2026-03-01T10:00:00Z"})";
    f->api.expect(u"GET /campaigns"_s);
    store->refresh();
    f->api.answer(u"GET /campaigns"_s, list({noLeads, row("a", "some", "running")}));
    for (const bool descending : {true, false}) {
      store->sort(u"progress"_s, descending);
      QCOMPARE(names().last(), u"none"_s);
    }
  }

  void cellsSayWhatTheRowIs() {
    load(list({row("c1", "One", "running", R"(,"launchedAt":"soon")"),
               row("c2", "Two", "draft", R"(,"launchedAt":"2026-04-02T12:00:00Z")"),
               R"({"id":"c3","name":"New","status":"odd","senders":1,"steps":3,"leads":0,"sent":0,"replied":0,)"
               R"("positive":0,"bounced":0,"createdAt":"2026-03-01T10:00:00Z"})"}));
    QCOMPARE(cell(u"c1"_s, "facts").toString(), u"1 step · 2 inboxes · Created 1 Mar"_s);
    QCOMPARE(cell(u"c2"_s, "facts").toString(), u"1 step · 2 inboxes · Launched 2 Apr"_s);
    QCOMPARE(cell(u"c3"_s, "facts").toString(), u"3 steps · 1 inbox · Created 1 Mar"_s);
    QCOMPARE(cell(u"c1"_s, "progressText").toString(), u"40 of 100 leads are through the sequence"_s);
    QCOMPARE(cell(u"c3"_s, "progressText").toString(), u"No leads yet"_s);
    QCOMPARE(cell(u"c3"_s, "statusLabel").toString(), u"odd"_s);
    QCOMPARE(cell(u"c1"_s, "bouncedRate").toString(), u"3.5%"_s);
    QVERIFY(cell(u"c1"_s, "bouncesHigh").toBool());
    QCOMPARE(cell(u"c3"_s, "sentText").toString(), u"–"_s);
  }

  // Every action: its one request, its words on success and on failure, and what holds on every way it can end.
  void aRowWhoseTextTheServiceLacksIsMarked() {
    load();
    QSignalSpy told(store->rows(), &QAbstractItemModel::dataChanged);
    {
      const auto mark = f->context->unsaved().mark(u"c1"_s);
      QVERIFY(cell(u"c1"_s, "unsaved").toBool());
    }
    QVERIFY(!cell(u"c1"_s, "unsaved").toBool());
    QCOMPARE(told.size(), 2);
  }

  void whoPausedOneResumesItAfterTheListHasGone() {
    const auto pause = u"POST /campaigns/c1/pause"_s, launch = u"POST /campaigns/c1/launch"_s;
    load();
    f->api.expect(pause);
    store->pause(u"c1"_s);
    f->api.answer(pause, campaign("c1", "Acme Q3", "paused"));
    store.reset();
    f->api.expect(launch);
    f->toasts.act(f->toasts.toasts().last().id);
    f->api.answer(launch, campaign("c1", "Acme Q3", "running"));
    QCOMPARE(f->toasts.toasts().last().message, u"Acme Q3 resumed"_s);
  }

  void actions_data() {
    QTest::addColumn<QString>("verb");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("asks");
    QTest::addColumn<QString>("success");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<bool>("reloads");
    QTest::newRow("pause") << u"pause"_s << u"POST /campaigns/c1/pause"_s << campaign("c1", "Acme Q3", "paused")
                           << false << u"Acme Q3 paused"_s << QString() << false;
    QTest::newRow("resume") << u"resume"_s << u"POST /campaigns/c1/launch"_s << campaign("c1", "Acme Q3", "running")
                            << false << u"Acme Q3 resumed"_s << QString() << false;
    QTest::newRow("duplicate") << u"duplicate"_s << u"POST /campaigns/c1/duplicate"_s
                               << campaign("c9", "Acme Q3 (copy)", "draft") << false
                               << u"Acme Q3 (copy) created, without leads"_s << u"Couldn’t duplicate Acme Q3"_s << true;
    QTest::newRow("remove") << u"remove"_s << u"DELETE /campaigns/c1"_s << QByteArray() << true
                            << u"Deleted “Acme Q3”. It’s in Archived."_s << u"Couldn’t delete Acme Q3"_s << false;
    QTest::newRow("rename") << u"rename"_s << u"PATCH /campaigns/c1"_s << campaign("c1", "New name", "running") << false
                            << u"Renamed Acme Q3 to New name"_s << u"Couldn’t rename the campaign."_s << false;
  }
  void begin(const QString& verb) {
    if (verb == "pause"_L1) store->pause(u"c1"_s);
    if (verb == "resume"_L1) store->resume(u"c1"_s);
    if (verb == "duplicate"_L1) store->duplicate(u"c1"_s);
    if (verb == "remove"_L1) store->remove(u"c1"_s);
    if (verb != "rename"_L1) return;
    store->beginRename(u"c1"_s);
    store->rename()->setText(u"  New name "_s);
    store->rename()->submit();
  }
  void start(const QString& verb, bool asks) {
    begin(verb);
    if (asks) f->overlays.answer(f->overlays.token(), true);
  }

  void actions() {
    QFETCH(QString, verb);
    QFETCH(QString, label);
    QFETCH(QByteArray, answer);
    QFETCH(bool, asks);
    QFETCH(QString, failure);
    QFETCH(bool, reloads);
    load();
    const auto before = store->rows()->records();

    // A refusal leaves everything as it was and says so.
    f->api.expect(label);
    start(verb, asks);
    QVERIFY(store->busy().contains(u"c1"_s));
    QVERIFY(cell(u"c1"_s, "busy").toBool());
    QVERIFY(f->api.last().request.idempotencyKey);
    const QString firstKey = *f->api.last().request.idempotencyKey;
    begin(verb);
    QCOMPARE(f->api.waiting(), 1);
    f->api.answer(label, refusal, 422);
    QVERIFY(store->busy().ids().isEmpty());
    QVERIFY(store->rows()->records() == before);
    const auto& told = f->toasts.toasts().last();
    QCOMPARE(told.tone, Toasts::Tone::error);
    const QString reason = u"Not now: It is being checked."_s;
    QCOMPARE(told.message, failure.isEmpty() ? reason : failure);
    QCOMPARE(told.detail, failure.isEmpty() ? QString() : reason);

    // What the shell tells of is not told twice.
    f->toasts.clear();
    f->api.expect(label);
    start(verb, asks);
    f->api.answer(label, {}, 401);
    QCOMPARE(f->toasts.count(), 0);
    QVERIFY(store->busy().ids().isEmpty());

    // A new attempt is a new operation; this one works.
    f->api.expect(label);
    if (reloads) f->api.expect(u"GET /campaigns"_s);
    start(verb, asks);
    QVERIFY(*f->api.last().request.idempotencyKey != firstKey);
    f->api.answer(label, answer);
    QTEST(f->toasts.toasts().last().message, "success");
    QVERIFY(store->busy().ids().isEmpty());
  }

  void lostAnswersAreReadAgain_data() { actions_data(); }
  void lostAnswersAreReadAgain() {
    QFETCH(QString, verb);
    QFETCH(QString, label);
    QFETCH(bool, asks);
    load();
    f->api.expect(label);
    f->api.expect(u"GET /campaigns"_s);
    start(verb, asks);
    f->api.fail(label, TransportFailure::timedOut);
    QVERIFY(f->api.isWaiting(u"GET /campaigns"_s));
    QCOMPARE(f->toasts.count(), 1);
    QVERIFY(store->busy().ids().isEmpty());
  }

  void storeDroppedWhileWaiting_data() { actions_data(); }
  void storeDroppedWhileWaiting() {
    QFETCH(QString, verb);
    QFETCH(QString, label);
    QFETCH(bool, asks);
    load();
    f->api.expect(label);
    start(verb, asks);
    store.reset();
    QCOMPARE(f->api.cancelled(), QStringList{label});
    settle();
    QCOMPARE(f->toasts.count(), 0);
  }

  void requestsCarryWhatTheyMust() {
    load();
    f->api.expect(u"PATCH /campaigns/c1"_s);
    begin(u"rename"_s);
    QCOMPARE(f->api.last().request.body, R"({"name":"New name"})"_ba);
    QCOMPARE(f->api.last().request.ifMatch, 4);
    f->api.expect(u"POST /campaigns/c2/launch"_s);
    store->resume(u"c2"_s);
    QCOMPARE(f->api.last().request.body, R"({"confirmExternal":false})"_ba);
  }

  void conflictOnRenameKeepsTheNameAndReloads() {
    load();
    f->api.expect(u"PATCH /campaigns/c1"_s);
    f->api.expect(u"GET /campaigns"_s);
    begin(u"rename"_s);
    f->api.answer(u"PATCH /campaigns/c1"_s, R"({"title":"Changed meanwhile"})", 409);
    QVERIFY(store->rename()->shown());
    QVERIFY(!store->rename()->busy());
    QCOMPARE(store->rename()->text(), u"  New name "_s);
    QCOMPARE(f->toasts.toasts().last().detail, u"Changed meanwhile"_s);
    f->api.answer(u"GET /campaigns"_s, QByteArray(threeRows).replace("Acme Q3", "Theirs").replace("n\":4", "n\":9"));
    QCOMPARE(names().first(), u"Theirs"_s);
    f->api.expect(u"PATCH /campaigns/c1"_s);
    store->rename()->submit();
    QCOMPARE(f->api.last().request.ifMatch, 9);
  }

  void onlyARunningCampaignStopsSending_data() {
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("text");
    const QString archived = u"It moves to Archived for 30 days, so you can restore it."_s;
    QTest::newRow("running") << u"c1"_s << QString(u"Sending stops at once. "_s + archived);
    QTest::newRow("paused") << u"c2"_s << archived;
  }
  void onlyARunningCampaignStopsSending() {
    QFETCH(QString, id);
    load();
    store->remove(id);
    QTEST(f->overlays.text(), "text");
    f->overlays.answer(f->overlays.token(), false);
    QVERIFY(!f->overlays.asking());
    QVERIFY(!f->api.waiting());
  }

  void createTrimsOpensAndKeepsTheNameOnFailure() {
    load();
    store->beginCreate();
    store->newCampaign()->setText(u"   "_s);
    store->newCampaign()->submit();
    QCOMPARE(f->api.waiting(), 0);

    store->newCampaign()->setText(u" Q4 push "_s);
    f->api.expect(u"POST /campaigns"_s);
    store->newCampaign()->submit();
    store->newCampaign()->submit();
    QCOMPARE(f->api.last().request.body, R"({"name":"Q4 push"})"_ba);
    f->api.answer(u"POST /campaigns"_s, refusal, 422);
    QVERIFY(store->newCampaign()->shown());
    QVERIFY(!store->newCampaign()->busy());
    QCOMPARE(store->newCampaign()->error(), u"Not now: It is being checked."_s);
    QCOMPARE(store->newCampaign()->text(), u" Q4 push "_s);

    // It may have been made all the same.
    f->api.expect(u"POST /campaigns"_s);
    f->api.expect(u"GET /campaigns"_s);
    store->newCampaign()->submit();
    f->api.fail(u"POST /campaigns"_s, TransportFailure::timedOut);
    f->api.answer(u"GET /campaigns"_s, threeRows);
    QVERIFY(store->newCampaign()->shown());

    f->api.expect(u"POST /campaigns"_s);
    f->api.expect(u"GET /campaigns"_s);
    store->newCampaign()->submit();
    f->api.answer(u"POST /campaigns"_s, campaign("c7", "Q4 push", "draft"));
    QVERIFY(!store->newCampaign()->shown());
    QCOMPARE(f->toasts.toasts().last().message, u"Q4 push created"_s);
    QCOMPARE(f->navigator.openedItem(Page::campaigns), u"c7"_s);
  }

  void onlyMembersCreate_data() {
    QTest::addColumn<QString>("role");
    QTest::addColumn<bool>("may");
    for (const auto& [role, may] :
         {std::pair{u"owner"_s, true}, std::pair{u"admin"_s, true}, std::pair{u"member"_s, true},
          std::pair{u"viewer"_s, false}, std::pair{u"client"_s, false}, std::pair{u"new-role"_s, false}})
      QTest::newRow(qPrintable(role)) << role << may;
  }
  void onlyMembersCreate() {
    QFETCH(QString, role);
    QFETCH(bool, may);
    f->context->setWorkspace({u"w1"_s, u"acme"_s, u"Acme"_s, {role}, {}, {}});
    QCOMPARE(store->act(u"new"_s), may);
    QCOMPARE(store->newCampaign()->shown(), may);
    QCOMPARE(store->createHint(), may ? QString() : u"Only members can create campaigns."_s);
    QCOMPARE(f->toasts.count(), may ? 0 : 1);
  }

  void copiedLinkIsTheOneOfThePage() {
    load();
    store->copyLink(u"c1"_s);
    QCOMPARE(f->clipboard.text, u"https://app.orvella.example/campaigns/c1"_s);
    QCOMPARE(f->toasts.toasts().last().message, u"Link copied"_s);
  }

  void aReloadInFlightDoesNotUndoAnAction() {
    load();
    f->api.expect(u"GET /campaigns"_s);
    store->refresh();
    f->api.expect(u"POST /campaigns/c1/pause"_s);
    store->pause(u"c1"_s);
    f->api.expect(u"GET /campaigns"_s);
    f->api.answer(u"POST /campaigns/c1/pause"_s, campaign("c1", "Acme Q3", "paused"));
    QCOMPARE(f->api.cancelled(), QStringList{u"GET /campaigns"_s});
    QCOMPARE(status(u"c1"_s), u"paused"_s);
  }

  void sendersAreCountedAnewWhenAccountsHaveChanged() {
    load();
    f->context->changes().publish(Mailbox(), f->context->changes().stamp(), false);
    QVERIFY(!store->list()->needsLoad());
    f->api.expect(u"GET /campaigns"_s);
    f->context->changes().gone<Mailbox>(u"m1"_s, f->context->changes().stamp());
    f->api.answer(u"GET /campaigns"_s, threeRows);
  }

  void whatAnotherListFoundNewerIsRead() {
    const QByteArray newer = QByteArray(threeRows).replace("gamma", "delta").replace("n\":4", "n\":5");
    load();
    Store elsewhere(*f->context);
    Resource<CampaignList> other(elsewhere, [this] { return f->api.send(Requests::listCampaigns(false)); });
    f->api.expect(u"GET /campaigns"_s);
    other.load();
    f->api.expect(u"GET /campaigns"_s);
    f->api.answer(u"GET /campaigns"_s, newer);
    f->api.answer(u"GET /campaigns"_s, newer);
    QCOMPARE(names().last(), u"delta"_s);
  }

  void failedRefreshKeepsTheRowsAndSaysSo() {
    load();
    f->api.expect(u"GET /campaigns"_s);
    store->refresh();
    QVERIFY(store->list()->refreshing());
    f->api.answer(u"GET /campaigns"_s, R"({"items":[{"id":1}]})");
    QCOMPARE(names().size(), 3);
    QVERIFY(!store->list()->refreshing());
    QCOMPARE(f->toasts.toasts().last().message, u"Couldn’t load campaigns"_s);

    f->api.expect(u"GET /campaigns"_s);
    store->refresh();
    f->api.fail(u"GET /campaigns"_s, TransportFailure::offline);
    QCOMPARE(store->list()->stateName(), ResourceBase::State::Offline);
    QCOMPARE(names().size(), 3);
  }
};

QTEST_GUILESS_MAIN(CampaignsTest)
#include "campaigns_test.moc"
