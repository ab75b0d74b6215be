#include <QAbstractItemModelTester>

#include "kit/models/mailboxes/mailbox.h"
#include "tests/app/rampup/RampupFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

RoadmapPlan paused(const QString& by) {
  RoadmapPlan plan = somePlan(24, u"paused"_s);
  plan.pausedBy = by;
  return plan;
}

QByteArray done(qint64 ok, const QByteArray& failed = {}) {
  return R"({"ok":)" + QByteArray::number(ok) + R"(,"failed":[)" + failed + "]}";
}

}  // namespace

class RampupTest : public QObject {
  Q_OBJECT

  std::unique_ptr<RampupFixture> f;

  RampupBulk& bulk() { return *f->store.bulk(); }

 private Q_SLOTS:
  void init() { f = std::make_unique<RampupFixture>(); }
  void cleanup() { f.reset(); }

  void phasesFollowThePlan_data() {
    QTest::addColumn<QString>("phase");
    QTest::addColumn<QString>("standing");
    QTest::addColumn<QString>("warning");
    QTest::newRow("m1") << u"Ramp-up"_s << u"Day 24 of 42 · Slow ramp"_s << QString();
    QTest::newRow("m2") << u"Warm-up"_s << u"Day 9 of 42 · Warm-up only"_s << QString();
    QTest::newRow("m3") << u"Live-ready"_s << u"Day 40 of 42 · Full volume"_s << QString();
    QTest::newRow("m4") << u"Live-ready"_s << u"Finished · full volume"_s << QString();
    QTest::newRow("m5") << u"Pending"_s << u"Starts 28 Oct"_s << QString();
    QTest::newRow("m6") << u"Pending"_s << u"Not on a roadmap"_s << QString();
    QTest::newRow("m7") << u"Ramp-up"_s << u"Day 24"_s << u"Paused by auto-protect"_s;
    QTest::newRow("m8") << u"Ramp-up"_s << u"Day 24 of 42 · Paused"_s << QString();
    QTest::newRow("m9") << u"Pending"_s << u"Only warms up the others"_s << QString();
    QTest::newRow("m10") << u"Pending"_s << u"Starts 28 Oct"_s << QString();
  }
  void phasesFollowThePlan() {
    RampupItem pool = someItem(u"m9"_s, std::nullopt);
    pool.role = u"pool"_s;
    f->load({someItem(u"m1"_s), someItem(u"m2"_s, somePlan(9)), someItem(u"m3"_s, somePlan(40)),
             someItem(u"m4"_s, somePlan(42, u"done"_s)), someItem(u"m5"_s, somePlan(0, u"scheduled"_s)),
             someItem(u"m6"_s, std::nullopt), someItem(u"m7"_s, paused(u"auto"_s)),
             someItem(u"m8"_s, paused(u"member"_s)), pool, someItem(u"m10"_s, somePlan(1, u"scheduled"_s))});
    QFETCH(QString, phase);
    QFETCH(QString, standing);
    QFETCH(QString, warning);
    const QString id = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(f->text(id, "phaseLabel"), phase);
    QCOMPARE(f->text(id, "standingText"), standing);
    QCOMPARE(f->text(id, "warning"), warning);
  }

