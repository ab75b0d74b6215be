#include <QAbstractItemModelTester>

#include "tests/app/rampup/RampupFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto put = u"PUT /rampup/templates/t1"_s;
const auto del = u"DELETE /rampup/templates/t1"_s;
const auto restore = u"POST /rampup/templates/t1/restore"_s;

QByteArray pageOf(const QList<RoadmapTemplate>& items, qint64 archived) {
  return encodeJSON(TemplatePage{items, archived});
}

}  // namespace

class RoadmapTemplatesTest : public QObject {
  Q_OBJECT

  std::unique_ptr<RampupFixture> f;

  RoadmapTemplates& templates() { return *f->store.templates(); }
  static RoadmapTemplate changed(const QString& name, qint64 version) {
    RoadmapTemplate made = RampupFixture::aTemplate();
    made.name = name;
    made.version = version;
    return made;
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<RampupFixture>();
    f->load({someItem(u"m1"_s), someItem(u"m2"_s, std::nullopt)});
    templates().list()->appear();
  }
  void cleanup() { f.reset(); }

  void namesStandWithoutTheirLength() {
    const TemplateRow row = templates().rows()->records().at(0);
    QCOMPARE(row.name, u"Google schedule"_s);
    QCOMPARE(row.lengthText, u"42 days"_s);
    QCOMPARE(row.stagesText, u"Warm-up only, 14 days · Slow ramp, 21 days · Full volume, 7 days"_s);
    QCOMPARE(f->store.sections().at(1).count, 1);
  }

  void aNewOneIsACopyOfTheGoogleSchedule() {
    const QString created = u"POST /rampup/templates"_s;
    templates().beginCreate();
    NameForm& form = *templates().newTemplate();
    QVERIFY(form.hint().startsWith(u"It starts as a copy of the Google schedule."_s));
    form.setText(QString(80, u'x'));
    form.submit();
    QCOMPARE(form.error(), u"Under 80 characters"_s);
    form.setText(u"Spring domains"_s);
    f->api.expect(created);
    form.submit();
    QCOMPARE(f->sentBody().value("name"_L1).toString(), u"Spring domains"_s);
    QCOMPARE(f->sentBody().value("stages"_L1).toArray().size(), 3);
    RoadmapTemplate made = changed(u"Spring domains"_s, 1);
    made.id = u"t2"_s;
    f->api.expect(f->templates);
    f->api.answer(created, encodeJSON(made));
    f->api.answer(f->templates, pageOf({RampupFixture::aTemplate(), made}, 0));
    QVERIFY(!form.shown());
    QCOMPARE(templates().rows()->rowCount(), 2);
    // The next screen is its schedule.
    QVERIFY(f->store.editor()->shown());
    QVERIFY(f->store.editor()->about().startsWith(u"Spring domains"_s));
    // And once that is saved, who is to follow it.
    f->api.expect(u"PUT /rampup/templates/t2"_s);
    f->store.editor()->submit();
    f->api.expect(f->get);
    f->api.answer(u"PUT /rampup/templates/t2"_s, encodeJSON(made));
    QVERIFY(f->store.adding()->form()->shown());
    QCOMPARE(f->store.adding()->title(), u"Add accounts to Spring domains"_s);
    f->api.answer(f->get, listOf({}));
  }

  void aNewOneIsToldOfWhereverItsFormIs() {
    const QString created = u"POST /rampup/templates"_s;
    NameForm& form = *templates().newTemplate();
    templates().beginCreate();
    form.setText(u"Spring domains"_s);
    f->api.expect(created);
    form.submit();
    form.cancel();
    RoadmapTemplate made = changed(u"Spring domains"_s, 1);
    made.id = u"t2"_s;
    f->api.expect(f->templates);
    f->api.answer(created, encodeJSON(made));
    QCOMPARE(f->lastToast(), u"Created “Spring domains”"_s);
    QVERIFY(!f->store.editor()->shown());
    f->api.answer(f->templates, pageOf({RampupFixture::aTemplate(), made}, 0));
  }

  void aCopyWaitsForWhatItIsACopyOf() {
    f = std::make_unique<RampupFixture>();
    f->api.expect(f->templates);
    templates().beginCreate();
    templates().newTemplate()->setText(u"Spring domains"_s);
    templates().newTemplate()->submit();
    QCOMPARE(templates().newTemplate()->error(), u"The Google schedule isn’t loaded yet. Try again in a moment."_s);
    QCOMPARE(f->asked(u"POST /rampup/templates"_s), 0);
    f->api.answer(f->templates, pageOf({RampupFixture::aTemplate()}, 0));
  }

