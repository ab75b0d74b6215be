#include <QQmlEngine>

#include "app/analytics/AnalyticsStore.h"
#include "bench/Frame.h"
#include "bench/Report.h"
#include "desktop/scenes/Stage.h"
#include "kit/api/JSONCoding.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

/// A year of a sender with many campaigns. `round` makes every figure another one.
AnalyticsSummary summaryOf(int campaigns, int days, int round) {
  AnalyticsSummary summary;
  summary.from = u"2025-11-22"_s;
  summary.to = u"2026-11-21"_s;
  summary.timeZone = u"Europe/Berlin"_s;
  summary.tracking = {true, true};
  auto& options = summary.options.emplace();
  options.campaigns.emplace();
  for (int i = 0; i < campaigns; ++i) {
    const QString id = u"c%1"_s.arg(i), name = u"Fleet maintenance, region %1"_s.arg(i);
    const qint64 sent = 1000 + (i * 7919 + round) % 9000;
    summary.campaigns.append({id, i, name, u"running"_s, 3000, sent, sent / 2, sent / 3, sent / 40, sent / 50,
                              sent / 90, sent / 100, sent / 110, double(sent)});
    summary.accounts.append({id, u"sender%1@outreach.example"_s.arg(i), u"active"_s, u"healthy"_s, 97, sent, sent / 2,
                             sent / 3, sent / 40, sent / 50, sent / 90, sent / 100});
    options.campaigns->append({id, name});
    summary.totals.sent += sent;
  }
  for (int day = 0; day < days; ++day) {
    const qint64 sent = day % 7 < 2 ? 100 : 1300 + (day * 7919 + round) % 300;
    summary.days.append({QDate(2025, 11, 22).addDays(day).toString(Qt::ISODate), sent, sent, sent / 3, sent / 40,
                         sent / 50, sent / 90});
  }
  return summary;
}

}  // namespace

bool analytics(Scale scale) {
  const int campaigns = scale.of(1000), days = scale.of(365);
  std::printf("Analytics of %d campaigns, as many accounts and %d days, in the window\n", campaigns, days);
  QQmlEngine engine;
  ClientWindow::prepare(engine);
  Stage stage(engine, {});
  if (!stage.isReady()) return false;
  auto* router = stage.app().router();
  router->open(Page::analytics);
  stage.settle();
  auto& summary = *stage.app().session()->store<AnalyticsStore>()->summary();
  if (!summary.value()) {
    std::printf("  The figures were not loaded.\n");
    return false;
  }
  const auto show = [&](const AnalyticsSummary& shown) {
    summary.update([&shown](AnalyticsSummary& value) { value = shown; });
    frame(stage.window());
  };
  Times decoding, first, again, leaving, coming;
  for (int round = 0; round < (scale.quick ? 1 : 25); ++round) {
    const QByteArray json = encodeJSON(summaryOf(campaigns, days, round));
    show(summaryOf(1, 1, round));
    AnalyticsSummary decoded;
    decoding.ms.push_back(milliseconds([&] { decoded = decodeJSON<AnalyticsSummary>(json); }));
    first.ms.push_back(milliseconds([&] { show(decoded); }));
    const AnalyticsSummary next = summaryOf(campaigns, days, round + 1);
    again.ms.push_back(milliseconds([&] { show(next); }));
    const auto open = [&](Page page) {
      return milliseconds([&] {
        router->open(page);
        frame(stage.window());
      });
    };
    leaving.ms.push_back(open(Page::campaigns));
    coming.ms.push_back(open(Page::analytics));
  }
  line("the answer decoded (off the main thread), median", decoding.median(), "ms");
  line("answer decoded and drawn, median", decoding.median() + first.median(), "ms", "at most 150");
  line("answer decoded and drawn, slowest", decoding.at(1) + first.at(1), "ms");
  line("the next answer drawn over it, median", again.median(), "ms");
  line("from campaigns to analytics until its frame, median", coming.median(), "ms", "under 100");
  line("the same, slowest", coming.at(1), "ms");
  line("from analytics to campaigns until its frame, median", leaving.median(), "ms", "under 100");
  return true;
}

}  // namespace orv::bench
