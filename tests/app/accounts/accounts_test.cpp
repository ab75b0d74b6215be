#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/accounts/AccountsStore.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto get = u"GET /mailboxes"_s, bulk = u"POST /mailboxes/bulk"_s;
const QByteArray refusal = R"({"title":"Not now","detail":"It is being checked."})";

/// An account "m7" is "a7@x.example", called "Name 7".
QByteArray account(int number, const QByteArray& more = {}, const QByteArray& status = "active",
                   const QByteArray& role = "sender") {
  const QByteArray n = QByteArray::number(number);
  return R"({"id":"m)" + n + R"(","address":"a)" + n + R"(@x.example","displayName":"Name )" + n +
         R"(","provider":"google","role":")" + role + R"(","status":")" + status + R"(","dailyCap":20,)" +
         R"("warmup":{"sentToday":0,"receivedToday":0,"replies7d":0,"placed7d":0,"spam7d":0},"createdAt":"")" + more +
         "}";
}

QByteArray page(const QByteArrayList& items, const QByteArray& next = {}) {
  return R"({"items":[)" + items.join(',') + R"(],"counts":{"active":3,"paused":1},"archivedCount":2)" +
         (next.isEmpty() ? "" : R"(,"nextCursor":")" + next + R"(")") + "}";
}

QByteArray three() { return page({account(1), account(2), account(3)}); }

}  // namespace

class AccountsTest : public QObject {
  Q_OBJECT

  struct Life {
    AppFixture f;
    AccountActions actions{*f.context};
    AccountsStore store{*f.context, actions};
    QAbstractItemModelTester tester{store.list()->rows(), QAbstractItemModelTester::FailureReportingMode::QtTest};
  };
  std::unique_ptr<Life> life;
  AppFixture* f = nullptr;
  AccountsStore* store = nullptr;

  void load(const QByteArrayList& pages) {
    f->api.expect(get);
    store->ensureLoaded();
    for (qsizetype at = 0; at < pages.size(); ++at) {
      if (at + 1 < pages.size()) f->api.expect(get);
      f->api.answer(get, pages[at]);
    }
  }
  QStringList shown() const { return store->list()->shownIds(); }
  QJsonObject body() const { return QJsonDocument::fromJson(*f->api.last().request.body).object(); }
  QString asked(const QString& item) const {
    for (const QueryItem& given : f->api.last().request.query)
      if (given.name == item) return given.value.value_or(QString());
    return {};
  }
  QString toast() const { return f->toasts.count() ? f->toasts.toasts().last().message : QString(); }
  QStringList labels(const QList<Choice>& choices) const {
    QStringList labels;
    for (const Choice& choice : choices) labels.append(choice.label + u' ' + QString::number(choice.count));
    return labels;
  }

 private Q_SLOTS:
  void init() {
    life = std::make_unique<Life>();
    f = &life->f;
    store = &life->store;
    store->list()->appear();
  }
  void cleanup() { life.reset(); }

  void everyPageIsReadAndThePoolLeftOut() {
    f->api.expect(get);
    store->ensureLoaded();
    QCOMPARE(store->summary(), QString());
    f->api.expect(get);
    f->api.answer(get, page({account(1, R"(,"sendLimit":40,"campaign":{"sentToday":32},"health":"healthy",)"
                                        R"("sendReady":{"ready":true,"mode":"auto","warmDays":9,"minWarmDays":3})"),
                             account(2, {}, "active", "pool")},
                            "next"));
    // Usable before the rest has come, and it says how far it is.
    QCOMPARE(shown(), QStringList{u"m1"_s});
    QCOMPARE(store->countText(), u"1 account read so far · 25%"_s);
    QCOMPARE(asked(u"cursor"_s), u"next"_s);
    f->api.answer(
        get,
        page({account(3, R"(,"sendLimit":30,"health":"warning")", "paused"),
              account(4, R"(,"rampup":{"state":"running","stageKey":"slow_ramp","campaignCapToday":8})", "failed")}));
    QCOMPARE(shown(), (QStringList{u"m1"_s, u"m3"_s, u"m4"_s}));
    QCOMPARE(store->summary(),
             u"3 connected · 1 accounts campaigns can use today · 32 of 78 campaign emails of today’s limit"_s);
    QCOMPARE(store->attention(), u"2 need attention"_s);
    QCOMPARE(f->context->attention(), 2);
    QCOMPARE(labels(store->statusCounts()), (QStringList{u"All 3"_s, u"Active 1"_s, u"Paused 1"_s, u"Failed 1"_s}));
    QCOMPARE(store->countText(), u"3 accounts"_s);
    QCOMPARE(store->archivedCount(), 2);
  }

