#include "app/campaigns/SequenceDays.h"

#include "tests/app/campaigns/SequencePage.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto leads = u"GET /campaigns/c1/leads"_s;
const QList<qint64> weekdays{1, 2, 3, 4, 5};
constexpr qint64 day = minutesPerDay;

ScheduleWindow hours(const QList<qint64>& days, const QString& start, const QString& end,
                     const QString& zone = u"Europe/Berlin"_s) {
  return {u"Hours"_s, days, start, end, zone};
}

QDateTime at(const QString& utc) { return QDateTime::fromString(utc + u"Z"_s, Qt::ISODate); }

QString written(const QDateTime& instant) {
  return instant.isValid() ? instant.toUTC().toString(u"yyyy-MM-ddTHH:mm"_s) : u"never"_s;
}

/// A campaign whose emails go out from nine to five on weekdays in Berlin.
QByteArray planned(const QByteArray& steps, const QByteArray& dates = {}) {
  return R"({"id":"c1","name":"Acme","status":"draft","version":7,"senders":[],"schedule":{)" + dates +
         R"("schedules":[{"name":"Main","days":[1,2,3,4,5],"start":"09:00","end":"17:00","timeZone":"Europe/Berlin"}]},
           "steps":[)" +
         steps + "]}";
}

QByteArray email(int position, qint64 minutes) {
  return step(position, "Subject", "Text").replace("2160", QByteArray::number(minutes));
}

}  // namespace

class SequenceDaysTest final : public SequencePage {
  Q_OBJECT

  SequenceDays* days = nullptr;

  const StripEmail& shown(size_t i) const { return days->emails()->records().at(i); }
  void itIs(const QString& utc) { f->clock.jump(std::chrono::milliseconds(f->clock.now().msecsTo(at(utc)))); }
  void watchAt(const QString& utc) {
    itIs(utc);
    days->setWatched(true);
  }

 private Q_SLOTS:
  void init() {
    open();
    days = editor->days();
  }
  void cleanup() {
    store->close();
    leave();
  }

  void anEmailGoesOutWhenItsWaitIsOverAndTheHoursAreOpen_data() {
    QTest::addColumn<QString>("now");
    QTest::addColumn<QList<qint64>>("waits");
    QTest::addColumn<QList<ScheduleWindow>>("windows");
    QTest::addColumn<QStringList>("expected");
    const QList<ScheduleWindow> office{hours(weekdays, u"09:00"_s, u"17:00"_s)};

    QTest::newRow("within the hours") << u"2026-11-20T10:10:00"_s << QList<qint64>{0, 2 * day, 4 * day} << office
                                      << QStringList{u"2026-11-20T10:10"_s, u"2026-11-23T08:00"_s,
                                                     u"2026-11-27T08:00"_s};
    QTest::newRow("before the day's hours")
        << u"2026-11-20T04:00:00"_s << QList<qint64>{0} << office << QStringList{u"2026-11-20T08:00"_s};
    QTest::newRow("the last second of the hours")
        << u"2026-11-20T15:59:59"_s << QList<qint64>{0} << office << QStringList{u"2026-11-20T15:59"_s};
    QTest::newRow("the moment at which they end")
        << u"2026-11-20T16:00:00"_s << QList<qint64>{0} << office << QStringList{u"2026-11-23T08:00"_s};
    QTest::newRow("hours up to midnight")
        << u"2026-11-20T22:59:00"_s << QList<qint64>{0} << QList{hours({5}, u"20:00"_s, u"24:00"_s)}
        << QStringList{u"2026-11-20T22:59"_s};
    QTest::newRow("waits of nothing and less")
        << u"2026-11-20T10:00:00"_s << QList<qint64>{-day, 0, -5} << office << QStringList(3, u"2026-11-20T10:00"_s);
    QTest::newRow("a wait that no calendar holds")
        << u"2026-11-20T10:00:00"_s << QList<qint64>{0, std::numeric_limits<qint64>::max()} << office
        << QStringList{u"2026-11-20T10:00"_s, u"2036-11-27T10:00"_s};
    QTest::newRow("no day at all") << u"2026-11-20T10:00:00"_s << QList<qint64>{0, day}
                                   << QList{hours({}, u"09:00"_s, u"17:00"_s)} << QStringList{u"never"_s, u"never"_s};
    QTest::newRow("no hours, or none that can be understood")
        << u"2026-11-20T10:00:00"_s << QList<qint64>{0}
        << QList{hours(weekdays, u"17:00"_s, u"09:00"_s), hours(weekdays, u"nine"_s, u"17:00"_s),
                 hours(weekdays, u"09:00"_s, u"17:00"_s, u"Europe/Atlantis"_s)}
        << QStringList{u"never"_s};
    QTest::newRow("the first of several hours to open, wherever")
        << u"2026-11-20T18:00:00"_s << QList<qint64>{0}
        << QList{hours(weekdays, u"09:00"_s, u"17:00"_s), hours({5}, u"09:00"_s, u"17:00"_s, u"America/Los_Angeles"_s)}
        << QStringList{u"2026-11-20T18:00"_s};
    // Two days are 48 hours: over the night that is longer, the clock is an hour behind.
    QTest::newRow("the clocks go back") << u"2026-10-23T07:30:00"_s << QList<qint64>{0, 3 * day} << office
                                        << QStringList{u"2026-10-23T07:30"_s, u"2026-10-26T08:00"_s};
    QTest::newRow("the clocks go forward") << u"2027-03-26T15:30:00"_s << QList<qint64>{0, 3 * day} << office
                                           << QStringList{u"2027-03-26T15:30"_s, u"2027-03-30T07:00"_s};
    QTest::newRow("hours that the clocks leave out")
        << u"2027-03-27T12:00:00"_s << QList<qint64>{0} << QList{hours({7}, u"02:00"_s, u"03:00"_s)}
        << QStringList{u"2027-04-04T00:00"_s};
  }
  void anEmailGoesOutWhenItsWaitIsOverAndTheHoursAreOpen() {
    QFETCH(QString, now);
    QFETCH(QList<qint64>, waits);
    QFETCH(QList<ScheduleWindow>, windows);
    QFETCH(QStringList, expected);
    QStringList found;
    for (const SendTime& time : sendTimes({waits, {{}, {}, windows}, at(now), at(now), {}}))
      found.append(written(time.at));
    QCOMPARE(found, expected);
  }

