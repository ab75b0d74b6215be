#include <QQmlEngine>
#include <QQuickWindow>
#include <cmath>

#include "bench/Frame.h"
#include "bench/Report.h"
#include "desktop/ClientWindow.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

const char chartSource[] = R"(
import QtQuick
import Orvella.Design
Window {
  id: root
  property alias days: chart.days
  property alias series: chart.series
  width: 1008; height: 320
  function point(x) { chart.plot.pointAt(x); }
  OrvChart { id: chart; anchors.fill: parent; title: "Daily sending" }
})";

QStringList dates(int count) {
  QStringList days;
  for (int i = 0; i < count; ++i) days.append(QDate(2026, 1, 1).addDays(i).toString(Qt::ISODate));
  return days;
}

/// Quiet weekends, so that the lines are as long as a sender's are.
QVariantList figures(int count, int round) {
  QVariantList list;
  for (int series = 0; series < 4; ++series) {
    QList<double> values;
    for (int day = 0; day < count; ++day)
      values.append((day % 7 < 2 ? 100 : 1300 + (day * 7919 + round) % 300) / (series + 1));
    list.append(QVariantMap{{u"key"_s, QString::number(series)},
                            {u"label"_s, u"Series %1"_s.arg(series)},
                            {u"values"_s, QVariant::fromValue(values)},
                            {u"shown"_s, true}});
  }
  return list;
}

}  // namespace

bool chart(Scale scale) {
  constexpr int days = 365;
  std::printf("A chart of %d days and 4 series, 1008 x 320\n", days);
  QQmlEngine engine;
  ClientWindow::prepare(engine);
  const auto window = windowOf(engine, chartSource);
  if (!window) return false;
  window->setProperty("days", dates(days));
  frame(*window);
  Times set, hover, still;
  for (int round = 0; round < scale.of(100); ++round) {
    const QVariantList series = figures(days, round);
    set.ms.push_back(milliseconds([&] {
      window->setProperty("series", series);
      frame(*window);
    }));
    still.ms.push_back(milliseconds([&] { frame(*window); }));
  }
  for (int x = 50; x < 50 + scale.of(900); ++x) {
    hover.ms.push_back(milliseconds([&] {
      QMetaObject::invokeMethod(window.get(), "point", Q_ARG(QVariant, x));
      frame(*window);
    }));
  }
  line("figures set until their frame is drawn, median", set.median(), "ms", "under 32");
  line("the same, 95th percentile", set.at(0.95), "ms");
  line("pointer moved until the frame is drawn, median", hover.median(), "ms", "under 8");
  line("the same, 95th percentile", hover.at(0.95), "ms");
  line("baseline: a frame in which nothing changed, median", still.median(), "ms");
  return true;
}

}  // namespace orv::bench