  void aWorkspaceOfNothingButThePoolIsEmpty() {
    load({page({account(1, {}, "active", "pool")}, "a"), page({account(2, {}, "active", "pool")})});
    QCOMPARE(store->list()->stateName(), ResourceBase::State::Empty);
    store->selection()->toggleAll();
    QVERIFY(store->selection()->isEmpty());
    store->bulk()->act(u"pause"_s);
  }

  void aPageThatFailsLeavesTheRestAndGoesOn() {
    load({page({account(1)}, "a"), page({account(2)})});
    f->api.expect(get);
    store->refresh();
    f->api.expect(get);
    f->api.answer(get, page({account(1)}, "a"));
    f->api.answer(get, refusal, 500);
    QVERIFY(store->list()->moreFailed() && shown().size() == 2);
    f->api.expect(get);
    store->list()->loadMore();
    QCOMPARE(asked(u"cursor"_s), u"a"_s);
    f->api.answer(get, page({account(3)}));
    QCOMPARE(shown(), (QStringList{u"m1"_s, u"m3"_s}));
  }

  void filtersHoldTogether_data() {
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("provider");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("all") << u""_s << u""_s << u""_s << QStringList{u"m1"_s, u"m2"_s, u"m3"_s};
    QTest::newRow("status") << u"paused"_s << u""_s << u""_s << QStringList{u"m2"_s, u"m3"_s};
    QTest::newRow("brand by the host") << u""_s << u"google"_s << u""_s << QStringList{u"m1"_s, u"m2"_s};
    QTest::newRow("address") << u""_s << u""_s << u" A2@X "_s << QStringList{u"m2"_s};
    QTest::newRow("name") << u""_s << u""_s << u"name 3"_s << QStringList{u"m3"_s};
    QTest::newRow("tag") << u""_s << u""_s << u"FLEET"_s << QStringList{u"m1"_s, u"m3"_s};
    QTest::newRow("not across two texts") << u""_s << u""_s << u"example name"_s << QStringList{};
    QTest::newRow("all three") << u"paused"_s << u"smtp"_s << u"fleet"_s << QStringList{u"m3"_s};
    QTest::newRow("unknown status") << u"new"_s << u""_s << u""_s << QStringList{};
  }
  void filtersHoldTogether() {
    QFETCH(QString, status);
    QFETCH(QString, provider);
    QFETCH(QString, text);
    load({page({account(1, R"(,"tags":["Fleet","q4"])"),
                account(2, R"(,"connection":{"kind":"smtp_imap","status":"ok","host":"smtp.gmail.com"})", "paused"),
                account(3, R"(,"tags":["fleet"],"connection":{"kind":"smtp_imap","status":"ok"})", "paused")})});
    store->setFilter(status);
    store->setProvider(provider);
    store->setQuery(text);
    QTEST(shown(), "left");
    store->showAll();
    QCOMPARE(shown().size(), 3);
    QVERIFY(store->filter().isEmpty() && store->provider().isEmpty() && store->query().isEmpty());
  }

  void whoIsLedToAStatusSeesAllThatAreInIt() {
    load({page({account(1), account(2, {}, "failed"), account(3, {}, "failed")})});
    store->setQuery(u"m2"_s);
    store->setProvider(u"google"_s);
    f->api.expect(get);
    store->setShowArchived(true);
    store->goTo({.tab = u"failed"_s});
    QCOMPARE(shown(), (QStringList{u"m2"_s, u"m3"_s}));
    QVERIFY(!store->showArchived() && store->query().isEmpty());
    // A way back has no word about the status.
    store->goTo(store->where());
    QCOMPARE(store->filter(), u"failed"_s);
    store->goTo({.tab = {}, .value = u"a3@"_s});
    QCOMPARE(store->filter(), u"failed"_s);
  }

