#include <QSignalSpy>
#include <QTest>

#include "app/shell/Notifier.h"
#include "kit/api/JSONCoding.h"
#include "kit/models/inbox/inboxThread.h"
#include "kit/session/authRequests.h"
#include "tests/support/AppFixture.h"
#include "tests/support/FakeNotifications.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto counts = u"GET /api/v1/auth/me/unread"_s;
const auto threads = u"GET /inbox/threads"_s;
const auto dashboard = u"GET /dashboard"_s;
const auto mailboxes = u"GET /mailboxes"_s;

QByteArray unread(qint64 count, const QByteArray& latest, qint64 elsewhere = 0) {
  return R"({"total":9,"workspaces":[{"slug":"acme","name":"A","unread":)" + QByteArray::number(count) +
         R"(,"others":0,"latestAt":")" + latest + R"("},{"slug":"north","name":"N","others":0,"unread":)" +
         QByteArray::number(elsewhere) + "}]}";
}

InboxThread replyIn(const QString& id, bool isUnread = true) {
  InboxThread made;
  made.id = id;
  made.contactName = u"Mara \u202E"_s + id;
  made.label = ThreadLabel(u"interested"_s);
  made.subject = u"Re: <b>Q3</b>"_s;
  made.snippet = u"Yes & when?"_s;
  made.status = u"open"_s;
  made.unread = isUnread;
  made.lastInboundAt = u"2026-11-21T12:00:30Z"_s;
  return made;
}

QByteArray pageOf(const QStringList& ids) {
  ThreadPage page;
  for (const QString& id : ids) page.items.append(replyIn(id));
  return encodeJSON(page);
}

QByteArray failed(qint64 count) {
  return R"({"day":"2026-11-21","timeZone":"UTC","inbox":{"total":9,"active":9,"paused":0,"verifying":0,"failed":)" +
         QByteArray::number(count) + "}}";
}

QByteArray accounts(const QStringList& failing) {
  QList<QByteArray> items;
  for (const QString& id : QStringList{u"mb1"_s, u"mb2"_s, u"mb3"_s, u"mb4"_s, u"mb5"_s, u"mb6"_s})
    items.append(
        R"({"id":")" + id.toUtf8() + R"(","address":")" + id.toUtf8() +
        R"(@a.example","displayName":"","provider":"","role":"sender","dailyCap":1,"createdAt":"","status":")" +
        (failing.contains(id) ? "failed" : "active") +
        R"(","warmup":{"sentToday":0,"receivedToday":0,"replies7d":0,"placed7d":0,"spam7d":0}})");
  return R"({"items":[)" + items.join(',') + "]}";
}

}  // namespace

class NotifierTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<FakeNotifications> desktop;
  std::unique_ptr<Notifier> notifier;
  QStringList places;

  Task<UnreadCounts> ask() { co_return co_await f->api.send(Requests::unreadCounts(), {}, u"t"_s); }
  void make() {
    notifier =
        std::make_unique<Notifier>(f->clock, f->preferences, f->navigator, desktop.get(), [this] { return ask(); });
    notifier->onPlaceAsked = [this](Page page, const PagePlace& place) {
      places.append(Pages::name(page) + u'/' + place.tab);
    };
    notifier->enter(f->context);
  }
  void begin() {
    make();
    f->api.expect(counts);
    notifier->begin();
  }
  /// A look that finds only what `answer` says, and no failed accounts.
  void finish(const QByteArray& answer, qint64 failures = 0) {
    f->api.expect(dashboard);
    f->api.answer(counts, answer);
    f->api.answer(dashboard, failed(failures));
  }
  void nextLook() {
    f->api.expect(counts);
    f->clock.advance(60s);
  }
  void bring(const QStringList& interested, const QStringList& booked = {},
             const QByteArray& latest = "2026-11-21T12:00:30Z") {
    f->api.expect(threads);
    f->api.answer(counts, unread(5, latest));
    f->api.expect(threads);
    f->api.answer(threads, pageOf(interested));
    f->api.expect(dashboard);
    f->api.answer(threads, pageOf(booked));
    f->api.answer(dashboard, failed(0));
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    desktop = std::make_unique<FakeNotifications>();
    places.clear();
  }
  void cleanup() {
    notifier.reset();
    f.reset();
  }

  void looksEveryMinuteAndNeverTwiceAtOnce() {
    make();
    f->clock.advance(180s);
    QVERIFY2(f->api.sent().empty(), "nobody had it begin");
    f->api.expect(counts);
    notifier->begin();
    notifier->setActive(true);
    f->clock.advance(600s);
    QCOMPARE(f->api.sent().size(), 1);
    finish(unread(3, "2026-11-21T11:00:00Z", 4));
    QCOMPARE(notifier->unread(), (QVariantMap{{u"acme"_s, 3}, {u"north"_s, 4}}));
    QCOMPARE(f->context->unread(), 3);
    f->clock.advance(59s);
    QCOMPARE(f->api.waiting(), 0);
    f->api.expect(counts);
    f->clock.advance(1s);
    f->api.fail(counts, TransportFailure::offline);
    // Who comes back to the window does not wait for the minute, and the minute begins anew.
    f->clock.advance(30s);
    f->api.expect(counts);
    notifier->setActive(true);
    finish(unread(2, "2026-11-21T11:00:00Z"));
    f->clock.advance(59s);
    QCOMPARE(f->api.waiting(), 0);
    nextLook();
    notifier->leave();
    QVERIFY(f->api.cancelled().contains(counts));
    f->clock.advance(600s);
    QVERIFY(notifier->unread().isEmpty());
  }

  void theFirstRunOnlyRemembersWhereItBegan() {
    begin();
    finish(unread(3, "2026-11-21T11:00:00Z"));
    QCOMPARE(f->preferences.notifySince(u"acme"_s), u"2026-11-21T11:00:00Z"_s);
    QSignalSpy came(f->context.get(), &WorkspaceContext::mailCame);
    nextLook();
    finish(unread(3, "2026-11-21T11:00:00Z"));
    QCOMPARE(came.size(), 0);
    nextLook();
    bring({u"t1"_s});
    QCOMPARE(came.size(), 1);
    QCOMPARE(desktop->shown.size(), 1);
    const auto told = desktop->shown.first();
    QVERIFY2(told.title.startsWith(u"Mara"_s) && !told.title.contains(u'\u202E'), qPrintable(told.title));
    QVERIFY(told.title.endsWith(u"Interested"_s));
    QCOMPARE(told.body, u"Re: <b>Q3</b>\nYes & when?"_s);
    QCOMPARE(f->preferences.notifySince(u"acme"_s), u"2026-11-21T12:00:30Z"_s);
    const auto query = f->api.sent()[f->api.sent().size() - 3].request.query;
    QVERIFY(query.contains({u"since"_s, u"2026-11-21T11:00:00Z"_s}));
  }

  void whatWasToldIsNotToldAgain() {
    f->preferences.toldUntil[u"acme"_s] = u"2026-11-21T11:00:00Z"_s;
    begin();
    f->api.expect(threads);
    f->api.answer(counts, unread(5, "2026-11-21T12:00:30Z"));
    f->api.expect(threads);
    f->api.answer(threads, pageOf({u"t1"_s}));
    f->api.fail(threads, TransportFailure::offline);
    QCOMPARE(desktop->shown.size(), 0);
    QVERIFY2(f->preferences.notifySince(u"acme"_s) == u"2026-11-21T11:00:00Z"_s, "half an answer is asked for again");
    nextLook();
    bring({u"t1"_s}, {u"t2"_s});
    QCOMPARE(desktop->shown.size(), 2);
    nextLook();
    bring({u"t1"_s}, {}, "2026-11-21T12:00:31Z");
    QCOMPARE(desktop->shown.size(), 2);
  }

  void manyAreToldAsOne() {
    f->preferences.toldUntil[u"acme"_s] = u"2026-11-21T11:00:00Z"_s;
    begin();
    bring({u"t1"_s, u"t2"_s, u"t3"_s, u"t4"_s}, {u"t5"_s, u"t1"_s});
    QCOMPARE(desktop->shown.size(), 1);
    QCOMPARE(desktop->shown.first().title, u"5 new positive replies"_s);
    nextLook();
    f->api.expect(threads);
    f->api.answer(counts, unread(0, "2026-11-21T12:00:31Z"));
    f->api.expect(threads);
    f->api.answer(threads, pageOf({}));
    f->api.expect(dashboard);
    f->api.answer(threads, pageOf({}));
    f->api.expect(mailboxes);
    f->api.answer(dashboard, failed(5));
    f->api.answer(mailboxes, accounts({u"mb1"_s, u"mb2"_s, u"mb3"_s, u"mb4"_s, u"mb5"_s}));
    QCOMPARE(desktop->shown.size(), 2);
    QCOMPARE(desktop->shown.last().title, u"5 accounts failed"_s);
    // Where they all are, in the workspace that they are in.
    f->navigator.slug = u"north"_s;
    for (const auto& told : desktop->shown) Q_EMIT desktop->followed(told.id, {});
    QCOMPARE(places, (QStringList{u"inbox/unread"_s, u"accounts/failed"_s}));
    QCOMPARE(f->navigator.slug, u"acme"_s);
  }

  void manyGoWithTheLastOfThem() {
    f->preferences.toldUntil[u"acme"_s] = u"2026-11-21T11:00:00Z"_s;
    f->navigator.openItem(Page::inbox, u"t6"_s);
    begin();
    notifier->setActive(true);
    const QStringList ids{u"t1"_s, u"t2"_s, u"t3"_s, u"t4"_s, u"t5"_s};
    bring(ids + QStringList{u"t6"_s});
    // Whoever is on the screen is not counted.
    QCOMPARE(desktop->shown.first().title, u"5 new positive replies"_s);
    for (const QString& id : ids) {
      QVERIFY(desktop->withdrawn.isEmpty());
      f->context->changes().publish(replyIn(id, false), f->context->changes().stamp(), true);
    }
    QCOMPARE(desktop->withdrawn, QStringList{desktop->shown.first().id});
  }

  void whereNobodyHasWrittenTheFirstIsNews() {
    f->clock.advance(24h * 365);
    begin();
    finish(unread(0, ""));
    nextLook();
    bring({u"t1"_s});
    QCOMPARE(desktop->shown.size(), 1);
    QVERIFY(f->api.sent()[f->api.sent().size() - 3].request.query.contains({u"since"_s, u"1970-01-01T00:00:00Z"_s}));
  }

  void whatIsOnTheScreenIsNotTold() {
    f->preferences.toldUntil[u"acme"_s] = u"2026-11-21T11:00:00Z"_s;
    f->navigator.openItem(Page::inbox, u"t1"_s);
    begin();
    notifier->setActive(true);
    bring({u"t1"_s, u"t2"_s});
    QCOMPARE(desktop->shown.size(), 1);
    QVERIFY(desktop->shown.first().id.endsWith(u"t2"_s));
    // Behind another window, the open one is as good as closed.
    notifier->setActive(false);
    f->navigator.openItem(Page::inbox, u"t3"_s);
    nextLook();
    bring({u"t3"_s}, {}, "2026-11-21T12:01:00Z");
    QCOMPARE(desktop->shown.size(), 2);
  }

  void followingOneLeadsToItsThread() {
    f->preferences.toldUntil[u"acme"_s] = u"2026-11-21T11:00:00Z"_s;
    begin();
    bring({u"t1"_s, u"t2"_s});
    QSignalSpy followed(notifier.get(), &Notifier::followed);
    f->navigator.slug = u"north"_s;
    Q_EMIT desktop->followed(desktop->shown.first().id, u"token"_s);
    QCOMPARE(followed, (QList<QVariantList>{{u"token"_s}}));
    QCOMPARE(f->navigator.slug, u"acme"_s);
    QCOMPARE(f->navigator.item, u"t1"_s);
    // Read here, it has nothing more to say there.
    f->context->changes().publish(replyIn(u"t2"_s, false), f->context->changes().stamp(), true);
    QCOMPARE(desktop->withdrawn, QStringList{desktop->shown.last().id});
    Q_EMIT desktop->followed(u"reply/acme/of yesterday"_s, {});
    QCOMPARE(followed.size(), 2);
    QCOMPARE(f->navigator.item, u"t1"_s);
  }

  void nothingStaysBehindAfterSigningOut() {
    f->preferences.toldUntil[u"acme"_s] = u"2026-11-21T11:00:00Z"_s;
    begin();
    bring({u"t1"_s});
    notifier->leave();
    QCOMPARE(desktop->withdrawn.size(), 1);
  }

  void aFailedAccountIsToldOnce() {
    f->preferences.toldFailures[u"acme"_s] = QStringList{u"mb1"_s};
    begin();
    finish(unread(0, ""), 1);
    QCOMPARE(desktop->shown.size(), 0);
    QStringList heard;
    f->context->changes().watch<Mailbox>(desktop.get(), [&heard](const Change<Mailbox>& change) {
      if (change.record) heard.append(change.id);
    });
    nextLook();
    f->api.expect(dashboard);
    f->api.answer(counts, unread(0, ""));
    f->api.expect(mailboxes);
    f->api.answer(dashboard, failed(2));
    f->api.answer(mailboxes, accounts({u"mb1"_s, u"mb3"_s}));
    QVERIFY2(heard.contains(u"mb3"_s), "the page that the notification leads to shows it");
    QCOMPARE(desktop->shown.size(), 1);
    QVERIFY(desktop->shown.first().title.startsWith(u"mb3@a.example"_s));
    QCOMPARE(f->preferences.failedAccounts(u"acme"_s), (QStringList{u"mb1"_s, u"mb3"_s}));
    nextLook();
    finish(unread(0, ""), 2);
    Q_EMIT desktop->followed(desktop->shown.first().id, {});
    QCOMPARE(f->navigator.page, Page::accounts);
    QCOMPARE(f->navigator.item, u"mb3"_s);
    nextLook();
    f->api.expect(dashboard);
    f->api.answer(counts, unread(0, ""));
    f->api.expect(mailboxes);
    f->api.answer(dashboard, failed(3));
    f->api.answer(mailboxes, accounts({u"mb1"_s, u"mb2"_s, u"mb3"_s}));
    QCOMPARE(desktop->shown.size(), 2);
    // What is true no longer is taken back.
    nextLook();
    finish(unread(0, ""), 0);
    QVERIFY(f->preferences.failedAccounts(u"acme"_s).isEmpty());
    QCOMPARE(desktop->withdrawn, QStringList{desktop->shown.last().id});
  }

  void whoWantsToHearNothingHearsNothing() {
    f->preferences.toldUntil[u"acme"_s] = u"2026-11-21T11:00:00Z"_s;
    f->preferences.tellsOfReplies = f->preferences.tellsOfAccounts = false;
    begin();
    f->api.expect(dashboard);
    f->api.answer(counts, unread(5, "2026-11-21T12:00:30Z"));
    // The mark on the accounts is no message.
    f->api.answer(dashboard, failed(2));
    QCOMPARE(notifier->attention(), 2);
    QCOMPARE(f->api.waiting(), 0);
    QVERIFY(desktop->shown.isEmpty());
    QCOMPARE(f->preferences.notifySince(u"acme"_s), u"2026-11-21T12:00:30Z"_s);
    QCOMPARE(f->context->unread(), 5);
  }

  void aWorkspaceThatIsMissingIsAskedForItself() {
    begin();
    f->api.expect(threads);
    f->api.answer(counts, R"({"total":0,"workspaces":[]})");
    f->api.expect(dashboard);
    f->api.answer(threads, R"({"items":[],"counts":{"total":9,"unread":7,"drafts":1}})");
    f->api.answer(dashboard, failed(0));
    QCOMPARE(f->context->unread(), 7);
  }

  void whatIsDoneHereIsNewerThanWhatWasAsked() {
    begin();
    f->context->setUnread(8);
    finish(unread(9, "2026-11-21T11:00:00Z"));
    QCOMPARE(f->context->unread(), 8);
    nextLook();
    finish(unread(9, "2026-11-21T11:00:00Z"));
    QCOMPARE(f->context->unread(), 9);
  }
};

QTEST_GUILESS_MAIN(NotifierTest)
#include "notifier_test.moc"