  void aRenameIsRefusedWhenSomebodyElseWasFaster() {
    QVERIFY(templates().act(u"rename"_s, u"t1"_s));
    NameForm& form = *templates().rename();
    form.setText(u"Calm"_s);
    f->api.expect(put);
    form.submit();
    QCOMPARE(f->api.last().request.ifMatch, 3);
    QCOMPARE(f->sentBody(), (QJsonObject{{u"name"_s, u"Calm"_s}}));
    f->api.expect(f->templates);
    f->api.answer(put, R"({"title":"Changed"})", 412);
    QCOMPARE(form.error(), u"This template changed since you opened it. Close and try again."_s);
    f->api.answer(f->templates, pageOf({changed(u"Theirs"_s, 4)}, 0));
    form.cancel();
    QVERIFY(templates().act(u"rename"_s, u"t1"_s));
    QCOMPARE(form.text(), u"Theirs"_s);
    form.setText(u"Calm"_s);
    f->api.expect(put);
    form.submit();
    QCOMPARE(f->api.last().request.ifMatch, 4);
    f->api.expect(f->get);
    f->api.answer(put, encodeJSON(changed(u"Calm"_s, 5)));
    QCOMPARE(f->lastToast(), u"Template renamed"_s);
    QCOMPARE(templates().rows()->records().at(0).name, u"Calm"_s);
    f->api.answer(f->get, listOf({}));
  }

  void aSavedScheduleIsReadAgainByItsAccounts() {
    QVERIFY(templates().act(u"edit"_s, u"t1"_s));
    QCOMPARE(f->store.editor()->submitLabel(), u"Save schedule"_s);
    QCOMPARE(f->store.editor()->about(), u"Google schedule · Accounts on it update from today."_s);
    f->api.expect(put);
    f->store.editor()->submit();
    f->api.expect(f->get);
    f->api.answer(put, encodeJSON(changed(u"Google schedule"_s, 4)));
    QCOMPARE(f->lastToast(), u"Schedule saved. Accounts on it update from today."_s);
    f->api.answer(f->get, listOf({someItem(u"m1"_s)}));
  }

  void itGoesToTheArchiveAndBack() {
    QAbstractItemModelTester tester(templates().rows(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    f->api.expect(del);
    QVERIFY(templates().act(u"archive"_s, u"t1"_s));
    QVERIFY(!templates().act(u"archive"_s, u"t1"_s));
    f->api.answer(del, {}, 204);
    QCOMPARE(f->lastToast(), u"Archived “Google schedule”. Its accounts keep their roadmaps."_s);
    QCOMPARE(templates().rows()->rowCount(), 0);
    QCOMPARE(templates().archivedCount(), 1);
    f->api.expect(restore);
    f->toasts.act(f->toasts.toasts().last().id);
    settle();
    f->api.expect(f->templates);
    f->api.answer(restore, encodeJSON(changed(u"Google schedule · 42 days"_s, 5)));
    QCOMPARE(f->lastToast(), u"Restored"_s);
    f->api.answer(f->templates, pageOf({RampupFixture::aTemplate()}, 0));
    QCOMPARE(templates().rows()->rowCount(), 1);
  }

  void whatIsDeletedForGoodIsAskedAboutFirst() {
    RoadmapTemplate archived = RampupFixture::aTemplate();
    archived.id = u"t9"_s;
    archived.archivedAt = u"2026-11-02T00:00:00Z"_s;
    f->api.expect(f->templates);
    templates().setShowArchived(true);
    QCOMPARE(f->api.last().request.query.first().name, u"archived"_s);
    f->api.answer(f->templates, pageOf({archived}, 1));
    QCOMPARE(templates().archivedRows()->records().at(0).goneText, u"2 Dec"_s);
    const QString forGood = u"DELETE /rampup/templates/t9"_s;
    QVERIFY(templates().act(u"delete"_s, u"t9"_s));
    QVERIFY(f->overlays.asking());
    f->api.expect(forGood);
    f->api.expect(f->templates);
    f->api.expect(f->templates);
    f->overlays.answer(f->overlays.token(), true);
    settle();
    f->api.answer(forGood, "{}", 500);
    QCOMPARE(f->lastToast(), u"Couldn’t delete the template."_s);
    while (f->api.isWaiting(f->templates)) f->api.answer(f->templates, pageOf({archived}, 1));
  }

  void accountsAreAddedByOneRestart() {
    AddToTemplate& adding = *f->store.adding();
    QVERIFY(templates().act(u"add"_s, u"t1"_s));
    QCOMPARE(adding.title(), u"Add accounts to Google schedule"_s);
    // m1 is on it already.
    QCOMPARE(adding.rows()->rowCount(), 1);
    QVERIFY(!adding.canSubmit());
    adding.setQuery(u"nobody"_s);
    QCOMPARE(adding.note(), u"No accounts match."_s);
    adding.setQuery({});
    adding.toggle(u"m2"_s);
    QCOMPARE(adding.submitLabel(), u"Add 1 account"_s);
    f->api.expect(f->bulk);
    adding.submit();
    QCOMPARE(
        f->sentBody(),
        (QJsonObject{{u"action"_s, u"restart"_s}, {u"templateId"_s, u"t1"_s}, {u"mailboxIds"_s, QJsonArray{u"m2"_s}}}));
    f->api.expect(f->get);
    f->api.answer(f->bulk, R"({"ok":1,"failed":[]})");
    QCOMPARE(f->lastToast(), u"1 account added. Each starts on day 1 today."_s);
    QVERIFY(!adding.form()->shown());
    f->api.answer(f->get, listOf({}));
  }
};

QTEST_GUILESS_MAIN(RoadmapTemplatesTest)
#include "roadmaptemplates_test.moc"
