#include <QRandomGenerator>
#include <QTest>

#include "tests/app/SequenceService.h"
#include "tests/support/ManualClock.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

using SaveState = SequenceAutosave::SaveState;
using End = SequenceService::End;

const QStringList pieces{
    u"Hi {{firstName}}"_s, u"👩🏽‍💻"_s, u"e\u0301"_s, u"שלום \u200f"_s, u"\n\n"_s, u"{a|b}"_s, u"\"\\/"_s,
    u"\u00a0\t"_s,         u"مرحبا"_s,           u""_s};

QString someText(QRandomGenerator& random) {
  QString text;
  for (int i = random.bounded(4); i > 0; --i) text += pieces[random.bounded(int(pieces.size()))];
  return text;
}

template <class List>
auto someOf(QRandomGenerator& random, const List& list) {
  return list[random.bounded(int(list.size()))];
}

QList<StepIn> withoutIds(QList<StepIn> inputs) {
  for (StepIn& step : inputs) {
    step.id.reset();
    for (VariantIn& variant : step.variants) variant.id.reset();
  }
  return inputs;
}

/// Any one edit that the page offers. Keeps what it removed, to be restored by a later one.
class SomePerson {
 public:
  explicit SomePerson(QRandomGenerator& random) : m_random(random) {}

  void change(SequenceDraft& draft) {
    const int what = m_random.bounded(draft.steps().isEmpty() ? 3 : 14);
    if (what == 0 && draft.steps().size() < 6) draft.insertStep(m_random.bounded(int(draft.steps().size()) + 1));
    if (what == 1 && !m_steps.isEmpty()) draft.restoreStep(someOf(m_random, m_steps));
    if (what == 2 && !m_variants.isEmpty()) draft.restoreVariant(someOf(m_random, m_variants));
    if (what > 2) changeStep(draft, someOf(m_random, draft.steps()), what);
  }

 private:
  void changeStep(SequenceDraft& draft, const DraftStep& step, int what) {
    const DraftVariant variant = someOf(m_random, step.variants);
    if (what == 3) draft.removeStep(step.key), m_steps.append(step.key);
    if (what == 4) draft.addVariant(step.key);
    if (what == 5) draft.removeVariant(variant.key), m_variants.append(variant.key);
    if (what == 6) draft.setWaitDays(step.key, m_random.bounded(70));
    if (what == 7) draft.setSameThread(step.key, !step.sameThread);
    if (what == 8) draft.setWeight(variant.key, m_random.bounded(5));
    if (what == 9) draft.setEnabled(variant.key, !variant.enabled);
    if (what == 10) draft.setSubject(variant.key, someText(m_random));
    if (what > 10) draft.setBody(variant.key, someText(m_random));
  }

  QRandomGenerator& m_random;
  QList<QUuid> m_steps;
  QList<QUuid> m_variants;
};

/// One life of a page: edits, time, answers of every kind, retries, reloads and goodbyes in any order.
class Interleaving {
 public:
  explicit Interleaving(quint32 seed) : m_random(seed), m_person(m_random) {
    m_autosave =
        std::make_unique<SequenceAutosave>(m_clock, [this](StepsBody body) { return m_service.save(std::move(body)); });
    QObject::connect(m_autosave.get(), &SequenceAutosave::saved, [this] {
      // As a resource does: a load that a save has overtaken begins anew.
      if (m_loading) m_loading = m_service.campaign();
    });
    m_autosave->take(m_service.campaign());
  }
  ~Interleaving() { m_autosave.reset(); }

  /// What went wrong; empty when nothing did.
  QString play() {
    for (int i = 0; i < 40 && m_wrong.isEmpty(); ++i) act(m_random.bounded(16));
    if (m_random.bounded(3) == 0)
      leave();
    else
      settle();
    if (m_flushes != m_flushesEnded) complain(u"a flush waits for ever"_s);
    return m_wrong;
  }

 private:
  void act(int what) {
    const auto some = End(m_random.bounded(5));
    if (what < 6) edit();
    if (what >= 6 && what < 9) m_clock.advance(std::chrono::milliseconds(m_random.bounded(1000)));
    if (what >= 9 && what < 12 && m_service.waiting() > 0) m_service.end(m_random.bounded(2) ? End::accepted : some);
    if (what == 12) m_autosave->save();
    if (what == 13) m_tasks.start(flush());
    if (what == 14) m_loading = m_service.campaign();
    if (what == 15 && m_loading) load();
    check();
  }

