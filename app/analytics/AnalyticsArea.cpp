#include "app/analytics/AnalyticsArea.h"

#include "app/analytics/AnalyticsStore.h"
#include "app/analytics/DashboardStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Area analyticsArea() {
  return {.stores = {areaStore<DashboardStore>(u"dashboard"_s), areaStore<AnalyticsStore>(u"analytics"_s)},
          .pages = {{.page = Page::dashboard, .view = u"Orvella/Analytics/DashboardPage.qml"_s},
                    {.page = Page::analytics, .view = u"Orvella/Analytics/AnalyticsPage.qml"_s}}};
}

}  // namespace orv
