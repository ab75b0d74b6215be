#include <QAbstractItemModelTester>
#include <QTest>

#include "app/deliverability/DeliverabilityStore.h"
#include "app/deliverability/WatcherWords.h"
#include "kit/api/JSONCoding.h"
#include "kit/models/mailboxes/mailbox.h"
#include "tests/support/AppFixture.h"
#include "tests/support/cell.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto get = u"GET /deliverability"_s;
const auto one = u"GET /deliverability/inboxes/m1"_s;

DeliverabilityInbox inbox(const QString& id, const QString& stage, std::optional<double> rate, qint64 checks = 98) {
  DeliverabilityInbox made;
  made.id = id;
  made.address = id + u"@a.example"_s;
  made.provider = u"google"_s;
  if (!stage.isEmpty()) made.stage = stage;
  made.inboxRate = rate;
  made.n = rate ? checks : 0;
  made.lastScanAt = u"2026-11-20T08:20:00Z"_s;
  made.verdict = u"Go on"_s;
  return made;
}

DeliverabilityReport report(const QList<DeliverabilityInbox>& inboxes) {
  DeliverabilityReport made;
  made.automatic = true;
  made.lastScanAt = u"2026-11-20T08:20:00Z"_s;
  made.pool = {0.958, 1204};
  made.inboxes = inboxes;
  return made;
}

const QList<DeliverabilityInbox>& someInboxes() {
  static const QList<DeliverabilityInbox> inboxes{
      inbox(u"m1"_s, u"quarantine"_s, 0.714), inbox(u"m2"_s, u"live"_s, 0.9996), inbox(u"m3"_s, u"repair"_s, 0.796),
      inbox(u"m4"_s, u"rampup"_s, 0.93), inbox(u"m5"_s, u"hibernation"_s, std::nullopt)};
  return inboxes;
}

}  // namespace

class DeliverabilityTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<DeliverabilityStore> store;

  void load(const DeliverabilityReport& given) {
    store->report()->appear();
    f->api.expect(get);
    store->ensureLoaded();
    f->api.answer(get, encodeJSON(given));
  }
  QString said(int row, const QByteArray& name) const { return test::cell(*store->rows(), row, name).toString(); }
  QStringList shown() const {
    QStringList ids;
    for (const DeliverabilityInbox& row : store->rows()->records()) ids.append(row.id);
    return ids;
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    store = std::make_unique<DeliverabilityStore>(*f->context);
  }
  void cleanup() {
    store.reset();
    f.reset();
  }

  void theWatcherSumsUp() {
    DeliverabilityReport given = report(someInboxes());
    QCOMPARE(WatcherWords::summary(given),
             u"1 of your 5 inboxes are live, 1 are ramping and 2 are repairing. Sending inboxes are at 95.8%, 4 have "
             u"real checks behind them."_s);
    given.automatic = false;
    QVERIFY(WatcherWords::summary(given).endsWith(
        u" Watching only. I log what I would do and change nothing on your inboxes."_s));
    given.automatic = true;
    given.pool.inboxRate.reset();
    QVERIFY(WatcherWords::summary(given).endsWith(u"are repairing. 4 have real checks behind them."_s));
    for (DeliverabilityInbox& each : given.inboxes) each.n = 0;
    QVERIFY(WatcherWords::summary(given).endsWith(
        u"repairing. None have warm-up checks in the last 7 days, so I have no placement numbers yet."_s));
    given.lastScanAt.reset();
    QCOMPARE(WatcherWords::summary(given),
             u"I can see 5 inboxes and haven’t scanned them yet. The first scan runs within the hour."_s);
    given.inboxes.clear();
    QCOMPARE(WatcherWords::summary(given), u"No sending inboxes yet. I start watching as soon as one is connected."_s);
  }

  void stagesCountUnderTheirTabs() {
    QAbstractItemModelTester tester(store->rows(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(store->stages().first().count, -1);
    load(report(someInboxes()));
    QList<int> counts;
    for (const Choice& tab : store->stages()) counts.append(tab.count);
    QCOMPARE(counts, (QList<int>{5, 1, 1, 2}));
    store->setStage(u"repair"_s);
    QCOMPARE(shown(), (QStringList{u"m1"_s, u"m3"_s}));
    QCOMPARE(said(0, "stageLabel"), u"Quarantine"_s);
    QCOMPARE(store->countText(), u"2 of 5 inboxes"_s);
    store->showAll();
    QCOMPARE(said(4, "stageLabel"), u"Hibernation"_s);
    QCOMPARE(said(4, "stageTone"), u"neutral"_s);
  }

  void ratesAreFractionsOfOne() {
    DeliverabilityInbox unscanned = inbox(u"m6"_s, {}, std::nullopt);
    unscanned.lastScanAt.reset();
    load(report(someInboxes() + QList{unscanned}));
    QCOMPARE(said(0, "rateText"), u"71.4%"_s);
    for (const auto& [row, low] : {std::pair(0, true), {2, true}, {1, false}})
      QCOMPARE(test::cell(*store->rows(), row, "rateLow").toBool(), low);
    QCOMPARE(said(1, "rateText"), u"100.0%"_s);
    QCOMPARE(said(0, "checksText"), u"From 98 checks, last 7 days"_s);
    QCOMPARE(said(4, "rateText"), u"–"_s);
    QCOMPARE(said(5, "rateText"), u"Not scanned"_s);
  }

  void whatHasNoRateComesLast_data() {
    QTest::addColumn<bool>("descending");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("worst first") << false << QStringList{u"m1"_s, u"m3"_s, u"m4"_s, u"m2"_s, u"m5"_s};
    QTest::newRow("best first") << true << QStringList{u"m2"_s, u"m4"_s, u"m3"_s, u"m1"_s, u"m5"_s};
  }
  void whatHasNoRateComesLast() {
    QFETCH(bool, descending);
    load(report(someInboxes()));
    store->sort(u"rate"_s, descending);
    QTEST(shown(), "order");
    store->sort({}, false);
    QCOMPARE(shown().first(), u"m1"_s);
  }

  void anInboxShowsWhatTheListKnowsUntilItsAnswer() {
    load(report(someInboxes()));
    f->api.expect(one);
    store->open(u"m1"_s);
    QCOMPARE(store->inbox()->figures().first().value, u"71.4%"_s);
    QVERIFY(!store->inbox()->figures().first().warning.isEmpty());
    DeliverabilityInboxDetail detail{someInboxes().first(), {{u"2026-11-20"_s, 0.7142}}, {}};
    detail.inbox.inboxRate = 0.72;
    detail.inbox.z = -3.14;
    const auto decision = [](const QString& id, bool executed) {
      return DeliverabilityDecision{id,
                                    u"m1"_s,
                                    u"m1@a.example"_s,
                                    u"2026-11-18T09:10:00Z"_s,
                                    u"live"_s,
                                    u"quarantine"_s,
                                    u"Move"_s,
                                    u"placement"_s,
                                    u"16 points under"_s,
                                    executed};
    };
    detail.decisions = {decision(u"d1"_s, true), decision(u"d2"_s, false)};
    detail.decisions[1].toStage.reset();
    f->api.answer(one, encodeJSON(detail));
    QCOMPARE(store->inbox()->figures().last().value, u"−3.1"_s);
    QCOMPARE(store->inbox()->series().first().toMap().value(u"values"_s).toList().first().toDouble(), 71.4);
    const auto& decisions = store->inbox()->decisions()->records();
    QCOMPARE(decisions.at(0).title, u"Live → Quarantine"_s);
    QCOMPARE(decisions.at(0).mark, u"Done"_s);
    QCOMPARE(decisions.at(1).title, u"Move"_s);
    QCOMPARE(decisions.at(1).mark, u"Would do"_s);
    // The list says the same.
    QCOMPARE(said(0, "rateText"), u"72.0%"_s);
    store->closeInbox();
    QVERIFY(store->inbox()->id().isEmpty());
  }

  void anAnswerForTheInboxBeforeIsNotShown() {
    load(report(someInboxes()));
    const QString two = u"GET /deliverability/inboxes/m2"_s;
    f->api.expect(one);
    store->open(u"m1"_s);
    f->api.expect(two);
    store->open(u"m2"_s);
    QVERIFY(!f->api.isWaiting(one));
    f->api.answer(two, encodeJSON(DeliverabilityInboxDetail{someInboxes().at(1), {}, {}}));
    QCOMPARE(store->inbox()->address(), u"m2@a.example"_s);
    // One that the watcher sees no longer closes.
    f->api.expect(get);
    store->report()->load();
    f->api.answer(get, encodeJSON(report({someInboxes().first()})));
    QVERIFY(store->inbox()->id().isEmpty());
  }

  void whatHappensToAccountsIsLookedAtAnew() {
    load(report(someInboxes()));
    f->api.expect(get);
    f->context->changes().stale<Mailbox>(u"m1"_s);
    settle();
    f->api.answer(get, encodeJSON(report(someInboxes())));
    store->report()->disappear();
    f->context->changes().gone<Mailbox>(u"m1"_s, f->context->changes().stamp());
    settle();
    QVERIFY(!f->api.isWaiting(get));
    QVERIFY(store->report()->needsLoad());
  }
};

QTEST_GUILESS_MAIN(DeliverabilityTest)
#include "deliverability_test.moc"