  void edit() {
    m_autosave->edit([this](SequenceDraft& draft) { m_person.change(draft); });
    m_text = withoutIds(m_autosave->draft().inputs());
  }

  void load() {
    Campaign loaded = *std::exchange(m_loading, std::nullopt);
    if (m_random.bounded(4) == 0) loaded.steps.reset();
    if (m_autosave->take(loaded)) complain(u"a load changed the draft"_s);
  }

  Task<void> flush() {
    ++m_flushes;
    const bool held = co_await m_autosave->flush();
    ++m_flushesEnded;
    if (held && !isHeld()) complain(u"a flush told of a text that the service does not have"_s);
    if (!held && m_autosave && m_autosave->state() == SaveState::saved) complain(u"a flush told too little"_s);
  }

  bool isHeld() const { return withoutIds(m_service.inputs()) == m_text; }

  void check() {
    if (withoutIds(m_autosave->draft().inputs()) != m_text) complain(u"the draft is not what the person wrote"_s);
    if (m_autosave->state() == SaveState::saved && m_service.inputs() != m_autosave->draft().inputs())
      complain(u"said saved too early"_s);
    if (m_service.waiting() > 1) complain(u"two saves in flight"_s);
    if (m_service.sawUnknownId) complain(u"sent an id that the service does not have"_s);
    if ((m_autosave->state() == SaveState::failed) == m_autosave->message().isEmpty())
      complain(u"state and message disagree"_s);
  }

  /// Everything works again and the person asks for it once more.
  void settle() {
    for (int i = 0; i < 4; ++i) {
      m_autosave->save();
      while (m_service.waiting() > 0) m_service.end(End::accepted);
      m_clock.advance(SequenceAutosave::wait);
      check();
    }
    if (m_autosave->state() != SaveState::saved || !isHeld()) complain(u"not saved in the end"_s);
    const int saves = m_service.saves;
    m_clock.advance(std::chrono::hours(1));
    if (m_service.saves != saves) complain(u"saves what is saved"_s);
  }

  /// The store goes, closed or closed and deleted, and the answers come late.
  void leave() {
    m_autosave->close();
    check();
    if (m_autosave->state() == SaveState::saving) complain(u"still saving after the close"_s);
    const int saves = m_service.saves;
    if (m_random.bounded(2)) m_autosave.reset();
    while (m_service.waiting() > 0) m_service.end(End(m_random.bounded(5)));
    m_clock.advance(std::chrono::hours(1));
    if (m_service.saves != saves) complain(u"saves after the close"_s);
    if (m_clock.running() > 0) complain(u"a timer runs after the close"_s);
  }

  void complain(const QString& what) {
    if (m_wrong.isEmpty()) m_wrong = what;
  }

  QRandomGenerator m_random;
  SomePerson m_person;
  ManualClock m_clock;
  SequenceService m_service;
  std::unique_ptr<SequenceAutosave> m_autosave;
  QList<StepIn> m_text;
  std::optional<Campaign> m_loading;
  int m_flushes = 0;
  int m_flushesEnded = 0;
  QString m_wrong;
  TaskScope m_tasks;
};

quint32 printedSeed() {
  bool given = false;
  quint32 seed = qEnvironmentVariable("ORVELLA_SEED").toUInt(&given);
  if (!given) seed = QRandomGenerator::global()->generate();
  qInfo("ORVELLA_SEED=%u repeats this run", seed);
  return seed;
}

Task<void> keep(Task<bool> task, std::optional<bool>* outcome) { *outcome = co_await std::move(task); }

}  // namespace

class SequenceTest : public QObject {
  Q_OBJECT

  std::unique_ptr<ManualClock> clock;
  std::unique_ptr<SequenceService> service;
  std::unique_ptr<SequenceAutosave> autosave;
  QUuid body;

