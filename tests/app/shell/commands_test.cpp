#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/CampaignsStore.h"
#include "app/shell/Areas.h"
#include "app/shell/Commands.h"
#include "tests/app/shell/shellPlatform.h"
#include "tests/support/AppFixture.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;
using namespace orv::test;

namespace {

const auto me = u"GET /api/v1/auth/me"_s;
const auto campaigns = u"GET /campaigns"_s;
const auto fair = u"GET /campaigns/c1"_s;

QByteArray list(const QByteArray& id, const QByteArray& name) {
  return R"({"items":[{"id":")" + id + R"(","name":")" + name +
         R"(","status":"running","senders":0,"steps":0,"leads":0,"sent":0,"replied":0,"positive":0,"bounced":0,)"
         R"("createdAt":"2026-01-01"}]})";
}

}  // namespace

/// What can be done on the open page and from anywhere, and where in the page the way back leads.
class CommandsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<AppModel> app;
  std::unique_ptr<Commands> commands;

  void start(const QString& role = u"owner"_s) {
    StoredSession session;
    session.token = u"orv_sess_canary"_s;
    session.expiresAt = QDateTime({2027, 1, 1}, {0, 0}, Qt::UTC);
    session.user = {u"u1"_s, u"ada@b.c"_s, u"Ada"_s, {}, {}};
    for (const auto& slug : {u"a"_s, u"b"_s}) session.workspaces.append({slug, slug, slug.toUpper(), {role}, {}, {}});
    Platform platform = platformOf(*f);
    platform.demoSession = session;
    app = std::make_unique<AppModel>(platform);
    commands = std::make_unique<Commands>(*app);
    f->api.expect(me);
    app->start();
  }
  CampaignsStore& store() { return *app->session()->store<CampaignsStore>(); }
  Router& router() { return *app->router(); }
  Store* shown() { return app->openPage()->store(); }
  void openFair() {
    router().openCampaign(u"c1"_s);
    f->api.expect(fair);
    shown()->ensureLoaded();
    f->api.answer(fair, R"({"id":"c1","name":"Fair","status":"running"})");
  }
  std::optional<Command> command(const QString& title) {
    const auto all = commands->all();
    const auto found = std::ranges::find(all, title, &Command::title);
    return found != all.end() ? std::optional(*found) : std::nullopt;
  }
  bool run(const QString& title) {
    const auto found = command(title);
    if (found) found->run();
    return found.has_value();
  }

 private Q_SLOTS:
  void init() { f = std::make_unique<AppFixture>(); }
  void cleanup() {
    commands.reset();
    app.reset();
    f.reset();
  }

  void theAreasFitTogether() {
    QStringList names;
    QSet<Page> pages;
    for (const Area& area : areas()) {
      for (const AreaStore& store : area.stores) names.append(store.name);
      for (const AreaPage& page : area.pages) {
        QVERIFY2(!pages.contains(page.page), qPrintable(Pages::name(page.page)));
        pages.insert(page.page);
        QVERIFY2(names.contains(Pages::name(page.page)), "a page's store has its name");
        QVERIFY(page.view.startsWith("Orvella/"_L1) && page.view.endsWith(".qml"_L1));
      }
    }
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), names.size());
    start();
    for (const Page page : pages) {
      router().open(page);
      QVERIFY2(shown() && !app->openPage()->view().isEmpty(), qPrintable(Pages::name(page)));
      QStringList keys;
      for (const PageAction& action : shown()->actions()) {
        QVERIFY2(action.run && !action.title.isEmpty(), qPrintable(action.key));
        keys.append(action.key);
        if (!action.keys.isEmpty()) keys.append(action.keys);
      }
      for (const QString& key : keys) QVERIFY2(keys.count(key) == 1, qPrintable(Pages::name(page) + u' ' + key));
    }
    // A page that no area has is said to be missing by whoever shows it.
    for (const auto& info : Pages::all()) {
      if (pages.contains(info.page)) continue;
      router().open(info.page);
      QVERIFY(!shown() && app->openPage()->view().isEmpty() && !app->openPage()->press(u"N"_s));
    }
  }

  void everyCommandRunsWhereItSays() {
    start();
    QStringList ids;
    for (const Command& each : commands->all()) {
      QVERIFY2(!ids.contains(each.id), qPrintable(each.id));
      ids.append(each.id);
    }
    f->api.expect(u"GET /reply-labels"_s);
    QVERIFY(run(u"Reply labels"_s));
    QCOMPARE(router().settingsTab(), SettingsTab::replyLabels);
    // From another page, which is opened first.
    QVERIFY(command(u"New campaign"_s)->keys.isEmpty());
    QVERIFY(run(u"New campaign"_s));
    QCOMPARE(router().page(), Page::campaigns);
    QVERIFY(store().newCampaign()->shown());
    QCOMPARE(command(u"New campaign"_s)->keys, u"N"_s);
    const auto sidebar = u"Fold or unfold the sidebar"_s;
    QVERIFY(run(sidebar) && router().collapsed());
    router().setFoldable(false);
    QVERIFY(!command(sidebar));
    QVERIFY(!ids.contains(u"workspace.a"_s));
    f->api.expect(u"PUT /api/v1/auth/me/workspace"_s);
    QVERIFY(run(u"B"_s));
    QCOMPARE(app->current()->slug, u"b"_s);
  }

  void thePageSaysWhatItsKeysDo() {
    start();
    QVERIFY2(!app->openPage()->press(u"N"_s), "the dashboard makes nothing new");
    router().open(Page::campaigns);
    QVERIFY(app->openPage()->keys().contains(u"N"_s));
    QVERIFY(app->openPage()->press(u"N"_s));
    QVERIFY(store().newCampaign()->shown());
    store().newCampaign()->cancel();
    f->api.expect(campaigns);
    QVERIFY(app->openPage()->press(u"F5"_s));
  }

  void aCampaignsPageIsActedOnByName_data() {
    QTest::addColumn<QString>("role");
    QTest::addColumn<bool>("may");
    QTest::newRow("a member") << u"member"_s << true;
    QTest::newRow("a viewer") << u"viewer"_s << false;
  }
  void aCampaignsPageIsActedOnByName() {
    QFETCH(QString, role);
    QFETCH(bool, may);
    start(role);
    openFair();
    for (const auto& title :
         {u"Pause Fair"_s, u"Rename Fair"_s, u"Delete Fair"_s, u"Add a lead by hand"_s, u"Send a test"_s})
      QCOMPARE(command(title).has_value(), may);
    // Menus show what the person may not do, and do not do it.
    const auto entries = shown()->menu();
    const auto rename = std::ranges::find(entries, u"rename"_s, &PageAction::key);
    QCOMPARE(rename->possible, may);
    QCOMPARE(shown()->act(u"rename"_s), may);
    QVERIFY(run(u"Settings › Schedules"_s));
    auto* campaign = app->session()->item<CampaignStore>(Page::campaigns, u"c1"_s);
    QCOMPARE(campaign->tab(), CampaignStore::Tab::settings);
    QCOMPARE(campaign->settings()->takeAsked(), u"schedules"_s);
    if (!may) return;
    QVERIFY(run(u"Add a lead by hand"_s));
    QCOMPARE(campaign->tab(), CampaignStore::Tab::leads);
    QVERIFY(campaign->leads()->adding()->form()->shown());
    f->api.expect(u"POST /campaigns/c1/pause"_s);
    QVERIFY(run(u"Pause Fair"_s));
    app->overlays()->answer(app->overlays()->token(), true);
    QVERIFY2(!command(u"Pause Fair"_s), "it is under way");
  }

  void rowsOfferWhatTheirStateAllows() {
    start();
    router().open(Page::campaigns);
    f->api.expect(campaigns);
    store().ensureLoaded();
    f->api.answer(campaigns, list("c1", "Fair"));
    const auto keysOf = [this] {
      QStringList keys;
      for (const PageAction& action : store().menu(u"c1"_s)) keys.append(action.key);
      return keys;
    };
    QVERIFY(keysOf().contains(u"pause"_s) && !keysOf().contains(u"resume"_s));
    f->api.expect(u"POST /campaigns/c1/pause"_s);
    QVERIFY(store().act(u"pause"_s, u"c1"_s));
    QVERIFY2(!store().act(u"delete"_s, u"c1"_s), "one at a time");
    QVERIFY(!store().act(u"pause"_s, u"gone"_s));
  }

  void thePaletteFindsWhatWasNeverOpened() {
    start();
    CommandPalette palette(f->preferences, [this] { return commands->all(); });
    connect(&palette, &CommandPalette::searching, commands.get(), &Commands::load);
    connect(commands.get(), &Commands::changed, &palette, &CommandPalette::renew);
    palette.prepare();
    // Of every area whose records are found by name.
    for (const auto& list : {campaigns, u"GET /mailboxes"_s, u"GET /rampup"_s, u"GET /lead-lists"_s,
                             u"GET /inbox/threads"_s, u"GET /inbox-setup/templates"_s})
      f->api.expect(list);
    palette.setQuery(u"fair"_s);
    QCOMPARE(palette.count(), 0);
    f->api.answer(campaigns, list("c1", "Fleet Fair"));
    QCOMPARE(palette.count(), 1);
    QVERIFY(palette.choose(0));
    QCOMPARE(router().campaign(), u"c1"_s);
  }

  void whatIsFoundMeanwhileMovesNothing() {
    start();
    QList<Command> known;
    const auto record = [](const QString& name) {
      return Command{.id = u"record."_s + name, .group = u"Campaigns"_s, .title = name, .run = [] {}};
    };
    f->preferences.setRecentCommands({u"record.Fair"_s});
    CommandPalette palette(f->preferences, [&known] { return known; });
    QAbstractItemModelTester tester(&palette, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QSignalSpy searching(&palette, &CommandPalette::searching);
    palette.prepare();
    QVERIFY2(searching.count() == 1, "what was chosen lately may have to be loaded");
    known = {record(u"Autumn fair"_s), record(u"Fair"_s)};
    palette.renew();
    QCOMPARE(palette.count(), 1);
    palette.setQuery(u"fair"_s);
    const QPersistentModelIndex chosen = palette.index(palette.count() - 1);
    const QString title = chosen.data(CommandPalette::TitleRole).toString();
    known.prepend(record(u"Fair two"_s));
    palette.renew();
    known.append(record(u"Summer fair"_s));
    palette.renew();
    QCOMPARE(palette.count(), 4);
    QCOMPARE(chosen.data(CommandPalette::TitleRole).toString(), title);
    known.removeLast();
    palette.renew();
    QCOMPARE(palette.count(), 3);
  }

  void theWayBackLeadsIntoThePage() {
    start();
    router().open(Page::campaigns);
    store().setQuery(u"fair"_s);
    openFair();
    auto* campaign = app->session()->item<CampaignStore>(Page::campaigns, u"c1"_s);
    campaign->setTab(u"stats"_s);
    router().goBack();
    QCOMPARE(campaign->tab(), CampaignStore::Tab::sequence);
    router().goBack();
    QVERIFY(router().campaign().isEmpty());
    QCOMPARE(store().query(), u"fair"_s);
    router().goBack();
    QCOMPARE(store().query(), QString());
    router().goForward();
    QCOMPARE(store().query(), u"fair"_s);

    f->api.expect(campaigns);
    store().setShowArchived(true);
    router().open(Page::campaigns);
    QVERIFY(!store().showArchived());
    router().goBack();
    QVERIFY2(store().showArchived(), "the archive is a place to come back to");
    // Asked for from elsewhere the page begins anew, and the archive is no step of that way.
    router().open(Page::analytics);
    router().open(Page::campaigns);
    QVERIFY(!store().showArchived());
    router().goBack();
    QCOMPARE(router().page(), Page::analytics);
  }

  void onlyWhatIsShownIsKept() {
    start();
    openFair();
    const QPointer<Store> campaign = shown();
    QVERIFY(campaign->isShown());
    f->api.expect(u"PUT /api/v1/auth/me/workspace"_s);
    app->openWorkspace(u"b"_s);
    QVERIFY(!campaign->isShown());
    QCOMPARE(router().page(), Page::campaigns);
    QCOMPARE(shown(), app->session()->store<CampaignsStore>());
    f->api.expect(u"POST /api/v1/auth/logout"_s);
    f->api.expect(u"GET /api/v1/auth/methods"_s);
    app->signOut();
    QVERIFY(!shown());
    QVERIFY(app->openPage()->keys().isEmpty());
  }

  void paletteFindsRunsAndRemembers() {
    MemoryPreferences preferences;
    QStringList run;
    const auto listed = [&run] {
      QList<Command> list;
      for (int i = 0; i < 12; ++i) {
        const QString id = u"c%1"_s.arg(i);
        list.append({id, i < 6 ? u"Pages"_s : u"Actions"_s, u"Open Item %1"_s.arg(i), u"sub"_s, {}, {}, [&run, id] {
                       run.append(id);
                     }});
      }
      return list;
    };
    CommandPalette palette(preferences, listed);
    QAbstractItemModelTester tester(&palette, QAbstractItemModelTester::FailureReportingMode::Fatal);
    palette.prepare();
    palette.setQuery(u"ITEM 11"_s);
    QCOMPARE(palette.count(), 1);
    QVERIFY(palette.choose(0));
    palette.setQuery(u" zzz "_s);
    QCOMPARE(palette.count(), 0);
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

QTEST_GUILESS_MAIN(CommandsTest)
#include "commands_test.moc"
