#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QSignalSpy>

#include "kit/models/mailboxes/mailbox.h"
#include "tests/app/setup/SetupFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

SetupProject running(const QString& control = u"run"_s) {
  SetupProject project = someProject();
  project.lastRun = SetupLastRun{u"sr1"_s, u"2026-11-21T09:31:00Z"_s, 3, 1, 0, 2, RunControl(control)};
  return project;
}

const QStringList working{u"connected"_s, u"gmail"_s, u"waiting"_s};

}  // namespace

class SetupRunsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<SetupFixture> f;

  /// How often that was asked so far.
  int asked(const QString& label) const {
    return int(
        std::ranges::count_if(f->api.sent(), [&](const APICall& call) { return call.request.label() == label; }));
  }
  void answerPoll(const SetupRun& run) { f->api.answer(f->poll, encodeJSON(run)); }

 private Q_SLOTS:
  void init() { f = std::make_unique<SetupFixture>(); }
  void cleanup() { f.reset(); }

  void theListIsReadSeldomAndOftenWhileSomethingRuns() {
    f->load({someProject()});
    f->pass(9999ms);
    QCOMPARE(asked(f->list), 1);
    f->api.expect(f->list);
    f->pass(1ms);
    // The answer is late: no second one is asked for meanwhile.
    f->pass(60s);
    QCOMPARE(asked(f->list), 2);
    f->api.answer(f->list, f->page({running()}));
    QCOMPARE(f->store.rows()->records().at(0).runText, u"Running"_s);
    f->api.expect(f->list);
    f->pass(2s);
    f->api.fail(f->list, TransportFailure::offline);
    QCOMPARE(f->lastToast(), QString());
    QCOMPARE(f->store.rows()->rowCount(), 1);
    f->api.expect(f->list);
    f->pass(2s);
    f->api.answer(f->list, f->page({running(u"terminated"_s)}));
    f->pass(9s);
    QCOMPARE(asked(f->list), 4);
    f->api.expect(f->list);
    f->pass(1s);
    // Asleep, no time passes for it.
    f->api.answer(f->list, f->page({running(u"terminated"_s)}));
    f->clock.jump(1h);
    settle();
    QCOMPARE(asked(f->list), 5);
  }

  void aRunIsFollowedByOnePollerUntilItEnds() {
    const auto page = f->open(someProject(), someRun(working));
    SetupProjectStore second(u"sp1"_s, f->store);
    f->api.expect(f->one);
    second.ensureLoaded();
    f->api.answer(f->one, encodeJSON(someProject()));
    QAbstractItemModelTester tester(page->runRows(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(page->runHeadline(), u"1 of 3 inboxes connected"_s);
    f->api.expect(f->poll);
    f->pass(2s);
    QCOMPARE(asked(f->poll), 1);
    QSignalSpy changed(page->runRows(), &QAbstractItemModel::dataChanged);
    answerPoll(someRun({u"connected"_s, u"settings"_s, u"waiting"_s}));
    QCOMPARE(changed.size(), 1);
    f->api.expect(f->poll);
    f->pass(2s);
    // One failure does not end it.
    f->api.fail(f->poll, TransportFailure::timedOut);
    QCOMPARE(page->runHeadline(), u"1 of 3 inboxes connected"_s);
    f->api.expect(f->poll);
    f->pass(2s);
    answerPoll(someRun({u"connected"_s, u"exists"_s, u"error"_s}));
    QCOMPARE(page->runText(), u"1 failed"_s);
    QVERIFY(f->store.runs().isClosed(u"sr1"_s));
    f->api.expect(f->list);
    f->pass(15s);
    QCOMPARE(asked(f->poll), 3);
    f->api.answer(f->list, f->page({someProject()}));
  }

  void accountsThatARunHasMadeAreNewsWhoeverTellsOfThem() {
    int news = 0;
    f->context->changes().watch<Mailbox>(&f->store, [&news](const Change<Mailbox>& change) {
      news += change.kind == Change<Mailbox>::Kind::stale && change.acted;
    });
    const auto tell = [&](qint64 connected, qint64 failed) {
      SetupProject project = running();
      project.lastRun->connected = connected;
      project.lastRun->failed = failed;
      project.lastRun->running = 3 - connected - failed;
      f->api.answer(f->list, f->page({project}));
    };
    // Nobody has opened the project: the list tells.
    f->load({someProject()});
    for (const auto& [connected, failed, told] : {std::tuple(0, 0, 0), {1, 0, 1}, {1, 1, 1}, {2, 1, 2}}) {
      f->api.expect(f->list);
      f->pass(10s);
      tell(connected, failed);
      f->pass(0s);
      QCOMPARE(news, told);
    }
    // Of one that is over when it is first heard of, nobody knows when it made them.
    f = std::make_unique<SetupFixture>();
    news = 0;
    f->context->changes().watch<Mailbox>(&f->store, [&news](const auto&) { ++news; });
    const auto page = f->open(someProject(), someRun({u"connected"_s, u"error"_s}));
    f->pass(0s);
    QCOMPARE(news, 1);
    f->api.expect(u"POST /inbox-setup/runs/sr1/retry"_s);
    page->retryDomain(u"d0.example"_s);
    f->api.answer(u"POST /inbox-setup/runs/sr1/retry"_s, encodeJSON(someRun({u"connected"_s, u"gmail"_s})));
    f->api.expect(f->poll);
    f->pass(2s);
    answerPoll(someRun({u"connected"_s, u"connected"_s}));
    // Whoever reads ten thousand accounts again gets to their end before the next one.
    QCOMPARE(news, 1);
    f->api.expect(f->list);
    f->pass(8s);
    QCOMPARE(news, 2);
    f->api.answer(f->list, f->page({someProject()}));
  }

  /// The page on which it is deleted stays open.
  void archivingAProjectStopsItsRun() {
    const QStringList states{u"connected"_s, u"error"_s};
    const auto page = f->open(someProject(), someRun(states));
    QCOMPARE(page->runText(), u"1 failed"_s);
    f->api.expect(f->latest);
    f->context->changes().gone<SetupProject>(someProject().id, f->context->changes().stamp());
    f->api.answer(f->latest, encodeJSON(someRun(states, u"terminated"_s)));
    QCOMPARE(page->runText(), u"Stopped"_s);
    f->api.expect(f->latest);
    f->context->changes().gone<SetupProject>(someProject().id, f->context->changes().stamp());
    f->api.answer(f->latest, {}, 204);
    QCOMPARE(page->runState(), u"empty"_s);
  }

  void aRunThatHasEndedIsReadAgainWhenTheListTellsOfAnotherEnd() {
    const SetupRun failed = someRun({u"connected"_s, u"error"_s}), mended = someRun({u"connected"_s, u"exists"_s});
    SetupProject project = someProject();
    project.lastRun = countedRun(failed);
    const auto page = f->open(project, failed);
    QCOMPARE(page->mainAction(), u"again"_s);
    const auto tell = [&](const QString& name) {
      project.name = name;
      f->api.expect(f->list);
      f->pass(10s);
      f->api.answer(f->list, f->page({project}));
    };
    tell(u"Other"_s);
    // A colleague has run the failed domain again, and it ended between two readings of the list.
    project.lastRun = countedRun(mended);
    f->api.expect(f->latest);
    tell(u"Another"_s);
    f->api.answer(f->latest, encodeJSON(mended));
    QCOMPARE(page->runText(), u"Complete"_s);
    QCOMPARE(page->mainAction(), u"run"_s);
    // Where the two never agree, the run is not read again for every change of the list.
    project.lastRun->failed = 1;
    f->api.expect(f->latest);
    tell(u"Third"_s);
    f->api.answer(f->latest, encodeJSON(mended));
    tell(u"Fourth"_s);
  }

  void aPauseHoldsOnlyWhatIsNotThrough() {
    const SetupRun through = someRun({u"connected"_s, u"error"_s}, u"paused"_s);
    QCOMPARE(runSummary(countedRun(through)), u"1 failed"_s);
    QCOMPARE(runSummaryTone(countedRun(through)), u"negative"_s);
    auto page = f->open(someProject(), through);
    QCOMPARE(page->mainAction(), u"again"_s);
    QVERIFY(page->runRows()->records().at(0).canRetry);
    page.reset();
    f = std::make_unique<SetupFixture>();
    page = f->open(someProject(), someRun({u"error"_s, u"error"_s, u"error"_s, u"gmail"_s}, u"paused"_s));
    QCOMPARE(page->mainAction(), u"resume"_s);
    QVERIFY(!page->runRows()->records().at(0).canRetry);
  }

  void nothingOfAnArchivedProjectIsSetGoing() {
    SetupProject project = someProject();
    const auto menu = [](Store& store, const QString& record = {}) {
      QStringList possible;
      for (const PageAction& action : store.menu(record))
        if (action.possible) possible.append(action.key);
      return possible;
    };
    SetupRun run = someRun({u"error"_s, u"error"_s, u"error"_s, u"authorize"_s}, u"terminated"_s);
    run.domains[1].authorizeUrl = u"https://admin.example"_s;
    auto page = f->open(project, run);
    QVERIFY(menu(*page, u"domain:d0.example"_s).contains(u"retry"_s));
    QVERIFY(menu(*page, u"domain:d1.example"_s).contains(u"authorize"_s));
    page.reset();
    f = std::make_unique<SetupFixture>();
    project.archivedAt = u"2026-11-22T09:00:00Z"_s;
    page = f->open(project, run);
    for (const auto& domain : {u"domain:d0.example"_s, u"domain:d1.example"_s})
      QCOMPARE(menu(*page, domain), (QStringList{u"checks"_s, u"fold"_s}));
    QCOMPARE(menu(*page), QStringList{u"restore"_s});
  }

  /// Its beginning may have come through although the answer was lost.
  void aRunThatWasToBeginIsLookedFor() {
    const std::optional<SetupRun> none, failed = someRun({u"connected"_s, u"error"_s});
    for (const auto& [before, key, request] : {std::tuple(none, u"run"_s, u"POST /inbox-setup/runs"_s),
                                               {failed, u"run"_s, u"POST /inbox-setup/runs"_s},
                                               {failed, u"again"_s, u"POST /inbox-setup/runs/sr1/retry"_s}}) {
      f = std::make_unique<SetupFixture>();
      const auto page = f->open(someProject(), before);
      f->api.expect(request);
      QVERIFY(page->act(key));
      f->api.expect(f->latest);
      f->api.fail(request, TransportFailure::timedOut);
      QVERIFY(f->store.list()->needsLoad());
      f->api.answer(f->latest, encodeJSON(someRun(working)));
      QCOMPARE(page->mainAction(), u"pause"_s);
    }
  }

  void whatStandsStillIsAskedAboutLessOften() {
    for (const auto& [run, interval] : {std::pair(someRun(working, u"paused"_s), 8s),
                                        std::pair(someRun({u"connected"_s, u"authorize"_s, u"waiting"_s}), 8s),
                                        std::pair(someRun({u"gmail"_s, u"authorize"_s, u"waiting"_s}), 2s)}) {
      f = std::make_unique<SetupFixture>();
      const auto page = f->open(someProject(), run);
      f->pass(interval - 1ms);
      QCOMPARE(asked(f->poll), 0);
      f->api.expect(f->poll);
      f->pass(1ms);
      QCOMPARE(asked(f->poll), 1);
    }
  }

  void anOpenRunIsNotBegunAgainBecauseItCannotBeRead() {
    f->load({running()});
    SetupProjectStore page(u"sp1"_s, f->store);
    f->api.expect(f->one);
    f->api.expect(f->latest);
    page.ensureLoaded();
    f->api.answer(f->one, encodeJSON(running()));
    QCOMPARE(page.mainAction(), u"pause"_s);
    QVERIFY(!page.act(u"run"_s));
    f->api.answer(f->latest, "{}", 500);
    QCOMPARE(page.mainAction(), u"pause"_s);
    const auto pause = u"POST /inbox-setup/runs/sr1/pause"_s;
    f->api.expect(pause);
    QVERIFY(page.act(u"pause"_s));
    f->api.answer(pause, encodeJSON(someRun(working, u"paused"_s)));
    QCOMPARE(page.mainAction(), u"resume"_s);
    QCOMPARE(page.runState(), u"ready"_s);
  }

  void pausingWinsOverAReadingThatWasUnderWay() {
    const auto page = f->open(someProject(), someRun(working));
    const auto pause = u"POST /inbox-setup/runs/sr1/pause"_s, resume = u"POST /inbox-setup/runs/sr1/resume"_s;
    f->api.expect(f->poll);
    f->pass(2s);
    f->api.expect(pause);
    QVERIFY(page->act(u"pause"_s));
    QVERIFY(!page->act(u"pause"_s));
    f->api.answer(pause, encodeJSON(someRun(working, u"paused"_s)));
    QVERIFY(!f->api.isWaiting(f->poll));
    QCOMPARE(page->runText(), u"Paused"_s);
    f->api.expect(resume);
    QVERIFY(page->act(u"resume"_s));
    // It may have gone on all the same.
    f->api.expect(f->latest);
    f->api.answer(resume, "{}", 500);
    QCOMPARE(f->lastToast(), u"Couldn’t resume the run."_s);
    QVERIFY(f->api.isWaiting(f->latest));
  }

  void terminatingIsAskedAboutAndRunAgainFollowsAnew() {
    const auto page = f->open(someProject(), someRun(working));
    const auto terminate = u"POST /inbox-setup/runs/sr1/terminate"_s, retry = u"POST /inbox-setup/runs/sr1/retry"_s;
    QVERIFY(page->act(u"terminate"_s));
    QCOMPARE(f->overlays.title(), u"Terminate this run?"_s);
    QVERIFY(f->overlays.text().contains(u"stay connected"_s));
    f->overlays.answer(f->overlays.token(), false);
    settle();
    QVERIFY(page->act(u"terminate"_s));
    f->api.expect(terminate);
    f->overlays.answer(f->overlays.token(), true);
    settle();
    f->api.answer(terminate, encodeJSON(someRun({u"connected"_s, u"stopped"_s, u"stopped"_s}, u"terminated"_s)));
    QCOMPARE(page->runText(), u"Stopped"_s);
    f->pass(8s);
    QCOMPARE(asked(f->poll), 0);
    f->api.expect(retry);
    page->retryDomain(u"d0.example"_s);
    QCOMPARE(f->sentBody(), (QJsonObject{{u"domain"_s, u"d0.example"_s}}));
    f->api.answer(retry, encodeJSON(someRun(working)));
    QVERIFY(!f->store.runs().isClosed(u"sr1"_s));
    f->api.expect(f->list);
    f->api.expect(f->poll);
    f->pass(2s);
    QCOMPARE(asked(f->poll), 1);
    f->api.answer(f->list, f->page({someProject()}));
  }

  void checksAreReadTwiceAndTheLastOneStays() {
    const auto page = f->open(someProject(), someRun({u"connected"_s}));
    const auto get = u"GET /inbox-setup/runs/sr1/checks/d0.example"_s;
    DomainChecks checks;
    checks.domain = u"d0.example"_s;
    checks.dns.mx = false;
    f->api.expect(get);
    page->select(u"r0"_s);
    f->api.answer(get, encodeJSON(checks));
    QCOMPARE(page->checks()->lines().at(0).key, u"no"_s);
    QCOMPARE(page->checks()->lines().at(1).key, u"unknown"_s);
    checks.dns.mx = true;
    f->api.expect(get);
    f->pass(4s);
    f->api.answer(get, encodeJSON(checks));
    QCOMPARE(page->checks()->lines().at(0).key, u"yes"_s);
    QVERIFY(!page->checks()->checking());
    f->api.expect(get);
    page->checks()->check();
    f->api.answer(get, "{}", 503);
    QCOMPARE(page->checks()->note(), u"The last check failed; this is the one before."_s);
    QCOMPARE(page->checks()->lines().at(0).key, u"yes"_s);
  }

  /// Rows are told apart by what they are: what is looked at stays where it is.
  void fiveHundredInboxesAreFoldedInInPlace() {
    QStringList states;
    for (int i = 0; i < 500; ++i) states.append(i % 2 ? u"gmail"_s : u"waiting"_s);
    const auto page = f->open(someProject(), someRun(states));
    QCOMPARE(page->runRows()->rowCount(), 667);
    for (QString& state : states) state = u"settings"_s;
    const SetupRun next = someRun(states);
    QSignalSpy reset(page->runRows(), &QAbstractItemModel::modelReset);
    QSignalSpy inserted(page->runRows(), &QAbstractItemModel::rowsInserted);
    QElapsedTimer timer;
    f->api.expect(f->poll);
    f->pass(2s);
    const QByteArray json = encodeJSON(next);
    timer.start();
    f->api.answer(f->poll, json);
    qInfo("500 inboxes in %lld ms, decoding and sanitizers included", timer.elapsed());
    QCOMPARE(reset.size() + inserted.size(), 0);
    QCOMPARE(page->runRows()->records().at(1).stateText, u"Settings"_s);
    page->fold(u"d0.example"_s);
    QCOMPARE(page->runRows()->rowCount(), 664);
  }
};

QTEST_GUILESS_MAIN(SetupRunsTest)
#include "setupruns_test.moc"
