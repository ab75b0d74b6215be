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

template <class S>
S& the(SweepStage& s) {
  return s.the<S>();
}

/// Another question to the same answer. Asked again it would be the same one, so a second press asks a third.
template <class S>
SweepRow asking(SweepRow like, const QString& operation, S& (*store)(SweepStage&), QString (S::*get)() const,
                void (S::*set)(const QString&), const QString& one, const QString& two) {
  like.name = operation;
  // A new question that fails takes the figures away, which answer another one.
  like.shown = {};
  like.press = [=](SweepStage& s) {
    S& asked = store(s);
    (asked.*set)((asked.*get)() == one ? two : one);
  };
  return like;
}

}  // namespace

QList<SweepRow> figureRows() {
  const QStringList ofSummary{u"totals"_s, u"days"_s, u"campaigns"_s, u"accounts"_s};
  const SweepRow analytics{u"analytics refreshed"_s,
                           arriveAt<AnalyticsStore>,
                           [](SweepStage& s) { s.the<AnalyticsStore>().refresh(); },
                           u"GET /analytics/summary"_s,
                           sample(u"AnalyticsSummary"_s),
                           ofSummary,
                           [](SweepStage& s) { return s.the<AnalyticsStore>().summary()->refreshing(); },
                           [](SweepStage& s) { return QVariant::fromValue(s.the<AnalyticsStore>().figures()); },
                           [](SweepStage& s) { return failureOf(*s.the<AnalyticsStore>().summary()); },
                           true};
  const SweepRow dashboard{u"dashboard refreshed"_s,
                           arriveAt<DashboardStore>,
                           [](SweepStage& s) { s.the<DashboardStore>().refresh(); },
                           u"GET /analytics/overview"_s,
                           sample(u"AnalyticsOverview"_s),
                           {u"combined"_s},
                           [](SweepStage& s) { return s.the<DashboardStore>().overview()->refreshing(); },
                           [](SweepStage& s) { return QVariant::fromValue(s.the<DashboardStore>().metrics()); },
                           [](SweepStage& s) { return failureOf(*s.the<DashboardStore>().overview()); },
                           true};
  SweepRow statistics = analytics;
  statistics.arrive = arriveAtStats;
  statistics.busy = [](SweepStage& s) { return stats(s).summary()->refreshing(); };
  statistics.shown = [](SweepStage& s) { return QVariant::fromValue(stats(s).figures()); };
  statistics.error = [](SweepStage& s) { return failureOf(*stats(s).summary()); };
  const SweepRow feed{u"CampaignStatsStore::refreshSection"_s,
                      arriveAtActivity,
                      [](SweepStage& s) { stats(s).refreshSection(); },
                      u"GET /campaigns/c1/activity"_s,
                      sample(u"FeedPage"_s),
                      {u"items"_s},
                      [](SweepStage& s) { return stats(s).feed()->refreshing(); },
                      [](SweepStage& s) { return stats(s).feed()->rows()->rowCount(); },
                      [](SweepStage& s) { return failureOf(*stats(s).feed()); },
                      true};
  SweepRow further = feed;
  further.name = u"CampaignStatsStore, the feed’s next page"_s;
  further.press = [](SweepStage& s) { stats(s).feed()->loadMore(); };
  further.busy = [](SweepStage& s) { return stats(s).feed()->loadingMore(); };
  further.error = [](SweepStage& s) { return stats(s).feed()->moreFailed() ? u"failed"_s : QString(); };
  further.reads = false;
  const SweepRow section{u"CampaignStatsStore::section"_s,
                         arriveAtStats,
                         [](SweepStage& s) {
                           stats(s).setSection(u"inboxes"_s);
                           stats(s).setSection(u"messages"_s);
                         },
                         u"GET /campaigns/c1/messages"_s,
                         sample(u"MessagePage"_s),
                         {u"items"_s},
                         {},
                         [](SweepStage& s) { return QVariant::fromValue(stats(s).figures()); },
                         [](SweepStage& s) { return failureOf(*stats(s).messages()); },
                         true};
  using A = AnalyticsStore;
  return {analytics,
          dashboard,
          feed,
          further,
          section,
          asking<A>(analytics, u"AnalyticsStore::preset"_s, the<A>, &A::preset, &A::setPreset, u"last7"_s, u"mtd"_s),
          asking<A>(analytics, u"AnalyticsStore::campaign"_s, the<A>, &A::campaign, &A::setCampaign, u"c1"_s, u"c2"_s),
          asking<A>(analytics, u"AnalyticsStore::mailbox"_s, the<A>, &A::mailbox, &A::setMailbox, u"m1"_s, u"m2"_s),
          asking<A>(analytics, u"AnalyticsStore::tag"_s, the<A>, &A::tag, &A::setTag, u"q3"_s, u"q4"_s),
          asking<DashboardStore>(dashboard, u"DashboardStore::preset"_s, the<DashboardStore>, &DashboardStore::preset,
                                 &DashboardStore::setPreset, u"last7"_s, u"mtd"_s),
          asking<CampaignStatsStore>(statistics, u"CampaignStatsStore::preset"_s, stats, &CampaignStatsStore::preset,
                                     &CampaignStatsStore::setPreset, u"last7"_s, u"mtd"_s)};
}

}  // namespace orv::test