  void theCampaignsDatesHold() {
    const ScheduleWindow office = hours(weekdays, u"09:00"_s, u"17:00"_s);
    const auto now = at(u"2026-11-20T10:00:00"_s);
    const CampaignSchedule limited{u"2026-12-01"_s, u"2026-12-03"_s, {office}};
    const auto times = sendTimes({{0, 2 * day, day}, limited, now, now, {}});
    QCOMPARE(written(times[0].at), u"2026-12-01T08:00"_s);
    QCOMPARE(written(times[1].at), u"2026-12-03T08:00"_s);
    QCOMPARE(written(times[2].at), u"never"_s);
    QVERIFY(!sendsOn(limited, QDate(2026, 11, 30), zoneOf(limited)) &&
            sendsOn(limited, QDate(2026, 12, 3), zoneOf(limited)) &&
            !sendsOn(limited, QDate(2026, 12, 4), zoneOf(limited)));
    // A date that cannot be read is none.
    QCOMPARE(written(sendTimes({{0}, {u"soon"_s, {}, {office}}, now, now, {}})[0].at), u"2026-11-20T10:00"_s);
    // What the service has booked it knows better, unless that is over.
    QCOMPARE(written(sendTimes({{day}, {{}, {}, {office}}, now, now, at(u"2026-11-22T03:00:00"_s)})[0].at),
             u"2026-11-22T03:00"_s);
    QCOMPARE(written(sendTimes({{day}, {{}, {}, {office}}, now, now, at(u"2026-11-02T03:00:00"_s)})[0].at),
             u"2026-11-20T10:00"_s);
  }

  void theStripShowsFourteenDaysAndWhatComesLater() {
    load(planned(email(1, 0) + "," + email(2, 2 * day) + "," + email(3, 60 * day)));
    watchAt(u"2026-11-20T10:10:00"_s);
    const auto& columns = days->days()->records();
    QCOMPARE(columns.size(), 14U);
    QCOMPARE(columns[0].title, u"Today"_s);
    QCOMPARE(columns[1].title, u"Sat 21"_s);
    QVERIFY(columns[0].sends && !columns[1].sends && !columns[2].sends && columns[3].sends);
    QCOMPARE(columns[11].title, u"Tue 1 Dec"_s);
    QCOMPARE(columns[12].title, u"Wed 2"_s);
    QCOMPARE(days->emails()->count(), 2);
    QCOMPARE(shown(0).time, u"11:10"_s);
    QCOMPARE(shown(1).column, 3);
    QCOMPARE(shown(1).dueColumn, 2);
    QCOMPARE(days->laterText(), u"+1 later"_s);
    QCOMPARE(days->whose(), u"A lead added now, Berlin time"_s);
    QCOMPARE(days->dates(), (QStringList{u"Today"_s, u"Mon 23"_s, u"Fri 22 Jan"_s}));
    QCOMPARE(days->movedText(), QString());
    editor->selectPlace(1);
    QCOMPARE(days->movedText(), u"Sunday, so Monday 23 Nov"_s);
    QVERIFY(shown(1).current && !shown(0).current);

    // Time goes on while somebody looks, and only then.
    itIs(u"2026-11-21T10:10:00"_s);
    f->clock.advance(SequenceDays::pace);
    QCOMPARE(days->days()->records()[0].sends, false);
    QCOMPARE(shown(0).column, 2);
    days->setWatched(false);
    itIs(u"2026-11-23T10:10:00"_s);
    f->clock.advance(SequenceDays::pace * 2);
    QCOMPARE(shown(0).column, 2);
  }

