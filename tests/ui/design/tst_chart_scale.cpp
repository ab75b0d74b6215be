#include <QTest>
#include <cmath>

#include "ui/design/ChartScale.h"

using namespace orv;

namespace {

QList<QDate> daysFrom(const QDate& first, int count) {
  QList<QDate> days;
  for (int i = 0; i < count; ++i) days.append(first.addDays(i));
  return days;
}

}  // namespace

class TestChartScale : public QObject {
  Q_OBJECT

 private Q_SLOTS:  // NOLINT: Qt Test calls them by name
  void axis_data() {
    QTest::addColumn<double>("lowest");
    QTest::addColumn<double>("highest");
    QTest::addColumn<bool>("whole");
    QTest::addColumn<QList<double>>("ticks");
    QTest::newRow("emails") << 153.0 << 1533.0 << true << QList<double>{0, 400, 800, 1200, 1600};
    QTest::newRow("ends on a tick") << 0.0 << 1000.0 << true << QList<double>{0, 250, 500, 750, 1000};
    QTest::newRow("one email") << 0.0 << 1.0 << true << QList<double>{0, 1};
    QTest::newRow("no half emails") << 0.0 << 7.0 << true << QList<double>{0, 2, 4, 6, 8};
    QTest::newRow("no quarter of ten") << 0.0 << 10.0 << true << QList<double>{0, 4, 8, 12};
    QTest::newRow("rates") << 88.0 << 98.0 << false << QList<double>{0, 25, 50, 75, 100};
    QTest::newRow("a quotient that is not exact") << 0.0 << 0.3 << false << QList<double>{0, 0.1, 0.2, 0.3};
    QTest::newRow("below zero") << -30.0 << 60.0 << true << QList<double>{-40, 0, 40, 80};
    QTest::newRow("only below zero") << -9.0 << -2.0 << true << QList<double>{-12, -8, -4, 0};
    QTest::newRow("nothing") << 0.0 << 0.0 << true << QList<double>{0, 1};
  }

  void axis() {
    QFETCH(double, lowest);
    QFETCH(double, highest);
    QFETCH(bool, whole);
    QFETCH(QList<double>, ticks);
    const QList<double> got = roundAxis(lowest, highest, whole, 5).ticks();
    QCOMPARE(got.size(), ticks.size());
    for (int i = 0; i < ticks.size(); ++i) QVERIFY(std::abs(got[i] - ticks[i]) < 1e-9);
  }

  void axisHoldsEveryRange() {
    for (double highest = 1e-6; highest < 1e12; highest *= 1.37) {
      for (const double lowest : {0.0, -highest / 3, -highest * 2}) {
        for (const int most : {2, 3, 5}) {
          const ValueAxis axis = roundAxis(lowest, highest, false, most);
          const QList<double> ticks = axis.ticks();
          const double slack = axis.step * 1e-6;
          QVERIFY(ticks.size() >= 2 && ticks.size() <= std::max(most, lowest < 0 ? 3 : 2));
          QVERIFY(ticks.first() <= lowest + slack && ticks.last() >= highest - slack);
          QVERIFY(std::any_of(ticks.begin(), ticks.end(), [&](double tick) { return std::abs(tick) < slack; }));
          const double used = (highest - std::min(0.0, lowest)) / (axis.high - axis.low);
          QVERIFY2(most < 5 || used > 0.5, "an axis that is mostly empty");
        }
      }
    }
  }

  void labels_data() {
    QTest::addColumn<QDate>("first");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("apart");
    QTest::addColumn<QList<int>>("days");
    QTest::addColumn<bool>("months");
    const QDate october(2026, 10, 24);
    QTest::newRow("every day") << october << 4 << 1 << QList<int>{0, 1, 2, 3} << false;
    QTest::newRow("weeks, and the last day") << october << 28 << 3 << QList<int>{0, 7, 14, 21, 27} << false;
    QTest::newRow("the last day in place of one next to it") << october << 23 << 3 << QList<int>{0, 7, 14, 22} << false;
    QTest::newRow("one day") << october << 1 << 9 << QList<int>{0} << false;
    QTest::newRow("no room for two") << october << 5 << 12 << QList<int>{0} << false;
    QTest::newRow("months") << october << 90 << 20 << QList<int>{8, 38, 69} << true;
    QTest::newRow("from a month's first day") << QDate(2026, 11, 1) << 61 << 20 << QList<int>{0, 30} << true;
    QTest::newRow("quarters") << QDate(2026, 1, 1) << 365 << 60 << QList<int>{0, 90, 181, 273} << true;
    QTest::newRow("a leap year's March") << QDate(2028, 2, 1) << 40 << 25 << QList<int>{0, 29} << true;
    QTest::newRow("no month begins") << QDate(2026, 11, 2) << 20 << 25 << QList<int>{0} << false;
    QTest::newRow("none") << october << 0 << 1 << QList<int>{} << false;
  }

  void labels() {
    QFETCH(QDate, first);
    QFETCH(int, count);
    QFETCH(int, apart);
    const DayLabels labels = thinLabels(daysFrom(first, count), apart);
    QTEST(labels.days, "days");
    QTEST(labels.months, "months");
  }

  void monthsWithDaysMissing() {
    const QList<QDate> days{QDate(2026, 1, 30), QDate(2026, 3, 3), QDate(2026, 3, 4), QDate(2026, 4, 9)};
    QCOMPARE(thinLabels(days, 20).days, (QList<int>{1, 3}));
  }

  void placesAndNearestDay_data() {
    QTest::addColumn<ChartScale::Kind>("kind");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("firstX");
    QTest::addColumn<double>("lastX");
    QTest::newRow("a line from edge to edge") << ChartScale::Kind::line << 28 << 40.0 << 640.0;
    QTest::newRow("bars within the edges") << ChartScale::Kind::bar << 30 << 50.0 << 630.0;
    QTest::newRow("one day in the middle") << ChartScale::Kind::line << 1 << 340.0 << 340.0;
    QTest::newRow("one bar") << ChartScale::Kind::bar << 1 << 340.0 << 340.0;
  }

  void placesAndNearestDay() {
    QFETCH(ChartScale::Kind, kind);
    QFETCH(int, count);
    const ChartScale scale(kind, count, QRectF(40, 8, 600, 200), {0, 1600, 400});
    QTEST(scale.x(0), "firstX");
    QTEST(scale.x(count - 1), "lastX");
    for (int day = 0; day < count; ++day) {
      QCOMPARE(scale.dayAt(scale.x(day)), day);
      QCOMPARE(scale.dayAt(scale.x(day) - scale.dayWidth() * 0.45), day);
    }
    QCOMPARE(scale.dayAt(-1e6), 0);
    QCOMPARE(scale.dayAt(1e6), count - 1);
    QCOMPARE(scale.y(1600), 8.0);
    QCOMPARE(scale.y(0), 208.0);
  }

  void withoutRoomOrDays() {
    QCOMPARE(ChartScale(ChartScale::Kind::line, 0, QRectF(0, 0, 100, 100), {}).dayAt(50), -1);
    QCOMPARE(ChartScale(ChartScale::Kind::line, 9, QRectF(0, 0, 0, 0), {}).dayAt(50), 0);
  }
};

QTEST_APPLESS_MAIN(TestChartScale)
#include "tst_chart_scale.moc"
