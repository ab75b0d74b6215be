#include <QAbstractItemModelTester>
#include <QTest>

#include "app/shell/CommandPalette.h"
#include "app/shell/Router.h"
#include "tests/support/AppFixture.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;
using namespace orv;
using namespace orv::test;

/// Getting around: the router, the "go to" chord and the palette.
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

  void paletteFindsRunsAndRemembers() {
    MemoryPreferences preferences;
    QStringList run;
    const auto commands = [&run] {
      QList<Command> list;
      for (int i = 0; i < 12; ++i) {
        const QString id = u"c%1"_s.arg(i);
        list.append({id, i < 6 ? u"Pages"_s : u"Actions"_s, u"Open Item %1"_s.arg(i), u"sub"_s, {}, {}, [&run, id] {
                       run.append(id);
                     }});
      }
      return list;
    };
    CommandPalette palette(preferences, commands);
    QAbstractItemModelTester tester(&palette, QAbstractItemModelTester::FailureReportingMode::Fatal);
    palette.prepare();
    palette.setQuery(u"ITEM 11"_s);
    QCOMPARE(palette.resultsText(), u"1 result"_s);
    QVERIFY(palette.choose(0));
    palette.setQuery(u" zzz "_s);
    QCOMPARE(palette.resultsText(), u"0 results"_s);
    QCOMPARE(palette.nothingText(), u"Nothing matches “zzz”"_s);
    QVERIFY(!palette.choose(0));
    palette.setQuery(u"item"_s);
    for (int row = 0; row < 9; ++row) palette.choose(row);
    palette.choose(0);
    palette.prepare();
    QCOMPARE(palette.count(), 8);
    QCOMPARE(palette.index(0).data(CommandPalette::IdRole).toString(), u"c0"_s);
    QCOMPARE(palette.index(0).data(CommandPalette::GroupRole).toString(), u"Recent"_s);
    QCOMPARE(run.size(), 11);
  }
};

QTEST_GUILESS_MAIN(RouterTest)
#include "router_test.moc"
