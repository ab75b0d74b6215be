#include "bench/Frame.h"
#include "bench/Report.h"
#include "desktop/scenes/Stage.h"

namespace orv::bench {

bool settings(Scale scale) {
  std::printf("From one tab of the settings to the next, in the window\n");
  QQmlEngine engine;
  ClientWindow::prepare(engine);
  Stage stage(engine, {});
  if (!stage.isReady()) return false;
  Router& router = *stage.app().router();
  Times first, again, elsewhere;
  QString slowest;
  router.open(Page::settings);
  stage.settle();
  for (int round = 0; round < (scale.quick ? 1 : 20); ++round) {
    for (const auto& info : Pages::allTabs()) {
      const double ms = milliseconds([&] {
        router.openSettings(info.tab);
        frame(stage.window());
      });
      stage.settle();
      const bool leads = router.page() != Page::settings;
      if (!leads && ms > std::max(first.at(1), again.at(1))) slowest = info.title;
      (leads ? elsewhere : round == 0 ? first : again).ms.push_back(ms);
      if (!leads) continue;
      router.open(Page::settings);
      stage.settle();
    }
  }
  line("a tab that was not open yet until its frame, median", first.median(), "ms", "under 50");
  line("the same, slowest", first.at(1), "ms", "under 50");
  line("a tab that was, median", again.median(), "ms", "under 50");
  line("the same, slowest", again.at(1), "ms", "under 50");
  std::printf("  the slowest of all was %s\n", qPrintable(slowest));
  line("one that leads to another page, median", elsewhere.median(), "ms");
  return true;
}

}  // namespace orv::bench