  void columnsSort_data() {
    QTest::addColumn<QString>("column");
    QTest::addColumn<QStringList>("descending");
    QTest::newRow("account") << u"account"_s << QStringList{u"m3"_s, u"m2"_s, u"m1"_s};
    QTest::newRow("status") << u"status"_s << QStringList{u"m1"_s, u"m3"_s, u"m2"_s};
    QTest::newRow("sent, none last") << u"sent"_s << QStringList{u"m3"_s, u"m2"_s, u"m1"_s};
    QTest::newRow("warm-up") << u"warmup"_s << QStringList{u"m2"_s, u"m3"_s, u"m1"_s};
    QTest::newRow("health, none last") << u"health"_s << QStringList{u"m1"_s, u"m3"_s, u"m2"_s};
  }
  void columnsSort() {
    QFETCH(QString, column);
    const QByteArray warmup = R"(,"warmup":{"sentToday":0,"receivedToday":0,"replies7d":0,"placed7d":0,"spam7d":0,)";
    load({page({account(1, warmup + R"("inboxPct7d":99})", "paused"),
                account(2, R"(,"sendLimit":9,"campaign":{"sentToday":3},)"
                           R"("rampup":{"state":"done","campaignCapToday":9})"),
                account(3,
                        warmup + R"("inboxPct7d":91.5},"sendLimit":5,"campaign":{"sentToday":4},)"
                                 R"("rampup":{"state":"running","stageKey":"warmup","campaignCapToday":5})",
                        "failed")})});
    store->sort(column, true);
    QTEST(shown(), "descending");
    store->sort({}, false);
    QCOMPARE(shown(), (QStringList{u"m1"_s, u"m2"_s, u"m3"_s}));
  }

  void whatIsDoneToOneIsSeenInAll() {
    load({page({account(1), account(2)})});
    f->api.expect(u"POST /mailboxes/m1/pause"_s);
    QVERIFY(store->act(u"pause"_s, u"m1"_s));
    QCOMPARE(store->busyIds(), QStringList{u"m1"_s});
    store->act(u"pause"_s, u"m1"_s);
    f->api.answer(u"POST /mailboxes/m1/pause"_s, account(1, {}, "paused"));
    QCOMPARE(toast(), u"a1@x.example paused"_s);
    QCOMPARE(labels(store->statusCounts()), (QStringList{u"All 2"_s, u"Active 1"_s, u"Paused 1"_s}));
    QVERIFY(store->busyIds().isEmpty());

    store->selection()->toggle(u"m2"_s);
    store->act(u"delete"_s, u"m2"_s);
    f->api.expect(u"DELETE /mailboxes/m2"_s);
    f->overlays.answer(f->overlays.token(), true);
    f->api.answer(u"DELETE /mailboxes/m2"_s, {}, 204);
    QCOMPARE(toast(), u"a2@x.example removed"_s);
    QCOMPARE(shown(), QStringList{u"m1"_s});
    QVERIFY2(store->selection()->isEmpty(), "a tick goes with its account");
    QCOMPARE(store->archivedCount(), 3);
    // Where a restored one stands only the service knows.
    f->api.expect(u"POST /mailboxes/m2/restore"_s);
    f->toasts.act(f->toasts.toasts().last().id);
    f->api.expect(get);
    f->api.answer(u"POST /mailboxes/m2/restore"_s, account(2));
    QCOMPARE(toast(), u"Account restored"_s);
    f->api.answer(get, page({account(1), account(2)}));
    QCOMPARE(shown().size(), 2);
  }