  void theHeadSumsUpAndTheFilterKeepsThePhase() {
    QAbstractItemModelTester tester(f->store.list()->rows(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    f->load({someItem(u"m1"_s), someItem(u"m2"_s, somePlan(9)), someItem(u"m3"_s, paused(u"auto"_s)),
             someItem(u"m4"_s, std::nullopt)});
    QCOMPARE(f->store.summary(), u"3 on a roadmap · 68 of 84 warm-up emails sent today"_s);
    QCOMPARE(f->store.protectedText(), u"1 paused by auto-protect"_s);
    QList<int> counts;
    for (const Choice& phase : f->store.phases()) counts.append(phase.count);
    QCOMPARE(counts, (QList<int>{4, 1, 1, 2, 0}));
    f->store.setFilter(u"rampup"_s);
    QCOMPARE(f->store.list()->shownIds(), (QStringList{u"m1"_s, u"m3"_s}));
    QCOMPARE(f->store.countText(), u"2 of 4 accounts"_s);
    bulk().selection()->toggleAll();
    QCOMPARE(bulk().selection()->ids(), (QStringList{u"m1"_s, u"m3"_s}));
    f->store.setFilter(u"live"_s);
    QCOMPARE(f->store.list()->shownCount(), 0);
    f->store.showAll();
    QCOMPARE(f->store.list()->shownCount(), 4);
    f->store.sort(u"address"_s, true);
    QCOMPARE(f->store.list()->shownIds().first(), u"m4"_s);
  }

  void tenThousandAreTakenOverInPartsOfOneAnswer() {
    QList<RampupItem> items;
    for (int i = 0; i < 2500; ++i) items.append(someItem(u"m%1"_s.arg(i)));
    const auto& list = *f->store.list();
    QList<int> read;
    connect(&list, &ResourceBase::valueChanged, this, [&] { read.append(list.readCount()); });
    f->load(items);
    QTRY_COMPARE(list.readCount(), 2500);
    QVERIFY2(read.first() < 2500, "taken over at once, which holds the window");
    QTRY_VERIFY(!list.refreshing() && !list.loadingMore());
    QCOMPARE(list.shownIds().last(), u"m2499"_s);
    QCOMPARE(f->asked(f->get), 1);

    // Asked again between two parts: what is left of the answer before is not taken over any more.
    const auto again = [this](const QList<RampupItem>& given) {
      f->api.expect(f->get);
      f->store.list()->load();
      f->api.answer(f->get, listOf(given));
    };
    again(items.first(2000));
    again(items.first(1500));
    QTRY_COMPARE(list.readCount(), 1500);
    QCOMPARE(f->asked(f->get), 3);
  }

  void aBulkChangeIsOneRequestAndTellsWhatWasSkipped() {
    f->load({someItem(u"m1"_s), someItem(u"m2"_s), someItem(u"m3"_s)});
    bulk().selection()->toggleAll();
    QCOMPARE(bulk().countText(), u"3 mailbox selected"_s);
    f->api.expect(f->bulk);
    bulk().extend();
    bulk().pause();
    QCOMPARE(bulk().busy(), u"extend"_s);
    QCOMPARE(f->sentBody(), (QJsonObject{{u"action"_s, u"extend"_s},
                                         {u"days"_s, 7},
                                         {u"mailboxIds"_s, QJsonArray{u"m1"_s, u"m2"_s, u"m3"_s}}}));
    f->api.expect(f->get);
    f->api.answer(f->bulk, done(2, R"({"mailboxId":"m3","message":"It is too long."})"));
    QCOMPARE(f->lastToast(), u"2 roadmaps extended by 7 days, 1 skipped: It is too long."_s);
    QVERIFY(bulk().busy().isEmpty() && bulk().selection()->isEmpty());
    // Only counts came, so that the list is read again, once.
    f->api.answer(f->get, listOf({someItem(u"m1"_s)}));
    QCOMPARE(f->asked(f->get), 2);
  }

  void aFailedBulkChangeLeavesTheTicks() {
    f->load({someItem(u"m1"_s)});
    bulk().selection()->toggleAll();
    f->api.expect(f->bulk);
    bulk().resume();
    // It may have acted all the same.
    f->api.expect(f->get);
    f->api.answer(f->bulk, "{}", 500);
    f->api.answer(f->get, listOf({someItem(u"m1"_s)}));
    QCOMPARE(f->lastToast(), u"Couldn’t update the roadmaps."_s);
    QCOMPARE(bulk().selection()->count(), 1);
    QVERIFY(bulk().busy().isEmpty());
  }

  void warmupIsSwitchedFourAtATimeAndToldOnce() {
    QList<RampupItem> items;
    for (int i = 1; i <= 6; ++i) items.append(someItem(u"m%1"_s.arg(i)));
    f->load(items);
    bulk().selection()->toggleAll();
    const auto patch = [](int i) { return u"PATCH /rampup/m%1/settings"_s.arg(i); };
    for (int i = 1; i <= 4; ++i) f->api.expect(patch(i));
    bulk().switchWarmup(false);
    settle();
    QCOMPARE(f->api.waiting(), 4);
    QCOMPARE(f->sentBody(), (QJsonObject{{u"enabled"_s, false}}));
    // While it runs no other bulk action goes out, nor the same again.
    bulk().switchWarmup(false);
    bulk().pause();
    QCOMPARE(bulk().busy(), u"pause-warmup"_s);
    f->api.expect(patch(5));
    items[0].settings.enabled = false;
    f->api.answer(patch(1), detailOf(items[0]));
    QCOMPARE(f->store.find(u"m1"_s)->settings.enabled, false);
    f->api.expect(patch(6));
    f->api.answer(patch(2), R"({"title":"Not now"})", 422);
    for (int i = 3; i <= 5; ++i) f->api.answer(patch(i), detailOf(items[i - 1]));
    f->api.expect(f->get);
    f->api.answer(patch(6), detailOf(items[5]));
    f->api.answer(f->get, listOf(items));
    settle();
    QCOMPARE(f->toasts.count(), 1);
    QCOMPARE(f->lastToast(), u"Warm-up paused on 5 mailboxes. Couldn’t update m2@a.example"_s);
    QCOMPARE(f->toasts.toasts().last().detail, u"Not now"_s);
    QCOMPARE(f->jobs.running(), 0);
    QVERIFY(bulk().busy().isEmpty());
    QCOMPARE(bulk().selection()->ids(), QStringList{u"m2"_s});
  }

  void aRowIsReadAheadOnce() {
    const QString one = u"GET /rampup/m1"_s;
    f->load({someItem(u"m1"_s)});
    RampupDetails& details = *f->store.details();
    details.look(u"m1"_s);
    details.look({});
    f->clock.advance(1s);
    QCOMPARE(f->asked(one), 0);
    f->api.expect(one);
    details.look(u"m1"_s);
    f->clock.advance(ReadAhead<RampupDetail>::restFor);
    settle();
    details.prefetch(u"m1"_s);
    QCOMPARE(f->asked(one), 1);
    f->api.answer(one, detailOf(someItem(u"m1"_s)));
    QVERIFY(details.find(u"m1"_s));
    details.prefetch(u"m1"_s);
    f->clock.advance(RampupDetails::freshFor + 1s);
    QVERIFY(!details.find(u"m1"_s));
    // What was asked for before a change knows nothing of it.
    f->api.expect(one);
    details.prefetch(u"m1"_s);
    settle();
    details.forget(u"m1"_s);
    f->api.answer(one, detailOf(someItem(u"m1"_s)));
    QVERIFY(!details.find(u"m1"_s));
  }

  void accountsThatGoElsewhereGoHere() {
    f->load({someItem(u"m1"_s), someItem(u"m2"_s)});
    bulk().selection()->toggleAll();
    f->context->changes().gone<Mailbox>(u"m1"_s, f->context->changes().stamp());
    settle();
    QCOMPARE(f->store.list()->shownIds(), QStringList{u"m2"_s});
    f->api.expect(f->get);
    f->context->changes().stale<Mailbox>();
    settle();
    f->api.answer(f->get, listOf({someItem(u"m2"_s)}));
    QCOMPARE(bulk().selection()->ids(), QStringList{u"m2"_s});
  }

  void namesOfStrangersStayInTheirPlace() {
    const QString turned = u"\u202egnp.exe"_s;
    QCOMPARE(RampupWords::stageDay(u"To 100 %2"_s, 3, 21), u"To 100 %2, day 3 of 21"_s);
    RampupItem item = someItem(u"m1"_s);
    item.address = item.displayName = turned;
    item.plan->stage->name = item.plan->templateName = turned;
    f->load({item});
    const QString shown = u"\ufffdgnp.exe"_s;
    QCOMPARE(f->text(u"m1"_s, "facts"), shown + u" · Google Workspace"_s);
    QVERIFY(f->text(u"m1"_s, "standingText").endsWith(shown));
    RampupAccountStore account(u"m1"_s, f->store);
    QCOMPARE(account.address(), shown);
    QVERIFY(account.person().startsWith(shown) && account.facts().startsWith(shown));
    bulk().selection()->toggleAll();
    f->api.expect(f->bulk);
    bulk().pause();
    f->api.expect(f->get);
    f->api.answer(f->bulk, done(0, R"({"mailboxId":"m1","message":"a\nDelete all"})"));
    QCOMPARE(f->lastToast(), u"0 roadmaps paused, 1 skipped: a Delete all"_s);
    f->api.answer(f->get, listOf({item}));
  }

  void theEditorOfManyTellsWhatDiffers() {
    RoadmapPlan other = somePlan();
    other.stages.first().days = 10;
    other.length = 38;
    other.templateName = u"Gentle"_s;
    f->load({someItem(u"m1"_s), someItem(u"m2"_s, other), someItem(u"m3"_s, std::nullopt)});
    bulk().selection()->toggle(u"m1"_s);
    bulk().edit();
    QCOMPARE(f->store.editor()->differs(), QString());
    QCOMPARE(f->store.editor()->submitLabel(), u"Save for 1 account"_s);
    // The accounts' own day, not this computer's.
    QCOMPARE(f->store.editor()->days().first(), someItem(u"m1"_s).today);
    f->store.editor()->cancel();
    bulk().selection()->toggleAll();
    bulk().edit();
    QCOMPARE(f->store.editor()->differs(),
             u"These accounts differ in their stages, their length, their template. Saving "
             u"makes them the same. 1 of them is not on a roadmap."_s);
    f->api.expect(f->bulk);
    f->store.editor()->submit();
    QCOMPARE(f->sentBody().value("action"_L1).toString(), u"edit"_s);
    QCOMPARE(f->sentBody().value("stages"_L1).toArray().size(), 3);
    f->api.expect(f->get);
    f->api.answer(f->bulk, done(3));
    QVERIFY(!f->store.editor()->shown());
    QCOMPARE(f->lastToast(), u"3 roadmaps updated"_s);
    f->api.answer(f->get, listOf({}));
  }

  void whoOnlyLooksChangesNothing() {
    f->context->setWorkspace({u"w1"_s, u"acme"_s, u"Acme"_s, {u"viewer"_s}, {}, {}});
    f->load({someItem(u"m1"_s)});
    bulk().selection()->toggleAll();
    bulk().pause();
    bulk().edit();
    bulk().switchWarmup(true);
    f->store.templates()->beginCreate();
    settle();
    QCOMPARE(int(f->api.sent().size()), 2);
    QVERIFY(!f->store.editor()->shown());
    QCOMPARE(f->store.templates()->createHint(), u"Only members can create templates."_s);
  }
};

QTEST_GUILESS_MAIN(RampupTest)
#include "rampup_test.moc"
