#include <QTest>

#include "tests/app/campaigns/SequenceLife.h"
#include "tests/support/seed.h"

using namespace orv;
using namespace orv::test;

namespace {

using SaveState = SequenceAutosave::SaveState;
using End = SequenceService::End;

Task<void> keep(Task<bool> task, std::optional<bool>* outcome) { *outcome = co_await std::move(task); }

}  // namespace

class SequenceAutosaveTest : public QObject {
  Q_OBJECT

  std::unique_ptr<ManualClock> clock;
  std::unique_ptr<SequenceService> service;
  std::unique_ptr<SequenceAutosave> autosave;
  QUuid body;

  void load(const QList<qint64>& waits = {0}) {
    service->write(waits);
    autosave->take(service->campaign());
    body = autosave->draft().steps().first().variants.first().key;
  }
  void type(const QString& text) {
    autosave->edit([&](SequenceDraft& draft) { draft.setBody(body, text); });
  }
  QString held() const { return service->steps.last().variants.first().body; }
  void passWait() { clock->advance(SequenceAutosave::wait); }
 private Q_SLOTS:
  void init() {
    clock = std::make_unique<ManualClock>();
    service = std::make_unique<SequenceService>();
    autosave =
        std::make_unique<SequenceAutosave>(*clock, [this](StepsBody steps) { return service->save(std::move(steps)); });
  }
  void cleanup() {
    autosave.reset();
    service.reset();
    clock.reset();
  }

  void endsWithThePersonsTextOrSaysThatItDoesNot() {
    const quint32 seed = printedSeed();
    for (quint32 run = 0; run < 3'000; ++run) {
      const QString wrong = SequenceLife(seed + run).play();
      QVERIFY2(wrong.isEmpty(), qPrintable(u"ORVELLA_SEED=%1: %2"_s.arg(seed + run).arg(wrong)));
    }
  }

  void idsFindTheirKeysThoughTheDraftMovedOn() {
    load({0, 2880});
    QUuid added, gone;
    const QUuid second = autosave->draft().steps()[1].key;
    autosave->edit([&](SequenceDraft& draft) {
      added = draft.insertStep(1);
      gone = draft.insertStep(3);
    });
    autosave->save();
    autosave->edit([&](SequenceDraft& draft) {
      draft.insertStep(0);
      draft.removeStep(gone);
      draft.removeStep(second);
    });
    service->end(End::accepted);
    const auto idOf = [this](const QUuid& key) {
      return autosave->draft().steps()[autosave->draft().placeOf(key)].id.value_or(u"none"_s);
    };
    QCOMPARE(idOf(added), u"1"_s);
    QCOMPARE(autosave->state(), SaveState::dirty);

    passWait();
    // Back before the answer of the save that dropped it, and after.
    autosave->edit([&](SequenceDraft& draft) { draft.restoreStep(second); });
    QCOMPARE(idOf(second), u"s2"_s);
    service->end(End::accepted);
    QCOMPARE(idOf(second), u"none"_s);
    autosave->edit([&](SequenceDraft& draft) { draft.restoreStep(gone); });
    QCOMPARE(idOf(gone), u"none"_s);
    passWait();
    service->end(End::accepted);
    QCOMPARE(autosave->state(), SaveState::saved);
    QCOMPARE(autosave->draft().inputs(), service->inputs());
    QVERIFY(!service->sawUnknownId);
  }

  void onlyOneSaveFollowsTheOneInFlight() {
    load();
    type(u"a"_s);
    clock->advance(SequenceAutosave::wait / 2);
    type(u"ab"_s);
    clock->advance(SequenceAutosave::wait / 2);
    QCOMPARE(service->saves, 0);
    QCOMPARE(autosave->state(), SaveState::dirty);
    clock->advance(SequenceAutosave::wait / 2);
    QCOMPARE(service->saves, 1);
    QCOMPARE(autosave->state(), SaveState::saving);
    type(u"abc"_s);
    passWait();
    type(u"abcd"_s);
    service->end(End::accepted);
    QCOMPARE(held(), u"ab"_s);
    QCOMPARE(autosave->label(), u"Unsaved changes"_s);
    passWait();
    service->end(End::accepted);
    QCOMPARE(held(), u"abcd"_s);
    QCOMPARE(autosave->label(), u"Saved"_s);
    passWait();
    QCOMPARE(service->saves, 2);
  }

  void whatTheServiceHasIsNotSentAgain() {
    load();
    const QUuid step = autosave->draft().steps().first().key;
    autosave->edit([&](SequenceDraft& draft) {
      draft.setBody(body, u"old"_s);
      draft.show(step, 0);
    });
    QCOMPARE(autosave->state(), SaveState::saved);
    type(u"new"_s);
    type(u"old"_s);
    passWait();
    QCOMPARE(autosave->state(), SaveState::saved);
    QCOMPARE(service->saves, 0);
  }

  /// A lost save may have reached the service: the old text is then no longer known to be there.
  void aLostSaveLeavesNothingCertain() {
    load();
    type(u"new"_s);
    autosave->save();
    service->end(End::lostAfterActing);
    QCOMPARE(autosave->label(), u"Not saved"_s);
    QCOMPARE(autosave->message(),
             u"Couldn’t save the sequence. That took too long. Check your connection and try again."_s);
    type(u"old"_s);
    QVERIFY(autosave->message().isEmpty());
    passWait();
    QCOMPARE(autosave->state(), SaveState::saving);
    service->end(End::accepted);
    QCOMPARE(held(), u"old"_s);

    int saves = 2;
    for (const End end : {End::refused, End::neverSent}) {
      type(u"new"_s);
      autosave->save();
      service->end(end);
      type(u"old"_s);
      passWait();
      QCOMPARE(autosave->state(), SaveState::saved);
      QCOMPARE(service->saves, ++saves);
    }
  }