  void actionsOnMany_data() {
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QJsonObject>("told");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("said");
    QTest::addColumn<QString>("cannot");
    const QByteArray both = R"({"ok":2,"failed":[]})", one = R"({"ok":1,"failed":[]})";
    const QByteArray mixed = R"({"ok":1,"failed":[{"id":"m2","message":"No\nmore."},{"id":"m3","message":"Other."}]})";
    const QJsonObject none;
    QTest::newRow("pause") << u"pause"_s << u""_s << none << both << u"2 accounts paused"_s
                           << u"Couldn’t pause 2 accounts"_s;
    QTest::newRow("resume, one") << u"resume"_s << u""_s << none << one << u"1 account resumed"_s
                                 << u"Couldn’t resume 2 accounts"_s;
    QTest::newRow("test") << u"verify"_s << u""_s << none << both << u"2 accounts being tested"_s
                          << u"Couldn’t test 2 accounts"_s;
    QTest::newRow("limit") << u"set_limit"_s << u" +40 "_s << QJsonObject{{u"sendLimit"_s, 40}} << both
                           << u"2 accounts updated"_s << u""_s;
    QTest::newRow("wait") << u"set_sending_gap"_s << u"0"_s << QJsonObject{{u"sendingGapMinutes"_s, 0}} << both
                          << u"2 accounts updated"_s << u""_s;
    QTest::newRow("tag, with failures") << u"add_tags"_s << u"q4"_s << QJsonObject{{u"tags"_s, QJsonArray{u"q4"_s}}}
                                        << mixed << u"1 account tagged 2 failed: No more."_s << u""_s;
    QTest::newRow("untag") << u"remove_tags"_s << u"q4"_s << QJsonObject{{u"tags"_s, QJsonArray{u"q4"_s}}} << both
                           << u"2 accounts untagged"_s << u""_s;
    QTest::newRow("bison") << u"add_to_bison"_s << u"q4"_s << QJsonObject{{u"tags"_s, QJsonArray{u"q4"_s}}} << both
                           << u"2 accounts on the way to Bison"_s << u""_s;
    QTest::newRow("bison, without tags") << u"add_to_bison"_s << u""_s << none << both
                                         << u"2 accounts on the way to Bison"_s << u""_s;
    QTest::newRow("tracking") << u"set_tracking_domain"_s << u" HTTPS://Go.{domain}/x "_s
                              << QJsonObject{{u"trackingDomain"_s, u"go.{domain}"_s}}
                              << QByteArray(R"({"ok":2,"failed":[],"verified":1})")
                              << u"Tracking domain set on 2 accounts, 1 with its CNAME verified"_s << u""_s;
    QTest::newRow("tracking, nobody verified")
        << u"set_tracking_domain"_s << u"t.ab"_s << QJsonObject{{u"trackingDomain"_s, u"t.ab"_s}} << one
        << u"Tracking domain set on 1 account, 0 with its CNAME verified"_s << u""_s;
    QTest::newRow("no tracking") << u"set_tracking_domain"_s << u" "_s << QJsonObject{{u"trackingDomain"_s, u""_s}}
                                 << both << u"Tracking domain removed from 2 accounts"_s << u""_s;
    QTest::newRow("remove") << u"delete"_s << u""_s << none << both << u"Removed 2 accounts. They’re in Archived."_s
                            << u"Couldn’t remove 2 accounts"_s;
    QTest::newRow("remove one, with failures")
        << u"delete"_s << u""_s << none << mixed << u"Removed 1 account. It’s in Archived. 2 failed: No more."_s
        << u"Couldn’t remove 2 accounts"_s;
  }
  void actionsOnMany() {
    QFETCH(QString, action);
    QFETCH(QString, typed);
    QFETCH(QJsonObject, told);
    QFETCH(QByteArray, answer);
    QFETCH(QString, said);
    QFETCH(QString, cannot);
    load({three()});
    AccountBulk& many = *store->bulk();
    store->selection()->toggle(u"m1"_s);
    store->selection()->toggle(u"m2"_s);
    const auto begin = [&] {
      if (!many.shown()) many.act(action);
      if (!many.shown()) return;
      many.input() == "tags"_L1 ? many.addTags({typed}) : many.setText(typed);
      many.submit();
    };
    f->api.expect(bulk);
    begin();
    QCOMPARE(many.running(), action);
    // One at a time, whatever else is pressed.
    many.act(u"pause"_s);
    begin();
    told.insert(u"action"_s, action);
    told.insert(u"ids"_s, QJsonArray{u"m1"_s, u"m2"_s});
    QCOMPARE(body(), told);
    f->api.answer(bulk, refusal, 422);
    QVERIFY(many.running().isEmpty());
    QCOMPARE(store->selection()->count(), 2);
    if (cannot.isEmpty())
      QCOMPARE(many.error(), u"Not now: It is being checked."_s);
    else
      QCOMPARE(toast(), cannot);

    f->api.expect(bulk);
    begin();
    f->api.expect(get);
    f->api.answer(bulk, answer);
    QCOMPARE(toast(), said);
    const bool anyFailed = said.contains("failed"_L1);
    QCOMPARE(f->toasts.toasts().last().tone, anyFailed ? Toasts::Tone::error : Toasts::Tone::success);
    QVERIFY(!many.shown() && many.running().isEmpty() && store->selection()->isEmpty());
    if (action == "delete"_L1) QCOMPARE(shown().size(), anyFailed ? 2 : 1);
    f->api.answer(get, three());
  }

