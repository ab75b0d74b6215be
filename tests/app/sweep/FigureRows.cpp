#include "app/analytics/AnalyticsStore.h"
#include "app/analytics/DashboardStore.h"
#include "app/campaigns/CampaignStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

template <class S>
void arriveAt(SweepStage& s) {
  s.show<S>().ensureLoaded();
}
void arriveAtStats(SweepStage& s) {
  s.f.navigator.openItem(Page::campaigns, u"c1"_s);
  auto& store = s.show<CampaignStore>(u"c1"_s);
  store.campaign()->appear();
  store.ensureLoaded();
  store.setTab(u"stats"_s);
  store.stats()->ensureLoaded();
}
void arriveAtActivity(SweepStage& s) {
  s.answers[u"GET /campaigns/c1/activity"_s] = sample(u"FeedPage"_s, {{u"nextCursor"_s, u"more"_s}});
  arriveAtStats(s);
  s.finish();
  s.the<CampaignStore>().stats()->setSection(u"activity"_s);
}
CampaignStatsStore& stats(SweepStage& s) { return *s.the<CampaignStore>().stats(); }

}  // namespace

QList<SweepRow> figureRows() {
  const auto summary = u"GET /analytics/summary"_s;
  const QStringList ofSummary{u"totals"_s, u"days"_s, u"campaigns"_s, u"accounts"_s};
  return {
      {u"AnalyticsStore::refresh"_s, arriveAt<AnalyticsStore>, [](SweepStage& s) { s.the<AnalyticsStore>().refresh(); },
       summary, sample(u"AnalyticsSummary"_s), ofSummary,
       [](SweepStage& s) { return s.the<AnalyticsStore>().summary()->refreshing(); },
       [](SweepStage& s) { return s.the<AnalyticsStore>().figures(); },
       [](SweepStage& s) { return failureOf(*s.the<AnalyticsStore>().summary()); }, true},
      {u"DashboardStore::refresh"_s,
       arriveAt<DashboardStore>,
       [](SweepStage& s) { s.the<DashboardStore>().refresh(); },
       u"GET /analytics/overview"_s,
       sample(u"AnalyticsOverview"_s),
       {u"combined"_s},
       [](SweepStage& s) { return s.the<DashboardStore>().overview()->refreshing(); },
       [](SweepStage& s) { return s.the<DashboardStore>().metrics(); },
       [](SweepStage& s) { return failureOf(*s.the<DashboardStore>().overview()); },
       true},
      {u"CampaignStatsStore::refreshSection"_s,
       arriveAtActivity,
       [](SweepStage& s) { stats(s).refreshSection(); },
       u"GET /campaigns/c1/activity"_s,
       sample(u"FeedPage"_s),
       {u"items"_s},
       [](SweepStage& s) { return stats(s).feed()->refreshing(); },
       [](SweepStage& s) { return stats(s).feedRows()->rowCount(); },
       [](SweepStage& s) { return failureOf(*stats(s).feed()); },
       true},
      {u"CampaignStatsStore::loadMoreFeed"_s,
       arriveAtActivity,
       [](SweepStage& s) { stats(s).loadMoreFeed(); },
       u"GET /campaigns/c1/activity"_s,
       sample(u"FeedPage"_s),
       {u"items"_s},
       [](SweepStage& s) { return stats(s).loadingMoreFeed(); },
       [](SweepStage& s) { return stats(s).feedRows()->rowCount(); },
       [](SweepStage& s) { return stats(s).moreFeedFailed() ? u"failed"_s : QString(); }},
  };
}

}  // namespace orv::test