  void aWaitIsMovedAndTakenBackWhole() {
    load(planned(email(1, 0) + "," + email(2, 2160) + "," + email(3, 2 * day)));
    watchAt(u"2026-11-23T10:00:00"_s);
    f->api.expect(put);
    editor->selectPlace(1);
    days->addToWait(1, 1);
    days->addToWait(1, 1);
    QCOMPARE(editor->waitDays(), 4);
    QCOMPARE(toasts(), QStringList{u"Email 2 waits 4 days"_s});
    QCOMPARE(shown(1).column, 4);
    // Several in a row are one to take back, to the minute that it was.
    f->toasts.act(f->toasts.toasts().last().id);
    QCOMPARE(editor->draft().steps()[1].delayMinutes, 2160);

    // Counted from the email before, within what a wait may be; the first one has none.
    days->moveTo(2, 9);
    QCOMPARE(editor->draft().steps()[2].waitDays(), 7);
    days->moveTo(2, 0);
    QCOMPARE(editor->draft().steps()[2].waitDays(), 1);
    days->addToWait(0, 1);
    days->moveTo(0, 5);
    QCOMPARE(editor->draft().steps()[0].delayMinutes, 0);
    days->addToWait(2, 90);
    QCOMPARE(editor->draft().steps()[2].waitDays(), 60);
    // Nothing changed, so there is nothing to take back.
    f->toasts.clear();
    days->addToWait(2, 1);
    days->moveTo(7, 1);
    QCOMPARE(toasts(), QStringList());
    passWait();
    const QJsonArray sentSteps = sent()[u"steps"_s].toArray();
    QCOMPARE(sentSteps[2][u"delayMinutes"_s].toInt(), 60 * int(day));
  }

  void aLeadUnderWayGetsWhatIsLeft() {
    load(planned(email(1, 0) + "," + email(2, 2 * day) + "," + email(3, 2 * day)));
    watchAt(u"2026-11-20T10:00:00"_s);
    f->api.expect(leads);
    f->api.expect(preview);
    editor->preview()->setWatched(true);
    f->clock.advance(SequencePreview::firstWait);
    f->api.answer(leads, R"({"items":[
      {"id":"l1","email":"jo@x.com","firstName":"Jo","status":"active","currentStep":1,
       "lastSentAt":"2026-11-18T09:00:00Z","nextSendAt":"2026-11-24T09:30:00Z"},
      {"id":"l2","email":"li@x.com","status":"replied","currentStep":1}]})");
    f->api.answer(preview, R"({"lead":{"id":"l1","email":"jo@x.com"},"steps":[]})");
    QCOMPARE(days->whose(), u"Jo, Berlin time"_s);
    QCOMPARE(days->dates(), (QStringList{QString(), u"Tue 24"_s, u"Thu 26"_s}));
    QCOMPARE(shown(0).time, u"10:30"_s);
    // Another wait than the one it was booked with counts from the last email.
    f->api.expect(put);
    f->api.expect(preview);
    days->addToWait(1, -1);
    QCOMPARE(days->dates()[1], u"Today"_s);
    passWait();

    f->api.expect(preview);
    editor->preview()->setLead(u"l2"_s);
    QCOMPARE(days->note(), u"An estimate. li@x.com: Replied"_s);
    QCOMPARE(days->whose(), u"A lead added now, Berlin time"_s);
    QCOMPARE(shown(0).column, 0);
  }

  void whatKeepsEmailsInIsSaid_data() {
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("note");
    QTest::newRow("none") << planned({}) << u"No emails yet"_s;
    QTest::newRow("no schedule") << campaign(email(1, 0)) << u"No schedule yet, so no dates"_s;
    QTest::newRow("over") << planned(email(1, 0), R"("endDate":"2026-11-19",)") << u"The campaign’s end date is over"_s;
    QTest::newRow("ends between") << planned(email(1, 0) + "," + email(2, 5 * day), R"("endDate":"2026-11-21",)")
                                  << u"The end date comes before the last email"_s;
    QTest::newRow("as it should be") << planned(email(1, 0)) << u"An estimate from waits and schedule"_s;
  }
  void whatKeepsEmailsInIsSaid() {
    QFETCH(QByteArray, answer);
    QFETCH(QString, note);
    load(answer);
    watchAt(u"2026-11-20T10:00:00"_s);
    QCOMPARE(days->note(), note);
  }
};

QTEST_GUILESS_MAIN(SequenceDaysTest)
#include "sequencedays_test.moc"