  void whatCannotBeSentIsSaid_data() {
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("problem");
    const auto limit = u"Enter a number from 0 to 2000"_s, gap = u"Enter a number from 0 to 1440"_s;
    const auto host = u"Enter a host name like track.example.com, or track.{domain}"_s;
    for (const auto& text : {u""_s, u"4.5"_s, u"-1"_s, u"2001"_s, u"٤"_s})
      QTest::newRow(qPrintable(u"limit “%1”"_s.arg(text))) << u"set_limit"_s << text << limit;
    QTest::newRow("wait") << u"set_sending_gap"_s << u"1441"_s << gap;
    for (const auto& text :
         {u"a"_s, u"track"_s, u"-a.example"_s, u"a_b.example"_s, u"a.e"_s, u"x."_s + QString(250, u'a')})
      QTest::newRow(qPrintable(u"host “%1”"_s.arg(text.left(20)))) << u"set_tracking_domain"_s << text << host;
  }
  void whatCannotBeSentIsSaid() {
    QFETCH(QString, action);
    QFETCH(QString, typed);
    load({three()});
    store->selection()->toggleAll();
    AccountBulk& many = *store->bulk();
    many.act(action);
    many.setText(typed);
    QVERIFY(many.problem().isEmpty());
    many.submit();
    QTEST(many.problem(), "problem");
    QVERIFY(many.shown() && !many.busy());
    many.setText(u"other"_s);
    QVERIFY(many.problem().isEmpty());
  }

  void whatWasFilledInForManyComesBackAfterACrash() {
    f->journal.open({u"u1"_s, u"https://service.example"_s});
    {
      AccountsStore earlier(*f->context, life->actions);
      earlier.list()->appear();
      f->api.expect(get);
      earlier.ensureLoaded();
      f->api.answer(get, page({account(1)}));
      earlier.selection()->toggleAll();
      earlier.bulk()->act(u"add_tags"_s);
      settle();
      earlier.bulk()->addTags({u"q4"_s});
      f->clock.advance(std::chrono::seconds(2));
      settle();
    }
    load({page({account(1)})});
    store->selection()->toggleAll();
    // Each action has its own.
    store->bulk()->act(u"set_limit"_s);
    settle();
    QVERIFY(store->bulk()->recovery()->notice().isEmpty());
    store->bulk()->cancel();
    store->bulk()->act(u"add_tags"_s);
    settle();
    QCOMPARE(store->bulk()->tags().size(), 1);
    QVERIFY(!store->bulk()->recovery()->notice().isEmpty());
  }

  void theDialogSpeaksOfThoseThatWereTicked() {
    load({page({account(1, R"(,"tags":["q4"])"), account(2)})});
    store->selection()->toggle(u"m1"_s);
    AccountBulk& many = *store->bulk();
    many.act(u"set_limit"_s);
    QCOMPARE(many.intro(), u"Campaign emails each of the 1 selected account can send a day."_s);
    store->selection()->toggleAll();
    QCOMPARE(many.intro(), u"Campaign emails each of the 1 selected account can send a day."_s);
    many.cancel();
    many.act(u"add_tags"_s);
    QCOMPARE(many.intro(), u"To the 2 selected accounts"_s);
    QVERIFY(!many.canSubmit());
    QStringList tags;
    for (int tag = 0; tag < 21; ++tag) tags.append(u" t%1 "_s.arg(tag));
    many.addTags(tags + QStringList{u"T3"_s});
    QCOMPARE(many.tags().size(), 20);
    QCOMPARE(many.problem(), u"20 tags is the most"_s);
    QCOMPARE(many.knownTags().first().label, u"q4"_s);
    many.cancel();
    many.act(u"set_tracking_domain"_s);
    QCOMPARE(many.text(), u"track.{domain}"_s);
  }

