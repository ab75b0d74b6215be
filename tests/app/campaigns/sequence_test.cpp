#include <QTest>

#include "tests/app/campaigns/SequenceFixture.h"
#include "tests/support/seed.h"

using namespace orv;
using namespace orv::test;

class SequenceTest : public QObject {
  Q_OBJECT

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
  static SequenceDraft draftWith(const QList<qint64>& waits) {
    SequenceService service;
    service.write(waits);
    SequenceDraft draft;
    draft.rebuild(service.steps);
    return draft;
  }

 private Q_SLOTS:
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

  /// Of an answer that does not fit what was sent, nothing can be told.
  void takesNoIdsByGuess() {
    SequenceDraft draft = draftWith({0, 2880});
    draft.addVariant(draft.steps()[1].key);
    SequenceService keeper;
    auto answered = *keeper.accept({draft.inputs()}).steps;
    answered.first().id = u"renamed"_s;
    answered.first().variants.removeFirst();
    const auto held = withAnsweredIds(draft.steps(), answered);
    QCOMPARE(held[1].id, u"renamed"_s);
    QCOMPARE(held[1].variants, draft.steps()[1].variants);
    answered.removeLast();
    QCOMPARE(withAnsweredIds(draft.steps(), answered), draft.steps());
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
    QCOMPARE(waits(draft), (QList<qint64>{60, 2160, 2159, 0}));
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
    // One that was further behind may come back as the first.
    const QUuid fourth = draft.steps()[3].key;
    draft.removeStep(fourth);
    while (draft.steps().size() > 1) draft.removeStep(draft.steps()[0].key);
    draft.restoreStep(fourth);
    QCOMPARE(waits(draft), (QList<qint64>{0, 2880}));
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

    draft.removeVariant(a);
    draft.removeStep(step);
    draft.restoreVariant(a);
    draft.restoreStep(step);
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
    const auto before = draft.inputs();
    draft.setSameThread(first, true);
    draft.setSameThread(second, true);
    QCOMPARE(draft.steps()[0].variants[0].subject, u"Subject"_s);
    QCOMPARE(draft.steps()[1].variants[0].subject, QString());
    QVERIFY(draft.repliesInThread(1));
    draft.setSameThread(second, false);
    QCOMPARE(draft.inputs()[1], before[1]);
  }
};

QTEST_GUILESS_MAIN(SequenceTest)
#include "sequence_test.moc"
