#include <ctime>

#include "tests/app/analytics/AnalyticsPage.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Local time of another place while it lives.
struct Place {
  QByteArray before = qgetenv("TZ");
  explicit Place(const char* zone) {
    qputenv("TZ", zone);
    tzset();
  }
  ~Place() {
    before.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", before);
    tzset();
  }
};

}  // namespace

/// Which days a question is about.
class RangesTest final : public AnalyticsPage {
  Q_OBJECT

 private Q_SLOTS:
  void init() { open(); }
  void cleanup() { leave(); }

  void presetsAreDays_data() {
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("from");
    QTest::newRow("a week") << u"last7"_s << QDate(2026, 3, 2) << QDate(2026, 2, 24);
    QTest::newRow("a week over a leap day") << u"last7"_s << QDate(2028, 3, 2) << QDate(2028, 2, 25);
    QTest::newRow("four weeks over a new year") << u"last4w"_s << QDate(2027, 1, 10) << QDate(2026, 12, 14);
    QTest::newRow("three months, shorter then") << u"last3m"_s << QDate(2026, 5, 31) << QDate(2026, 2, 28);
    QTest::newRow("three months, leap year") << u"last3m"_s << QDate(2028, 5, 31) << QDate(2028, 2, 29);
    QTest::newRow("three months over a new year") << u"last3m"_s << QDate(2026, 2, 15) << QDate(2025, 11, 15);
    QTest::newRow("a year from a leap day") << u"last12m"_s << QDate(2028, 2, 29) << QDate(2027, 2, 28);
    QTest::newRow("month on its first") << u"mtd"_s << QDate(2026, 12, 1) << QDate(2026, 12, 1);
    QTest::newRow("month on its last") << u"mtd"_s << QDate(2028, 2, 29) << QDate(2028, 2, 1);
    QTest::newRow("quarter on its first") << u"qtd"_s << QDate(2026, 10, 1) << QDate(2026, 10, 1);
    QTest::newRow("quarter on its last") << u"qtd"_s << QDate(2026, 9, 30) << QDate(2026, 7, 1);
    QTest::newRow("year on its last") << u"ytd"_s << QDate(2026, 12, 31) << QDate(2026, 1, 1);
  }
  void presetsAreDays() {
    QFETCH(QString, preset);
    QFETCH(QDate, today);
    QFETCH(QDate, from);
    RangeChoice range(today);
    range.setPreset(preset, today);
    QCOMPARE(range.days().from, from);
    QCOMPARE(range.days().to, today);
  }

  void presetsInTheirOrder() {
    QStringList labels;
    for (const Choice& preset : rangePresets()) labels.append(preset.label);
    QCOMPARE(labels, (QStringList{u"Last 7 days"_s, u"Last 4 weeks"_s, u"Last 3 months"_s, u"Month to date"_s,
                                  u"Quarter to date"_s, u"Year to date"_s, u"Last 12 months"_s}));
    QCOMPARE(store->preset(), u"last4w"_s);
    QCOMPARE(store->rangeText(), u"25 Oct – 21 Nov 2026"_s);
    QVERIFY(store->setCustomRange(u"2026-01-05"_s, u"2025-12-31"_s));
    QCOMPARE(store->rangeText(), u"31 Dec 2025 – 5 Jan 2026"_s);
    QCOMPARE(store->rangeLabel(), u"Custom range"_s);
    for (const auto& bad : {u"2026-02-29"_s, u"2026-03-02T00:00"_s, u"2026-03-02x"_s, u"2026/03/02"_s, u"26-03-02"_s})
      QVERIFY2(!store->setCustomRange(bad, u"2026-03-01"_s) && !store->setCustomRange(u"2026-03-01"_s, bad),
               qPrintable(bad));
    QCOMPARE(store->from(), u"2025-12-31"_s);
  }

  void aRangeOfOnesOwnIsAskedFor() {
    const auto labelOfCustom = [this] { return store->ranges().last().label; };
    load();
    RangeForm* form = store->rangeForm();
    QCOMPARE(labelOfCustom(), u"Custom range…"_s);
    store->chooseRange(u"custom"_s);
    QVERIFY(form->shown() && store->range() == "last4w"_L1);
    QCOMPARE(form->from() + u' ' + form->to(), u"2026-10-25 2026-11-21"_s);
    for (const auto& bad : {u""_s, u"31.12.2026"_s, u"2026-02-29"_s}) {
      form->setTo(bad);
      QCOMPARE(form->error(), QString());
      form->submit();
      QCOMPARE(form->error(), u"Enter both dates as year, month and day, such as 2026-03-31."_s);
      QVERIFY(form->shown());
    }
    form->setTo(u" 2026-10-01 "_s);
    f->api.expect(summaryCall);
    form->submit();
    QVERIFY(!form->shown());
    QCOMPARE(queryText(f->api.last()), u"from=2026-10-01&to=2026-10-25"_s);
    QCOMPARE(store->range() + u' ' + labelOfCustom(), u"custom Custom range"_s);
    f->api.answer(summaryCall, summaryOf());
    // The dates that are in force already ask nothing.
    store->chooseRange(u"custom"_s);
    form->submit();
    QVERIFY(!form->shown());
    f->api.expect(summaryCall);
    store->chooseRange(u"last4w"_s);
    QCOMPARE(labelOfCustom(), u"Custom range…"_s);
  }

  /// A day is 23 or 25 hours long when the clocks change.
  void daysAreTheUsersOwn_data() {
    QTest::addColumn<QDateTime>("instant");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    const auto at = [](const QDate& day, const QTime& time) { return QDateTime(day, time, Qt::UTC); };
    QTest::newRow("before midnight in winter") << at({2027, 3, 27}, {22, 59, 59}) << u"2027-03-21"_s << u"2027-03-27"_s;
    QTest::newRow("midnight in winter") << at({2027, 3, 27}, {23, 0}) << u"2027-03-22"_s << u"2027-03-28"_s;
    QTest::newRow("midnight in summer") << at({2027, 3, 28}, {22, 0}) << u"2027-03-23"_s << u"2027-03-29"_s;
    QTest::newRow("the second of the doubled hours")
        << at({2027, 10, 31}, {1, 30}) << u"2027-10-25"_s << u"2027-10-31"_s;
    QTest::newRow("end of the long day") << at({2027, 10, 31}, {22, 59, 59}) << u"2027-10-25"_s << u"2027-10-31"_s;
  }
  void daysAreTheUsersOwn() {
    QFETCH(QDateTime, instant);
    const Place berlin("Europe/Berlin");
    f->clock.advance(std::chrono::milliseconds(f->clock.now().msecsTo(instant)));
    store->setPreset(u"last7"_s);
    QTEST(store->from(), "from");
    QTEST(store->to(), "to");
  }

  void pastMidnightAPresetGoesAlong() {
    load();
    f->clock.advance(24h);
    f->api.expect(summaryCall);
    store->refresh();
    QCOMPARE(queryText(f->api.last()), u"from=2026-10-26&to=2026-11-22"_s);
    f->api.fail(summaryCall, TransportFailure::timedOut);
    QCOMPARE(store->summary()->stateName(), ResourceBase::State::Error);
  }
};

QTEST_GUILESS_MAIN(RangesTest)
#include "ranges_test.moc"
