#include "app/analytics/AnalyticsStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

AnalyticsStore& openAnalytics(Stage& stage) {
  stage.app().router()->open(Page::analytics);
  stage.settle();
  return *stage.app().session()->store<AnalyticsStore>();
}

}  // namespace

QList<Scene> analyticsScenes() {
  return {
      page(u"dashboard"_s, [](Stage& s) { s.app().router()->open(Page::dashboard); }),
      {u"dashboard-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         s.app().router()->open(Page::dashboard);
       }},
      page(u"analytics"_s, [](Stage& s) { openAnalytics(s); }),
      {u"analytics-accounts"_s,
       [](Stage& s) {
         auto& analytics = openAnalytics(s);
         analytics.setPreset(u"last12m"_s);
         analytics.setTab(u"accounts"_s);
         analytics.sort(u"replied"_s, true);
         // As far down as the page goes.
         s.press(Qt::Key_PageDown);
       }},
      {u"analytics-days"_s, [](Stage& s) { openAnalytics(s).setDayView(u"table"_s); }},
      {u"analytics-custom"_s,
       [](Stage& s) {
         auto& analytics = openAnalytics(s);
         analytics.chooseRange(u"custom"_s);
         analytics.rangeForm()->setTo(u"31.12.2026"_s);
         analytics.rangeForm()->submit();
       }},
      {u"analytics-empty"_s, [](Stage& s) { openAnalytics(s).setCustomRange(u"2020-01-01"_s, u"2020-01-31"_s); }},
      {u"analytics-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openAnalytics(s);
       }},
      {u"analytics-offline-saved"_s,
       [](Stage& s) {
         auto& analytics = openAnalytics(s);
         s.transport().mode = Mode::offline;
         analytics.refresh();
       }},
  };
}

}  // namespace orv
