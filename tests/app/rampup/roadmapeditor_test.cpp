#include <QAbstractItemModelTester>

#include "tests/app/rampup/RampupFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

QList<TypedStage> typedStages() {
  QList<TypedStage> stages;
  for (const RoadmapStage& stage : someStages()) stages.append(typedStage(stage));
  return stages;
}

QString problemOf(const QList<TypedStage>& stages) {
  const auto problem = RoadmapRules::firstProblem(stages);
  return problem ? problem->message : QString();
}

}  // namespace

class RoadmapEditorTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aStageIsRefused_data() {
    QTest::addColumn<int>("stage");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, int stage, const QString& field, const QString& text,
                        const QString& message) { QTest::newRow(name) << stage << field << text << message; };
    const QString number = u"Stage %1: "_s, name = u"give the stage a name (up to 60 characters)"_s;
    const QString days = u"days is a whole number from 1 to 90"_s;
    const QString volumes = u"warmup/campaign from and to are whole numbers up to 2000"_s;
    const QString unread = u"volumes are whole numbers up to 2000 a day"_s;
    const QString first = u"Stage 1: the first stage is warm-up only, so campaign starts at 0"_s;
    row("no name", 1, u"name"_s, u"  "_s, number.arg(2) + name);
    row("61 characters", 1, u"name"_s, QString(61, u'x'), number.arg(2) + name);
    row("60 characters", 1, u"name"_s, QString(60, u'x'), {});
    row("60 characters and blanks", 1, u"name"_s, u"  "_s + QString(60, u'x') + u' ', {});
    row("no days", 0, u"days"_s, u"0"_s, number.arg(1) + days);
    row("91 days", 0, u"days"_s, u"91"_s, number.arg(1) + days);
    row("90 days", 0, u"days"_s, u"90"_s, {});
    row("half a day", 0, u"days"_s, u"1.5"_s, number.arg(1) + days);
    row("words", 2, u"warmupTo"_s, u"many"_s, number.arg(3) + unread);
    row("nothing", 2, u"campaignFrom"_s, QString(), number.arg(3) + unread);
    row("2001", 2, u"campaignTo"_s, u"2001"_s, number.arg(3) + volumes);
    row("2000", 2, u"campaignTo"_s, u"2000"_s, {});
    row("with a plus", 2, u"campaignTo"_s, u" +40 "_s, {});
    row("below zero", 2, u"warmupFrom"_s, u"-1"_s, number.arg(3) + volumes);
    row("a kind twice", 2, u"key"_s, u"warmup"_s, u"Stage 3: each kind appears once"_s);
    row("campaigns at once", 0, u"campaignFrom"_s, u"4"_s, first);
    row("campaigns in the first stage", 0, u"campaignTo"_s, u"4"_s, first);
  }
  void aStageIsRefused() {
    QFETCH(int, stage);
    QFETCH(QString, field);
    QFETCH(QString, text);
    auto fields = valuesOf(typedStages().at(stage));
    fields.insert(field, text);
    auto stages = typedStages();
    stages[stage] = fieldsOf<TypedStage>(fields);
    QTEST(problemOf(stages), "message");
    const auto problem = RoadmapRules::firstProblem(stages);
    if (problem) QCOMPARE(problem->stage, stage);
    if (problem) QCOMPARE(problem->field, field);
  }

  void theWholeIsRefused() {
    QCOMPARE(problemOf({}), u"A roadmap needs at least one stage"_s);
    QList<TypedStage> stages;
    for (int i = 0; i < 7; ++i)
      stages.append(TypedStage{u"k%1"_s.arg(i), u"S"_s, u"30"_s, u"1"_s, u"1"_s, u"0"_s, u"0"_s});
    QCOMPARE(problemOf(stages), u"A roadmap has at most 6 stages"_s);
    stages.removeLast();
    QCOMPARE(problemOf(stages), QString());
    stages.last().days = u"31"_s;
    QCOMPARE(problemOf(stages), u"A roadmap is at most 180 days long"_s);
    // The first rule that is broken is told, and the stage before the next.
    stages[4].name.clear();
    stages[2].days = u"x"_s;
    QCOMPARE(problemOf(stages), u"Stage 3: days is a whole number from 1 to 90"_s);
  }

  void lengthsLeaveTheNameOfATemplate_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("days") << u"Google Workspace · 28 days"_s << u"Google Workspace"_s;
    QTest::newRow("a day") << u"One\u00a0· 1 day"_s << u"One"_s;
    QTest::newRow("tight") << u"Fast·7days"_s << u"Fast"_s;
    QTest::newRow("in between") << u"A · 28 days plan"_s << u"A · 28 days plan"_s;
    QTest::newRow("no number") << u"A · some days"_s << u"A · some days"_s;
  }
  void lengthsLeaveTheNameOfATemplate() {
    QFETCH(QString, name);
    QTEST(RampupWords::templateName(name), "shown");
  }

  void everyKeystrokeIsCheckedAndDrawn() {
    RampupFixture f;
    RoadmapEditor& editor = *f.store.editor();
    QAbstractItemModelTester tester(editor.stages(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QList<RoadmapStage> sent;
    editor.open({.stages = someStages(), .from = QDate(2026, 10, 28), .submit = [&sent](const auto& stages) {
                   sent = stages;
                 }});
    QCOMPARE(editor.summary(), u"42 days · ends at 15 warm-up and 40 campaign a day"_s);
    QCOMPARE(editor.countText(), u"3 of 6 stages"_s);
    QCOMPARE(editor.days().size(), 42);
    QCOMPARE(editor.days().last(), u"2026-12-08"_s);
    const auto values = [&editor](int series) {
      return editor.series().at(series).toMap().value(u"values"_s).toList();
    };
    QCOMPARE(values(0).first().toInt(), 5);
    QCOMPARE(values(0).at(13).toInt(), 18);
    QCOMPARE(values(1).at(14).toInt(), 2);
    const QString first = editor.stages()->records().front().id;
    editor.set(first, u"days"_s, u"2"_s);
    QCOMPARE(editor.days().size(), 30);
    editor.set(first, u"days"_s, QString());
    QCOMPARE(editor.stages()->records().front().wrong, u"days"_s);
    QVERIFY(!editor.canSubmit());
    editor.submit();
    QVERIFY(sent.isEmpty());
    editor.set(first, u"days"_s, u"3"_s);
    editor.submit();
    QCOMPARE(sent.first().days, 3);
  }

  void stagesComeAndGo() {
    RampupFixture f;
    RoadmapEditor& editor = *f.store.editor();
    editor.open({.stages = someStages().first(1), .from = QDate(2026, 10, 28)});
    for (int i = 0; i < 9; ++i) editor.add();
    QCOMPARE(editor.typedStages().size(), 6);
    QCOMPARE(editor.typedStages().at(1).key, u"slow_ramp"_s);
    QCOMPARE(editor.typedStages().at(1).warmupFrom, u"18"_s);
    QCOMPARE(editor.problem(), u"Stage 4: each kind appears once"_s);
    while (editor.stages()->rowCount() > 0) editor.remove(editor.stages()->records().front().id);
    QCOMPARE(editor.problem(), u"A roadmap needs at least one stage"_s);
    QVERIFY(editor.days().isEmpty());
  }

  void aFieldGivesBackWhatItWasGiven() {
    RampupFixture f;
    QList<RoadmapStage> stages = someStages();
    stages.first().name = u"\u05e9\u05dc\u05d1"_s;
    RoadmapEditor& editor = *f.store.editor();
    editor.open({.stages = stages, .from = QDate(2026, 10, 28)});
    const auto& rows = *editor.stages();
    QCOMPARE(rows.index(0).data(rows.roleNames().key("name")).toString(), stages.first().name);
  }

  void whatWasTypedComesBackAfterACrash() {
    RampupFixture f;
    f.journal.open({u"u1"_s, u"https://service.example"_s});
    {
      RampupStore store(*f.context);
      store.editor()->open({.key = u"rampup/m1/stages"_s, .stages = someStages(), .version = 4});
      settle();
      store.editor()->set(store.editor()->stages()->records().front().id, u"name"_s, u"Calm start"_s);
      f.clock.advance(std::chrono::seconds(2));
      settle();
    }
    RoadmapEditor& editor = *f.store.editor();
    editor.open({.key = u"rampup/m1/stages"_s, .stages = someStages(), .version = 4});
    settle();
    QCOMPARE(editor.typedStages().first().name, u"Calm start"_s);
    QVERIFY(!editor.recovery()->notice().isEmpty());
    editor.recovery()->discard();
    QCOMPARE(editor.typedStages().first().name, u"Warm-up only"_s);
  }
};

QTEST_GUILESS_MAIN(RoadmapEditorTest)
#include "roadmapeditor_test.moc"
