#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/base/TimeZones.h"
#include "app/campaigns/CampaignStore.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto get = u"GET /campaigns/c1"_s;
const auto patched = u"PATCH /campaigns/c1"_s;
const auto mailboxes = u"GET /mailboxes"_s;
const auto tagsCall = u"GET /tags"_s;

const QByteArray hours = R"({"name":"Week","days":[1,2],"start":"09:00","end":"17:00","timeZone":"Europe/Berlin"})";

QByteArray campaign(qint64 version, const QByteArray& more = {}, const QByteArray& name = "Acme") {
  return R"({"id":"c1","name":")" + name + R"(","status":"running","version":)" + QByteArray::number(version) +
         R"(,"gapSeconds":90,"stopOnReply":true,"tags":["q4"],)"
         R"("settings":{"dailyLimit":400,"cc":["c@a.example"],"senderTags":[]},)"
         R"("schedule":{"startDate":"2026-11-23","schedules":[)" +
         hours + "]}" + more + "}";
}

QByteArray mailbox(const QByteArray& id, const QByteArray& more) {
  return R"({"id":")" + id + R"(","address":")" + id + R"(@a.example","displayName":"Box )" + id +
         R"(","provider":"google","role":"sender","status":"active","dailyCap":40,"createdAt":"",)"
         R"("warmup":{"sentToday":0,"receivedToday":0,"replies7d":0,"placed7d":0,"spam7d":0})" +
         more + "}";
}

}  // namespace

class CampaignSettingsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<CampaignStore> store;
  CampaignSettings* form = nullptr;
  ScheduleForm* schedule = nullptr;

  void load(const QByteArray& answer) {
    f->api.expect(get);
    store->refresh();
    f->api.answer(get, answer);
  }
  QJsonObject sent() const { return QJsonDocument::fromJson(f->api.last().request.body.value_or("")).object(); }
  QString value(const QString& field) const { return form->draft()->values().value(field).toString(); }
  QString problem(const QString& field) const { return form->draft()->problems().value(field).toString(); }
  QVariantMap window(int number) const { return schedule->windows().value(number).toMap(); }
  QString lastToast() const {
    const auto& toasts = f->toasts.toasts();
    return toasts.isEmpty() ? QString() : toasts.last().message;
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    store = std::make_unique<CampaignStore>(u"c1"_s, *f->context);
    form = store->settings();
    schedule = form->schedule();
    f->navigator.openItem(Page::campaigns, u"c1"_s);
  }
  void cleanup() {
    store.reset();
    f.reset();
  }

  void numbersAreShownAsTheyAreTyped_data() {
    QTest::addColumn<QByteArray>("given");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a gap rounds") << QByteArray(R"(,"gapSeconds":90)") << u"gap"_s << u"2"_s;
    QTest::newRow("to a minute at least") << QByteArray(R"(,"gapSeconds":20)") << u"gap"_s << u"1"_s;
    QTest::newRow("the usual cap") << QByteArray() << u"dailyCap"_s << u"30"_s;
    QTest::newRow("its own cap") << QByteArray(R"(,"dailyCapPerInbox":12)") << u"dailyCap"_s << u"12"_s;
    QTest::newRow("no limit") << QByteArray(R"(,"settings":{"dailyLimit":null})") << u"dailyLimit"_s << u""_s;
  }
  void numbersAreShownAsTheyAreTyped() {
    QFETCH(QByteArray, given);
    QFETCH(QString, field);
    load(R"({"id":"c1","name":"A","status":"draft")" + given + "}");
    QTEST(value(field), "shown");
    QVERIFY(!form->dirty());
  }

  void aRefusedFormSendsNothing_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("problem");
    const auto row = [](const QString& field, const QString& typed, const QString& problem) {
      QTest::newRow(qPrintable(field + u' ' + typed)) << field << typed << problem;
    };
    row(u"name"_s, u"  "_s, u"Give the campaign a name"_s);
    for (const auto& typed : {u"0"_s, u"1441"_s, u""_s, u"2.5"_s}) row(u"gap"_s, typed, u"1 to 1440 minutes"_s);
    for (const auto& typed : {u"0"_s, u"501"_s, u""_s}) row(u"dailyCap"_s, typed, u"1 to 500"_s);
    for (const auto& typed : {u"0"_s, u"100001"_s, u"many"_s}) row(u"dailyLimit"_s, typed, u"1 to 100,000, or empty"_s);
    row(u"maxNewPerDay"_s, u"-1"_s, u"1 to 100,000, or empty"_s);
    row(u"cc"_s, u"a@b.example, nobody"_s, u"“nobody” is not an email address"_s);
    row(u"bcc"_s, u"@b.example"_s, u"“@b.example” is not an email address"_s);
    row(u"startDate"_s, u"23.11.2026"_s, u"Write the date as YYYY-MM-DD"_s);
    row(u"startDate"_s, u"2026-11-23T08:00"_s, u"Write the date as YYYY-MM-DD"_s);
    row(u"startDate"_s, u"26-11-23"_s, u"Write the date as YYYY-MM-DD"_s);
    row(u"endDate"_s, u"2026-02-30"_s, u"Write the date as YYYY-MM-DD"_s);
    row(u"endDate"_s, u"2026-11-22"_s, u"The end date must not come before the start date"_s);
  }
  void aRefusedFormSendsNothing() {
    QFETCH(QString, field);
    QFETCH(QString, typed);
    load(campaign(7));
    form->draft()->set(field, typed);
    form->save();
    QTEST(problem(field), "problem");
    QCOMPARE(f->api.sent().size(), 1u);
    form->draft()->set(field, typed + u'x');
    QCOMPARE(problem(field), QString());
    form->discard();
    QVERIFY(!form->dirty());
  }

  void whatWasChangedIsSent() {
    load(campaign(7));
    form->draft()->set(u"name"_s, u" New "_s);
    form->draft()->set(u"dailyLimit"_s, u" "_s);
    form->draft()->set(u"maxNewPerDay"_s, u"+50"_s);
    form->draft()->set(u"stopOnReply"_s, false);
    form->draft()->set(u"cc"_s, u"c@a.example; d@a.example,"_s);
    form->draft()->set(u"endDate"_s, u"2026-12-23"_s);
    form->addTags({u"Spring"_s});
    for (int i = 0; i < 25; ++i) form->addTags({u"t%1"_s.arg(i)});
    QCOMPARE(form->tags().size(), 27);
    for (int i = 0; i < 25; ++i) form->removeTag(u"t%1"_s.arg(i));
    f->api.expect(patched);
    form->save();
    QVERIFY(form->saving());
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(7));
    const QByteArray expected =
        R"({"name":"New","stopOnReply":false,"tags":["Spring","q4"],)"
        R"("settings":{"dailyLimit":null,"maxNewPerDay":50,"cc":["c@a.example","d@a.example"]},)"
        R"("schedule":{"startDate":"2026-11-23","endDate":"2026-12-23","schedules":[)" +
        hours + "]}}";
    QCOMPARE(sent(), QJsonDocument::fromJson(expected).object());
    f->api.answer(patched, campaign(8, {}, "New"));
    QVERIFY(!form->saving());
    QCOMPARE(value(u"name"_s), u"New"_s);
    QCOMPARE(store->name(), u"New"_s);
    QCOMPARE(lastToast(), u"Settings saved"_s);
    QVERIFY(!form->dirty());
  }

  void itSaysWhereSomethingIsUnsaved() {
    const auto unsaved = [this] {
      QStringList titles;
      for (const Choice& section : form->sections())
        if (section.ticked) titles.append(section.label);
      for (const Choice& tab : store->tabs())
        if (tab.ticked) titles.append(u"tab "_s + tab.label);
      return titles;
    };
    load(campaign(7));
    QCOMPARE(unsaved(), QStringList());
    form->draft()->set(u"bcc"_s, u"b@a.example"_s);
    form->draft()->set(u"gap"_s, u"9"_s);
    schedule->toggleDay(0, 5);
    QCOMPARE(unsaved(), (QStringList{u"Limits"_s, u"Copies"_s, u"Schedules"_s, u"tab Settings"_s}));
    form->discard();
    QCOMPARE(unsaved(), (QStringList{u"Schedules"_s, u"tab Settings"_s}));

    // Both at once are two requests, the second on what the first left.
    form->draft()->set(u"gap"_s, u"9"_s);
    f->api.expect(patched);
    form->saveAll();
    QVERIFY(!sent().contains("schedule"_L1));
    f->api.expect(patched);
    f->api.answer(patched, campaign(8, R"(,"gapSeconds":540)"));
    QCOMPARE(lastToast(), u"Settings saved"_s);
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(8));
    QCOMPARE(sent().keys(), QStringList{u"schedule"_s});
    f->api.answer(patched, QByteArray(campaign(9, R"(,"gapSeconds":540)")).replace("[1,2]", "[1,2,5]"));
    QCOMPARE(lastToast(), u"Schedule saved"_s);
    QCOMPARE(unsaved(), QStringList());

    // Hours that are only offered are to be saved, but nobody's work.
    load(R"({"id":"c1","name":"Acme","status":"draft","version":10})");
    QCOMPARE(unsaved(), QStringList{u"Schedules"_s});
    QVERIFY(schedule->canSave() && !form->unsaved());
  }

  void aRoundedGapIsWrittenOnlyWhenTyped() {
    load(campaign(7));
    form->draft()->set(u"gap"_s, u"3"_s);
    form->draft()->set(u"gap"_s, u"2"_s);
    QVERIFY(!form->dirty());
    form->draft()->set(u"prioritizeNew"_s, true);
    f->api.expect(patched);
    form->save();
    QVERIFY(!sent().contains("gapSeconds"_L1));
    f->api.answer(patched, campaign(8));
    form->draft()->set(u"gap"_s, u"5"_s);
    f->api.expect(patched);
    form->save();
    QCOMPARE(sent(), (QJsonObject{{u"gapSeconds"_s, 300}}));
    f->api.answer(patched, campaign(9));
  }

  void whatIsTypedWhileItSavesStays() {
    load(campaign(7));
    form->draft()->set(u"name"_s, u"One"_s);
    f->api.expect(patched);
    form->save();
    form->draft()->set(u"name"_s, u"Two"_s);
    form->draft()->set(u"bcc"_s, u"b@a.example"_s);
    f->api.answer(patched, campaign(8, {}, "One"));
    QCOMPARE(value(u"name"_s), u"Two"_s);
    QVERIFY(form->dirty());
    f->api.expect(patched);
    form->save();
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(8));
    QCOMPARE(sent().value("name"_L1).toString(), u"Two"_s);
    f->api.answer(patched, campaign(9, {}, "Two"));
  }

  void aNewerCampaignLeavesWhatWasTyped() {
    load(campaign(7));
    form->draft()->set(u"cc"_s, u"typed@a.example"_s);
    schedule->toggleDay(0, 6);
    load(campaign(8, {}, "Renamed elsewhere"));
    QCOMPARE(value(u"cc"_s), u"typed@a.example"_s);
    QCOMPARE(value(u"name"_s), u"Renamed elsewhere"_s);
    QCOMPARE(window(0).value(u"days"_s).value<QList<qint64>>(), (QList<qint64>{1, 2, 6}));
    f->api.expect(patched);
    form->save();
    QVERIFY2(!sent().contains("name"_L1), "what somebody else changed is not written back");
    f->api.answer(patched, campaign(9));
  }

  void aConflictKeepsTheFormAndBringsTheVersion() {
    load(campaign(7));
    form->draft()->set(u"name"_s, u"Mine"_s);
    f->api.expect(patched);
    form->save();
    f->api.expect(get);
    f->api.answer(patched, R"({"title":"Somebody was faster","detail":"It changed."})", 409);
    QCOMPARE(lastToast(), u"Couldn’t save."_s);
    f->api.answer(get, campaign(8));
    QCOMPARE(value(u"name"_s), u"Mine"_s);
    f->api.expect(patched);
    form->save();
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(8));
    f->api.expect(get);
    f->api.fail(patched, TransportFailure::offline);
    QVERIFY(!form->saving());
    QCOMPARE(value(u"name"_s), u"Mine"_s);
    f->api.answer(get, campaign(8));
  }

  void theTwoFormsLeaveEachOtherAlone() {
    load(campaign(7));
    form->draft()->set(u"startDate"_s, u"2026-12-01"_s);
    schedule->setText(0, u"end"_s, u"18:30"_s);
    f->api.expect(patched);
    schedule->save();
    QVERIFY(schedule->saving());
    QVERIFY2(!form->canSave(), "two saves at once would refuse each other");
    const QJsonObject body = sent().value("schedule"_L1).toObject();
    QCOMPARE(sent().keys(), QStringList{u"schedule"_s});
    QCOMPARE(body.value("startDate"_L1).toString(), u"2026-11-23"_s);
    QCOMPARE(body.value("schedules"_L1)[0]["end"_L1].toString(), u"18:30"_s);
    QByteArray answer = campaign(8);
    f->api.answer(patched, answer.replace("17:00", "18:30"));
    QCOMPARE(lastToast(), u"Schedule saved"_s);
    QVERIFY(!schedule->dirty());
    QCOMPARE(value(u"startDate"_s), u"2026-12-01"_s);
    schedule->setText(0, u"name"_s, u"Late"_s);
    f->api.expect(patched);
    form->save();
    QCOMPARE(sent().value("schedule"_L1)["schedules"_L1][0]["name"_L1].toString(), u"Week"_s);
    f->api.answer(patched, answer);
    QCOMPARE(window(0).value(u"name"_s).toString(), u"Late"_s);
    schedule->discard();
    QCOMPARE(window(0).value(u"name"_s).toString(), u"Week"_s);
  }

  /// From the page's header or from the list: nobody conflicts with themselves.
  void aRenameElsewhereIsNobodyElses() {
    load(campaign(7));
    form->draft()->set(u"name"_s, u"Typed"_s);
    store->beginRename();
    store->renameForm()->setText(u"Renamed"_s);
    f->api.expect(patched);
    store->renameForm()->submit();
    f->api.answer(patched, campaign(8, {}, "Renamed"));
    QCOMPARE(value(u"name"_s), u"Typed"_s);
    QVERIFY(form->conflict().isEmpty());
    f->api.expect(patched);
    form->save();
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(8));
    f->api.answer(patched, campaign(9, {}, "Typed"));
    // What an action brings that names no version may be anybody's.
    form->draft()->set(u"name"_s, u"Typed again"_s);
    const auto pause = u"POST /campaigns/c1/pause"_s;
    f->api.expect(pause);
    store->pause();
    f->overlays.answer(f->overlays.token(), true);
    f->api.answer(pause, campaign(11, {}, "Their\\ns"));
    QVERIFY(form->conflict().contains(u"“Their s”"_s));
    f->api.expect(patched);
    form->save();
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(9));
    f->api.expect(get);
    f->api.answer(patched, R"({"title":"Changed"})", 412);
    store->close();
  }

  void hoursAreCheckedBeforeTheyAreSent() {
    load(campaign(7));
    schedule->add();
    QCOMPARE(window(1).value(u"timeZone"_s).toString(), u"Europe/Berlin"_s);
    for (int day = 1; day <= 5; ++day) schedule->toggleDay(1, day);
    schedule->setText(1, u"end"_s, u"09:00"_s);
    schedule->setText(1, u"timeZone"_s, u"Europe/Atlantis"_s);
    schedule->save();
    QCOMPARE(window(1).value(u"daysError"_s).toString(), u"Pick at least one day."_s);
    QCOMPARE(window(1).value(u"timesError"_s).toString(), u"The end must come after the start."_s);
    QCOMPARE(window(1).value(u"zoneError"_s).toString(), u"Not a known time zone"_s);
    schedule->toggleDay(1, 7);
    schedule->setText(1, u"end"_s, u"09:30"_s);
    schedule->setText(1, u"timeZone"_s, u"new york"_s);
    const auto zones = schedule->zones(u"new york"_s);
    QCOMPARE(zones.size(), 1);
    QCOMPARE(zones.first().key, u"America/New_York"_s);
    QVERIFY2(zones.first().detail.startsWith(u"UTC\u22120"_s), qPrintable(zones.first().detail));
    schedule->setText(1, u"timeZone"_s, u"America/New_York"_s);
    QVERIFY(schedule->zones(u"America/New_York"_s).isEmpty());
    f->api.expect(patched);
    schedule->save();
    f->api.answer(patched, campaign(8));
    schedule->remove(0);
    QCOMPARE(schedule->count(), 1);
  }

  void aCampaignWithoutHoursIsOfferedSome() {
    load(R"({"id":"c1","name":"A","status":"draft","version":1})");
    QCOMPARE(window(0).value(u"name"_s).toString(), u"Main schedule"_s);
    QVERIFY(!schedule->dirty());
    QVERIFY(schedule->canSave());
  }

  void sendersAreReadToTheLastPage() {
    QAbstractItemModelTester tester(form->senders()->rows(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    load(campaign(7, R"(,"senders":[{"mailboxId":"m3","address":"m3@a.example","displayName":"Box m3",)"
                     R"("status":"active","ready":true,"capToday":12,"sentToday":4,"viaTag":false}])"));
    f->api.expect(mailboxes);
    f->api.expect(tagsCall);
    form->ensureLoaded();
    f->api.answer(tagsCall, R"({"items":[{"key":"q4","name":"Fourth quarter"},{"key":"x"}]})");
    f->api.expect(mailboxes);
    f->api.answer(mailboxes, R"({"items":[)" + mailbox("m1", R"(,"sendLimit":30,"tags":["dach"])") + "," +
                                 mailbox("m2", R"(,"sendLimit":20)") + R"(],"nextCursor":"p2"})");
    QCOMPARE(f->api.last().request.query.value(1), (QueryItem{u"cursor"_s, u"p2"_s}));
    f->api.answer(mailboxes, R"({"items":[)" + mailbox("m3", R"(,"sendLimit":99)") + "]}");
    const auto& rows = form->senders()->rows()->records();
    QCOMPARE(rows.size(), 3u);
    QCOMPARE(rows[0].id, u"m3"_s);
    QCOMPARE(rows[0].today, u"4 of 12 today"_s);
    QVERIFY(rows[0].ticked && !rows[1].ticked);
    QCOMPARE(form->senders()->summary(), u"1 inbox sends · up to 12 a day each"_s);
    form->senders()->toggleTag(u"dach"_s);
    QVERIFY2(!form->senders()->rows()->records()[1].viaTag, "only the service says who joins by a tag");
    form->senders()->toggle(u"m2"_s);
    QCOMPARE(form->senders()->summary(), u"2 inboxes send · 12 to 20 a day each"_s);
    form->addTags({u"fourth QUARTER"_s});
    QCOMPARE(form->tags().size(), 1);
    f->api.expect(patched);
    form->save();
    QCOMPARE(sent().value("senderMailboxIds"_L1).toArray(), (QJsonArray{u"m2"_s, u"m3"_s}));
    QCOMPARE(sent().value("settings"_L1)["senderTags"_L1].toArray(), QJsonArray{u"dach"_s});
    f->api.answer(patched, campaign(8));
    form->senders()->setQuery(u"M2@"_s);
    QCOMPARE(form->senders()->rows()->count(), 1);
  }

  void listsThatFailSaySo() {
    load(campaign(7));
    f->api.expect(mailboxes);
    f->api.expect(tagsCall);
    form->ensureLoaded();
    f->api.answer(tagsCall, R"({"title":"Down","detail":"For an hour."})", 409);
    f->api.answer(mailboxes, R"({"title":"Down","detail":"For an hour."})", 409);
    QVERIFY(form->tagNote().startsWith(u"Couldn’t load the tags. "_s));
    QVERIFY(form->senders()->note().startsWith(u"Couldn’t load the inboxes. "_s));
    QCOMPARE(f->toasts.count(), 0);
    f->api.expect(tagsCall);
    form->retryTags();
    f->api.answer(tagsCall, R"({"items":[]})");
    f->api.expect(mailboxes);
    form->senders()->refresh();
    f->api.answer(mailboxes, R"({"items":[]})");
    QCOMPARE(form->tagNote(), u"No tags yet. Type one below."_s);
    QCOMPARE(form->senders()->note(), u"No inboxes yet. Connect one on the Accounts page."_s);
    QCOMPARE(form->senders()->tagNote(), u"No tags yet. Tag inboxes on the Accounts page."_s);
    // F5, and coming back to the tab, read both again; what was known stays when that fails.
    for (const auto& call : {get, mailboxes, tagsCall}) f->api.expect(call);
    store->setTab(u"settings"_s);
    store->refreshShown();
    f->api.answer(get, campaign(7));
    f->api.answer(tagsCall, R"({"title":"Down","detail":"For an hour."})", 409);
    QCOMPARE(lastToast(), u"Couldn’t load the tags"_s);
    f->api.answer(mailboxes, R"({"title":"Down","detail":"For an hour."})", 409);
    QCOMPARE(lastToast(), u"Couldn’t load the inboxes"_s);
    QCOMPARE(form->tagNote(), u"No tags yet. Type one below."_s);
  }

  void timeZonesAreThoseOfTheDatabase() {
    const QByteArray zi =
        "# version 2025b\nR d 1916 o - Jun 14 23s 1 S\nZ Europe/Kyiv 2:2:4 - LMT 1880\n2 u EE%sT\n"
        "Z Etc/UTC 0 - UTC\nL Europe/Kyiv Europe/Kiev\nL America/New_York US/Eastern\n";
    QCOMPARE(timeZonesIn(zi), (QStringList{u"Etc/UTC"_s, u"Europe/Kiev"_s, u"Europe/Kyiv"_s, u"US/Eastern"_s}));
    QCOMPARE(timeZonesAmong({"UTC", "UTC+01:00", "UTC-03:30", "localtime", "posixrules", "right/UTC", "Asia/Tokyo"}),
             (QStringList{u"Asia/Tokyo"_s, u"UTC"_s}));
    for (const auto& name : {u"Etc/UTC"_s, u"US/Eastern"_s, u"Europe/Kiev"_s, localTimeZone()})
      QVERIFY2(isTimeZone(name), qPrintable(name));
    for (const auto& name : {u"localtime"_s, u"posixrules"_s, u"right/Europe/London"_s, u"CET-1CEST"_s, u"UTC+01:00"_s,
                             u"europe/london"_s, u""_s})
      QVERIFY2(!isTimeZone(name), qPrintable(name));
  }

  void hoursAreShownAndKeptAsTheServiceWritesThem() {
    const QByteArray seconds = QByteArray(hours).replace("09:00", "08:15:00").replace("17:00", "24:00:00");
    load(campaign(7).replace(hours, seconds));
    QCOMPARE(window(0).value(u"start"_s).toString(), u"08:15"_s);
    QCOMPARE(window(0).value(u"end"_s).toString(), u"24:00"_s);
    schedule->setText(0, u"start"_s, u"08:15"_s);
    schedule->setText(0, u"end"_s, u"24:00"_s);
    QVERIFY2(!schedule->dirty(), "the same time, written otherwise");
    schedule->toggleDay(0, 3);
    f->api.expect(patched);
    schedule->save();
    const QJsonValue kept = sent().value("schedule"_L1)["schedules"_L1][0];
    QCOMPARE(kept["start"_L1].toString() + u' ' + kept["end"_L1].toString(), u"08:15:00 24:00:00"_s);
    f->api.answer(patched, campaign(8).replace(hours, seconds));
  }

  void aWindowCanEndAtMidnight() {
    load(campaign(7));
    const auto starts = schedule->startTimes(u"09:00"_s), ends = schedule->endTimes(u"17:00"_s);
    QCOMPARE(starts.first().key + u' ' + starts.last().key, u"00:00 23:30"_s);
    QCOMPARE(ends.first().key + u' ' + ends.last().key, u"00:30 24:00"_s);
    const auto odd = schedule->startTimes(u"08:15"_s);
    QVERIFY(std::ranges::find(odd, u"08:15"_s, &Choice::key) != odd.end());
    schedule->setText(0, u"end"_s, u"00:00"_s);
    schedule->save();
    QCOMPARE(window(0).value(u"timesError"_s).toString(), u"The end must come after the start."_s);
    schedule->setText(0, u"end"_s, u"24:00"_s);
    f->api.expect(patched);
    schedule->save();
    QCOMPARE(sent().value("schedule"_L1)["schedules"_L1][0]["end"_L1].toString(), u"24:00"_s);
    f->api.answer(patched, campaign(8).replace("17:00", "24:00"));
  }

  void datesNeverTakeTheHoursAway() {
    load(R"({"id":"c1","name":"A","status":"draft","version":1})");
    form->draft()->set(u"startDate"_s, u"2026-12-01"_s);
    f->api.expect(patched);
    form->save();
    const QJsonArray sentHours = sent().value("schedule"_L1)["schedules"_L1].toArray();
    QCOMPARE(sentHours.size(), 1);
    QCOMPARE(sentHours[0]["name"_L1].toString(), window(0).value(u"name"_s).toString());
    f->api.answer(patched, R"({"id":"c1","name":"A","status":"draft","version":2})");
  }

  void hoursThatSomebodyElseChangedAreNotOverwrittenUnseen() {
    const QByteArray refusal = R"({"title":"Somebody was faster","detail":"It changed."})";
    load(campaign(7));
    schedule->setText(0, u"end"_s, u"18:00"_s);
    load(campaign(8).replace("17:00", "20:00"));
    QCOMPARE(window(0).value(u"end"_s).toString(), u"18:00"_s);
    QVERIFY2(schedule->note().contains(u"Week (Mon, Tue, 09:00 to 20:00, Europe/Berlin)"_s),
             qPrintable(schedule->note()));
    f->api.expect(patched);
    schedule->save();
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(7));
    f->api.expect(get);
    f->api.answer(patched, refusal, 409);
    QCOMPARE(lastToast(), u"Couldn’t save."_s);
    f->api.answer(get, campaign(8).replace("17:00", "20:00"));
    // Told and seen, it is the person's to decide.
    QVERIFY(!schedule->note().isEmpty());
    f->api.expect(patched);
    schedule->save();
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(8));
    f->api.answer(patched, campaign(9).replace("17:00", "18:00"));
    QVERIFY(schedule->note().isEmpty() && !schedule->dirty());
  }

  void aJournalKnowsHours() {
    load(campaign(7));
    schedule->toggleDay(0, 6);
    const QJsonObject kept = schedule->draft()->journal();
    schedule->discard();
    QVERIFY(schedule->draft()->journal().isEmpty());
    QVERIFY(schedule->draft()->restore(kept));
    QCOMPARE(window(0).value(u"days"_s).value<QList<qint64>>(), (QList<qint64>{1, 2, 6}));
  }

  void aSaveThatFailsWhenItsPageWasLeftIsTold() {
    const auto isMarked = [this] { return f->context->unsaved().contains(u"c1"_s); };
    const auto refuse = [this] { f->api.answer(patched, R"({"title":"Not now","detail":"It is checked."})", 422); };
    load(campaign(7));
    form->draft()->set(u"gap"_s, u"9"_s);
    schedule->toggleDay(0, 5);
    f->api.expect(patched);
    form->saveAll();
    f->navigator.open(Page::dashboard);
    f->api.expect(patched);
    refuse();
    QCOMPARE(lastToast(), u"“Acme” has unsaved changes"_s);
    QCOMPARE(f->toasts.toasts().last().detail, u"Couldn’t save the settings. Not now: It is checked."_s);
    refuse();
    QCOMPARE(f->toasts.toasts().last().detail, u"Couldn’t save the schedule. Not now: It is checked."_s);
    f->toasts.act(f->toasts.toasts().last().id);
    QCOMPARE(f->navigator.item, u"c1"_s);

    // The row's mark stays until there is nothing left of either.
    schedule->discard();
    QVERIFY(isMarked());
    f->api.expect(patched);
    form->save();
    f->api.answer(patched, campaign(8, R"(,"gapSeconds":540)"));
    QVERIFY(!isMarked() && !form->unsaved());
  }

  void aStoreThatGoesTakesItsSavesAlong() {
    load(campaign(7));
    form->draft()->set(u"name"_s, u"Mine"_s);
    f->api.expect(patched);
    form->save();
    store->close();
    QCOMPARE(f->api.cancelled(), QStringList{patched});
    QVERIFY(!form->saving());
  }
};

QTEST_GUILESS_MAIN(CampaignSettingsTest)
#include "campaignsettings_test.moc"