  void aBulkRemovalIsTakenBackFourAtATime() {
    QByteArrayList all;
    QStringList ids;
    for (int number = 1; number <= 7; ++number) {
      all.append(account(number));
      ids.append(u"m%1"_s.arg(number));
    }
    load({page(all)});
    store->selection()->toggleAll();
    f->api.expect(bulk);
    store->bulk()->act(u"delete"_s);
    f->api.expect(get);
    f->api.answer(bulk, R"({"ok":6,"failed":[{"id":"m7","message":"No."}]})");
    f->api.answer(get, page({account(7)}));
    QCOMPARE(shown(), QStringList{u"m7"_s});
    QCOMPARE(store->archivedCount(), 2);

    const auto restore = [](int number) { return u"POST /mailboxes/m%1/restore"_s.arg(number); };
    for (int number = 1; number <= 4; ++number) f->api.expect(restore(number));
    f->toasts.act(f->toasts.toasts().last().id);
    QCOMPARE(f->api.waiting(), 4);
    QCOMPARE(f->jobs.running(), 1);
    f->api.expect(restore(5));
    f->api.answer(restore(2), account(2));
    f->api.expect(restore(6));
    f->api.answer(restore(1), refusal, 422);
    for (const int number : {3, 4, 5}) f->api.answer(restore(number), account(number));
    f->api.expect(get);
    f->api.answer(restore(6), account(6));
    QCOMPARE(toast(), u"5 accounts restored 1 failed: Not now: It is being checked."_s);
    QCOMPARE(f->jobs.running(), 0);
    f->api.answer(get, page(all));
  }

  void theArchiveHasThoseRemoved() {
    load({three()});
    f->api.expect(get);
    store->setShowArchived(true);
    QCOMPARE(asked(u"archived"_s), u"1"_s);
    f->api.answer(get, page({account(8), account(9), account(5, {}, "active", "pool")}));
    QCOMPARE(store->archived()->shownIds(), (QStringList{u"m8"_s, u"m9"_s}));
    QCOMPARE(store->archivedCountText(), u"2 archived accounts"_s);
    store->act(u"delete"_s, u"m9"_s);
    f->api.expect(u"DELETE /mailboxes/m9"_s);
    f->overlays.answer(f->overlays.token(), true);
    QCOMPARE(asked(u"permanent"_s), u"1"_s);
    f->api.answer(u"DELETE /mailboxes/m9"_s, {}, 204);
    QCOMPARE(toast(), u"a9@x.example deleted for good"_s);
    QCOMPARE(store->archived()->shownIds(), QStringList{u"m8"_s});
    QCOMPARE(store->archivedCount(), 1);

    f->api.expect(u"POST /mailboxes/m8/restore"_s);
    store->act(u"restore"_s, u"m8"_s);
    f->api.expect(get);
    f->api.answer(u"POST /mailboxes/m8/restore"_s, account(8));
    QVERIFY(store->archived()->shownIds().isEmpty());
    f->api.answer(get, page({account(8), account(1)}));
    QCOMPARE(shown(), (QStringList{u"m8"_s, u"m1"_s}));
  }

  void checksThatWereBegunAreLookedAfter() {
    load({page({account(1), account(2)}, "a"), page({account(3)})});
    store->selection()->toggle(u"m3"_s);
    f->api.expect(bulk);
    store->bulk()->act(u"verify"_s);
    f->api.expect(get);
    f->api.answer(bulk, R"({"ok":1,"failed":[]})");
    f->api.expect(get);
    f->api.answer(get, page({account(1), account(2)}, "a"));
    f->api.answer(get, page({account(3, {}, "verifying")}));
    // Only where somebody is being checked.
    f->api.expect(get);
    f->clock.advance(6s);
    settle();
    QCOMPARE(asked(u"cursor"_s), u"a"_s);
    f->api.answer(get, page({account(3)}));
    f->clock.advance(6s);
    settle();
    QCOMPARE(f->api.waiting(), 0);
  }

  void whoMayOnlyLookChangesNothing() {
    load({three()});
    WorkspaceSummary viewer = f->context->workspace();
    viewer.role = {u"viewer"_s};
    f->context->setWorkspace(viewer);
    QCOMPARE(store->addHint(), u"Only members can add accounts."_s);
    store->selection()->toggleAll();
    store->bulk()->act(u"pause"_s);
    QVERIFY(!store->act(u"pause"_s, u"m1"_s));
    QVERIFY(!store->act(u"new"_s));
  }
};

QTEST_GUILESS_MAIN(AccountsTest)
#include "accounts_test.moc"
