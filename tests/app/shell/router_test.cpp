#include <QTest>

#include "app/shell/Router.h"
#include "tests/support/AppFixture.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;
using namespace orv;
using namespace orv::test;

/// Getting around: the router, its way back and the "go to" chord.
class RouterTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void routerOpensKeepsAndGates() {
    ManualClock clock;
    MemoryPreferences preferences;
    Router router(preferences, clock);
    QCOMPARE(router.page(), Page::dashboard);
    router.open(Page::inbox);
    QCOMPARE(router.direction(), 1);
    router.openCampaign(u"c1"_s);
    QCOMPARE(router.page(), Page::campaigns);
    QCOMPARE(router.direction(), -1);
    QCOMPARE(router.campaign(), u"c1"_s);
    router.open(Page::campaigns);
    QCOMPARE(router.campaign(), QString());
    router.setFeaturesOff({u"campaigns"_s});
    QCOMPARE(router.page(), Page::dashboard);
    router.setFeaturesOff({});
    router.open(Page::campaigns);
    router.setFeaturesOff({u"rampup"_s});
    router.open(Page::rampup);
    QCOMPARE(router.page(), Page::campaigns);
    QCOMPARE(router.offFeature(), u"rampup"_s);
    router.openSettings(SettingsTab::replyLabels);
    QCOMPARE(router.offFeature(), QString());
    QCOMPARE(router.page(), Page::settings);

    router.setCollapsed(true);
    QVERIFY(Router(preferences, clock).collapsed());
  }

  void walksTwentyPlacesBackAndForth() {
    ManualClock clock;
    MemoryPreferences preferences;
    Router router(preferences, clock);
    router.goBack();
    QCOMPARE(router.page(), Page::dashboard);
    router.openCampaign(u"c1"_s);
    router.openCampaign(u"c1"_s);
    router.openSettings(SettingsTab::tags);
    router.openSettings(SettingsTab::members);
    router.goBack();
    QCOMPARE(router.settingsTab(), SettingsTab::tags);
    router.goBack();
    QCOMPARE(router.campaign(), u"c1"_s);
    router.goForward();
    QCOMPARE(router.page(), Page::settings);
    router.goBack();
    // Another way from here gives up what lay ahead.
    router.open(Page::analytics);
    QVERIFY(!router.canGoForward());
    for (int i = 0; i < 30; ++i) router.openCampaign(u"x%1"_s.arg(i));
    int steps = 0;
    while (router.canGoBack()) {
      router.goBack();
      ++steps;
    }
    QCOMPARE(steps, 19);
    QCOMPARE(router.campaign(), u"x10"_s);
    // The places of one workspace are none in the next.
    router.reset();
    QVERIFY(!router.canGoBack() && !router.canGoForward());
  }

  void theWayBackLeadsToTabsAndSearches() {
    ManualClock clock;
    MemoryPreferences preferences;
    Router router(preferences, clock);
    QList<PagePlace> walked;
    connect(&router, &Router::walked, this, [&](const PagePlace& place) { walked.append(place); });
    router.openCampaign(u"c1"_s);
    router.amendPlace({.tab = u"sequence"_s});
    router.moveTo({.tab = u"leads"_s});
    // A search is typed letter by letter, and after a rest another one.
    for (const auto& text : {u"a"_s, u"ac"_s, u"acme"_s}) {
      router.moveTo({.tab = u"leads"_s, .value = text});
      clock.advance(300ms);
    }
    clock.advance(5s);
    router.moveTo({.tab = u"leads"_s, .value = u"bolt"_s});
    router.openSettings(SettingsTab::tags);
    router.openSettings(SettingsTab::tags);
    walked.clear();
    while (router.canGoBack()) router.goBack();
    const QList<PagePlace> back{
        {u"leads"_s, u"bolt"_s}, {u"leads"_s, u"acme"_s}, {u"leads"_s, {}}, {u"sequence"_s, {}}, {}};
    QCOMPARE(walked, back);
    for (int step = 0; step < 3; ++step) router.goForward();
    QCOMPARE(router.campaign(), u"c1"_s);
    QCOMPARE(walked.last(), (PagePlace{u"leads"_s, u"acme"_s}));
    // What is chosen is a step each, however quickly.
    for (const auto& choice : {u"owner"_s, u"founder"_s})
      router.moveTo({.tab = u"leads"_s, .value = choice, .chosen = true});
    router.goBack();
    QCOMPARE(walked.last(), (PagePlace{u"leads"_s, u"owner"_s}));
    // Going on from there is another way.
    router.moveTo({.tab = u"stats"_s});
    QVERIFY(!router.canGoForward());
  }

  void goChordWaitsBriefly() {
    ManualClock clock;
    MemoryPreferences preferences;
    Router router(preferences, clock);
    QVERIFY(!router.finishGo(u"d"_s));
    router.startGo();
    QVERIFY(router.finishGo(u"D"_s));
    QCOMPARE(router.page(), Page::dashboard);
    router.startGo();
    clock.advance(5s);
    QVERIFY(!router.goPending());
    QVERIFY(!router.finishGo(u"a"_s));
    QSet<QChar> keys;
    for (const auto& info : Pages::all()) keys.insert(info.key);
    QCOMPARE(keys.size(), Pages::all().size());
  }
};

QTEST_GUILESS_MAIN(RouterTest)
#include "router_test.moc"