  /// A sequence of emails with these waits, loaded.
  void load(const QList<qint64>& waits = {0}) {
    for (const qint64 wait : waits) {
      const QString number = QString::number(service->steps.size() + 1);
      service->steps.append({u"s"_s + number,
                             number.toLongLong(),
                             wait,
                             false,
                             {{u"v"_s + number, u"A"_s, u"Subject"_s, u"old"_s, 1, true, {}}},
                             {}});
    }
    autosave->take(service->campaign());
    body = autosave->draft().steps().first().variants.first().key;
  }
  void type(const QString& text) {
    autosave->edit([&](SequenceDraft& draft) { draft.setBody(body, text); });
  }
  QString held() const { return service->steps.last().variants.first().body; }
  void passWait() { clock->advance(SequenceAutosave::wait); }
  static QList<qint64> waits(const SequenceDraft& draft) {
    QList<qint64> minutes;
    for (const DraftStep& step : draft.steps()) minutes.append(step.delayMinutes);
    return minutes;
  }
  static QString labels(const DraftStep& step) {
    QString labels;
    for (const DraftVariant& variant : step.variants) labels += variant.label;
    return labels;
  }
  SequenceDraft draftWith(const QList<qint64>& waits) {
    load(waits);
    return autosave->draft();
  }

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
    for (quint32 run = 0; run < 5'000; ++run) {
      const QString wrong = Interleaving(seed + run).play();
      QVERIFY2(wrong.isEmpty(), qPrintable(u"ORVELLA_SEED=%1: %2"_s.arg(seed + run).arg(wrong)));
    }
  }

  void comesBackAsItWas() {
    QRandomGenerator random(printedSeed());
    for (int run = 0; run < 500; ++run) {
      SequenceDraft draft;
      SomePerson person(random);
      for (int i = 0; i < 30; ++i) person.change(draft);
      const auto written = draft.inputs();

      SequenceService keeper;
      const Campaign answer = keeper.accept({written});
      QCOMPARE(encodeJSON(StepsBody{withoutIds(keeper.inputs())}), encodeJSON(StepsBody{written}));
      draft.takeIds(withAnsweredIds(draft.steps(), *answer.steps));
      const auto taken = draft.inputs();
      QCOMPARE(taken, keeper.inputs());

      // Removed and restored in any order, it is the same again.
      QList<QUuid> keys;
      for (const DraftStep& step : draft.steps()) keys.append(step.key);
      std::shuffle(keys.begin(), keys.end(), random);
      for (const QUuid& key : std::as_const(keys)) draft.removeStep(key);
      std::shuffle(keys.begin(), keys.end(), random);
      for (const QUuid& key : std::as_const(keys)) draft.restoreStep(key);
      QCOMPARE(draft.inputs(), taken);
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

    type(u"new"_s);
    autosave->save();
    service->end(End::refused);
    type(u"old"_s);
    passWait();
    QCOMPARE(autosave->state(), SaveState::saved);
    QCOMPARE(service->saves, 3);
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
    tasks.start(keep(autosave->flush(), &outcome));
    if (editedMeanwhile) type(u"ab"_s);
    for (const int end : ends) {
      QVERIFY(!outcome);
      service->end(End(end));
    }
    QTEST(outcome.value(), "outcome");
    QCOMPARE(service->waiting(), 0);
  }

  void loadsNeverTakeTheTextAway() {
    QVERIFY(autosave->edit([](SequenceDraft& draft) { return !draft.insertStep(0).isNull(); }));
    autosave->save();
    QCOMPARE(service->saves, 0);
    load({0, 2880});

    Campaign theirs = service->campaign();
    (*theirs.steps)[1].variants[0].body = u"theirs"_s;
    const QUuid second = autosave->draft().steps()[1].key;
    QVERIFY(autosave->take(theirs));
    QCOMPARE(autosave->draft().steps()[1].key, second);
    QCOMPARE(autosave->draft().steps()[1].variants[0].body, u"theirs"_s);

    type(u"mine"_s);
    theirs.steps->removeLast();
    QVERIFY(!autosave->take(theirs));
    QCOMPARE(autosave->draft().steps()[0].variants[0].body, u"mine"_s);
    // Somebody else removed it; with its id the service would refuse the save.
    QVERIFY(!autosave->draft().steps()[1].id);
    QVERIFY(autosave->draft().steps()[0].id);
    // What was loaded first is not there any more.
    type(u"old"_s);
    autosave->save();
    QCOMPARE(service->saves, 1);
  }

  void waitsAreWholeDaysOnceEdited_data() {
    QTest::addColumn<qint64>("days");
    QTest::addColumn<qint64>("minutes");
    QTest::newRow("none") << qint64(0) << qint64(1440);
    QTest::newRow("negative") << qint64(-5) << qint64(1440);
    QTest::newRow("two") << qint64(2) << qint64(2880);
    QTest::newRow("most") << qint64(60) << qint64(86'400);
    QTest::newRow("too many") << qint64(61) << qint64(86'400);
  }
  void waitsAreWholeDaysOnceEdited() {
    QFETCH(qint64, days);
    SequenceDraft draft = draftWith({60, 2160, 2159, 0});
    QCOMPARE(draft.steps()[1].waitDays(), 2);
    QCOMPARE(draft.steps()[2].waitDays(), 1);
    QCOMPARE(draft.waitText(0), u"Sends first"_s);
    QCOMPARE(draft.waitText(2), u"Wait 1 days if no reply"_s);
    QCOMPARE(draft.day(1), 2);
    QCOMPARE(draft.day(2), 3);
    QCOMPARE(draft.inputs(), service->inputs());
    draft.setWaitDays(draft.steps()[1].key, days);
    QTEST(draft.steps()[1].delayMinutes, "minutes");
    QCOMPARE(draft.steps()[2].delayMinutes, 2159);
  }

  void theFirstEmailGoesOutAtOnce() {
    SequenceDraft draft = draftWith({60, 2880, 4320});
    const QUuid first = draft.steps()[0].key, second = draft.steps()[1].key;
    draft.insertStep(-1);
    QCOMPARE(waits(draft), (QList<qint64>{60, 2880, 4320, 2880}));
    draft.removeStep(first);
    QCOMPARE(waits(draft), (QList<qint64>{0, 4320, 2880}));
    draft.insertStep(0);
    QCOMPARE(waits(draft), (QList<qint64>{0, 0, 4320, 2880}));
    QVERIFY(draft.steps()[0].sameThread);
    QVERIFY(!draft.repliesInThread(0));
    // Pushed from the first place, it is told apart from one that only a removal had put there.
    draft.removeStep(second);
    draft.restoreStep(second);
    QCOMPARE(waits(draft), (QList<qint64>{0, 0, 4320, 2880}));
    draft.setWaitDays(second, 1);
    draft.restoreStep(first);
    QCOMPARE(waits(draft), (QList<qint64>{60, 0, 1440, 4320, 2880}));
  }

  void variantsHaveTheAlphabet() {
    SequenceDraft draft = draftWith({0});
    const QUuid step = draft.steps()[0].key, a = draft.steps()[0].variants[0].key;
    QVERIFY(!draft.removeVariant(a));
    const QUuid b = draft.addVariant(step), c = draft.addVariant(step);
    QCOMPARE(draft.steps()[0].shown, 2);
    QVERIFY(draft.removeVariant(c) && draft.removeVariant(a));
    QCOMPARE(draft.steps()[0].shown, 0);
    QVERIFY(draft.restoreVariant(c) && draft.restoreVariant(a));
    QCOMPARE(labels(draft.steps()[0]), u"ABC"_s);
    draft.removeVariant(b);
    draft.addVariant(step);
    draft.restoreVariant(b);
    QCOMPARE(labels(draft.steps()[0]), u"ADCB"_s);

    for (int i = 4; i < 26; ++i) QVERIFY(!draft.addVariant(step).isNull());
    QVERIFY(!draft.steps()[0].canAddVariant());
    QVERIFY(draft.addVariant(step).isNull());
    draft.removeVariant(a);
    draft.addVariant(step);
    QVERIFY(!draft.restoreVariant(a));
    QCOMPARE(draft.steps()[0].variants.size(), 26);
  }

  void sendsAreSharedByWeight() {
    SequenceDraft draft = draftWith({0});
    const QUuid step = draft.steps()[0].key, b = draft.addVariant(step);
    const auto shares = [&] {
      const DraftStep& only = draft.steps()[0];
      return QList<int>{only.sharePercent(only.variants[0]), only.sharePercent(only.variants[1])};
    };
    QCOMPARE(shares(), (QList<int>{50, 50}));
    draft.setWeight(b, 2);
    QCOMPARE(shares(), (QList<int>{33, 67}));
    draft.setEnabled(b, false);
    QCOMPARE(shares(), (QList<int>{100, 0}));
    draft.setWeight(draft.steps()[0].variants[0].key, -3);
    QCOMPARE(shares(), (QList<int>{0, 0}));
  }

  void aReplyHasNoSubjectAndANewThreadItsOwnAgain() {
    SequenceDraft draft = draftWith({0, 2880});
    const QUuid first = draft.steps()[0].key, second = draft.steps()[1].key;
    draft.setSameThread(first, true);
    draft.setSameThread(second, true);
    QCOMPARE(draft.steps()[0].variants[0].subject, u"Subject"_s);
    QCOMPARE(draft.steps()[1].variants[0].subject, QString());
    QVERIFY(draft.repliesInThread(1));
    draft.setSameThread(second, false);
    QCOMPARE(draft.inputs()[1], service->inputs()[1]);
  }
};

QTEST_GUILESS_MAIN(SequenceTest)
#include "sequence_test.moc"