  void flushTellsWhetherTheServiceHasTheText_data() {
    QTest::addColumn<QList<int>>("ends");
    QTest::addColumn<bool>("editedMeanwhile");
    QTest::addColumn<bool>("outcome");
    const auto list = [](std::initializer_list<End> ends) {
      QList<int> numbers;
      for (const End end : ends) numbers.append(int(end));
      return numbers;
    };
    QTest::newRow("accepted") << list({End::accepted}) << false << true;
    QTest::newRow("refused") << list({End::refused}) << false << false;
    QTest::newRow("accepted, and once more") << list({End::accepted, End::accepted}) << true << true;
    QTest::newRow("a failure of an older text") << list({End::refused, End::accepted}) << true << true;
    QTest::newRow("failing to the end") << list({End::accepted, End::lostBeforeActing}) << true << false;
  }
  void flushTellsWhetherTheServiceHasTheText() {
    QFETCH(QList<int>, ends);
    QFETCH(bool, editedMeanwhile);
    load();
    type(u"a"_s);
    TaskScope tasks;
    std::optional<bool> outcome;
    // Somebody presses "Try again" twice, and that is no reason to try twice.
    autosave->save();
    autosave->save();
    tasks.start(keep(autosave->flush(), &outcome));
    if (editedMeanwhile) type(u"ab"_s);
    for (const int end : ends) {
      QVERIFY(!outcome);
      service->end(End(end));
    }
    QVERIFY(outcome);
    QTEST(*outcome, "outcome");
    QCOMPARE(service->waiting(), 0);
  }

  void nothingIsSavedBeforeItIsLoaded() {
    QVERIFY(autosave->edit([](SequenceDraft& draft) { return !draft.insertStep(0).isNull(); }));
    autosave->save();
    passWait();
    QCOMPARE(service->saves, 0);
  }

  void aLoadIsFollowedWhileNothingIsUnsaved() {
    load({0, 2880, 1440});
    const QUuid second = autosave->draft().steps()[1].key;
    const QUuid shown = autosave->edit([&](SequenceDraft& draft) {
      draft.removeStep(second);
      return draft.addVariant(draft.steps()[0].key);
    });
    autosave->save();
    service->end(End::accepted);
    QVERIFY(!autosave->take(service->campaign()));
    Campaign theirs = service->campaign();
    theirs.steps->last().variants.first().body = u"theirs"_s;
    theirs.steps->last().variants.prepend({u"new"_s, u"C"_s, {}, {}, 1, true, {}});
    QVERIFY(autosave->take(theirs));
    const DraftStep& first = autosave->draft().steps().first();
    QCOMPARE(first.variants[1].body, u"theirs"_s);
    QCOMPARE(first.variants[1].key, body);
    QCOMPARE(first.variants[first.shown].key, shown);
    autosave->edit([&](SequenceDraft& draft) { draft.restoreStep(second); });
    QCOMPARE(autosave->draft().placeOf(second), 1);
  }

  void aLoadLeavesWhatIsUnsaved() {
    load({0, 2880});
    type(u"mine"_s);
    Campaign theirs = service->campaign();
    theirs.steps->removeLast();
    (*theirs.steps)[0].variants[0].body = u"theirs"_s;
    QVERIFY(!autosave->take(theirs));
    QCOMPARE(autosave->draft().steps()[0].variants[0].body, u"mine"_s);
    // Somebody else removed the second; with its id the service would refuse the save.
    QVERIFY(!autosave->draft().steps()[1].id);
    QVERIFY(autosave->draft().steps()[0].id);
    // What was there at first is there no more.
    autosave->edit([&](SequenceDraft& draft) {
      draft.setBody(body, u"old"_s);
      draft.removeStep(draft.steps()[1].key);
    });
    autosave->save();
    QCOMPARE(service->saves, 1);
  }

  /// The person goes on typing where the text was left, whatever the service makes of its end.
  void theAnswerToASaveIsNotPutUnderTheCursor() {
    load();
    connect(autosave.get(), &SequenceAutosave::saved, this, [this](Campaign campaign) {
      (*campaign.steps)[0].variants[0].body = u"Hi"_s;
      autosave->take(campaign);
    });
    type(u"Hi "_s);
    autosave->save();
    service->end(End::accepted);
    QCOMPARE(autosave->draft().variant(body)->body, u"Hi "_s);
    QCOMPARE(autosave->state(), SaveState::saved);
  }

  void anAnswerMayEndTheStore() {
    load();
    connect(autosave.get(), &SequenceAutosave::saved, autosave.get(), &SequenceAutosave::close);
    type(u"a"_s);
    autosave->save();
    type(u"ab"_s);
    passWait();
    service->end(End::accepted);
    QCOMPARE(autosave->state(), SaveState::dirty);
    QCOMPARE(service->saves, 1);
    QCOMPARE(service->open, 0);
  }

  void anEndedSessionIsNoFailedSave() {
    load();
    type(u"a"_s);
    autosave->save();
    service->beforeAnswer = [this] { autosave->close(); };
    service->end(End::refused);
    QCOMPARE(autosave->state(), SaveState::dirty);
    QVERIFY(autosave->message().isEmpty());
  }
};

QTEST_GUILESS_MAIN(SequenceAutosaveTest)
#include "sequenceautosave_test.moc"
