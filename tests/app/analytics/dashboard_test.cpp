#include "app/analytics/DashboardStore.h"
#include "app/base/CampaignAdding.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/leads/lead.h"
#include "kit/models/leads/leadList.h"
#include "kit/models/leads/unlocks.h"
#include "kit/models/mailboxes/mailbox.h"
#include "tests/app/analytics/AnalyticsPage.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto overviewCall = u"GET /analytics/overview"_s;

QByteArray overviewOf(const QByteArray& combined) {
  return R"({"scope":"this","from":"x","to":"x","day":"2026-11-20","timeZone":"America/New_York","workspaces":[],)"
         R"("combined":{)" +
         combined + "}}";
}

QByteArray todayOf(const QByteArray& more) {
  return R"("today":{"sendsWarmup":412,"sendsCampaigns":1206,"replies":37,"leads":26908,)" + more + "}";
}

}  // namespace

class DashboardTest final : public AnalyticsPage {
  Q_OBJECT

  std::unique_ptr<DashboardStore> dashboard;

  void loadDashboard(const QByteArray& combined) {
    f->api.expect(overviewCall);
    dashboard->ensureLoaded();
    f->api.answer(overviewCall, overviewOf(combined));
  }

 private Q_SLOTS:
  void init() {
    open();
    dashboard = std::make_unique<DashboardStore>(*f->context);
  }
  void cleanup() {
    dashboard.reset();
    leave();
  }

  void whatIsDoneElsewhereIsReadAnew_data() {
    using Tell = void (*)(WorkspaceContext&);
    QTest::addColumn<Tell>("tell");
    QTest::newRow("an account") << Tell([](WorkspaceContext& here) { here.changes().stale<Mailbox>(u"m1"_s); });
    QTest::newRow("leads") << Tell([](WorkspaceContext& here) { here.changes().stale<Lead>(); });
    QTest::newRow("a list") << Tell(
        [](WorkspaceContext& here) { here.changes().gone<LeadList>(u"li1"_s, here.changes().stamp()); });
    QTest::newRow("a campaign's leads") << Tell([](WorkspaceContext& here) { leadsCameTo(here, u"c1"_s); });
    QTest::newRow("a campaign that was deleted")
        << Tell([](WorkspaceContext& here) { here.changes().gone<Campaign>(u"c1"_s, here.changes().stamp()); });
    QTest::newRow("an unlocking") << Tell([](WorkspaceContext& here) { here.changes().stale<UnlockUsage>(); });
  }
  void whatIsDoneElsewhereIsReadAnew() {
    using Tell = void (*)(WorkspaceContext&);
    QFETCH(Tell, tell);
    loadDashboard(todayOf(R"("mailboxes":2,"active":2,"ready":1,"lists":1)"));
    tell(*f->context);
    settle();
    QVERIFY(dashboard->overview()->needsLoad());
    f->api.expect(overviewCall);
    dashboard->overview()->appear();
    settle();
    f->api.answer(overviewCall, overviewOf(todayOf(R"("mailboxes":2,"active":1,"ready":1,"lists":1)")));
    QVERIFY(lines(dashboard->today()).at(2).contains(u"1 not active"_s));
  }

  void dashboardSaysHowTodayGoes_data() {
    QTest::addColumn<QByteArray>("today");
    QTest::addColumn<QStringList>("said");
    const auto sent = u"Sent today: 1,618, 1,206 campaign · 412 ramp-up"_s, replies = u"Replies today: 37"_s;
    QTest::newRow("some not active") << todayOf(R"("mailboxes":48,"active":42,"ready":41,"lists":14)")
                                     << QStringList{
                                            sent, replies,
                                            u"Inbox health: 42 mailboxes active, 41 ready to send, 6 not active"_s,
                                            u"Leads: 26,908, 14 lists"_s};
    QTest::newRow("all active, one list")
        << todayOf(R"("mailboxes":2,"active":2,"ready":1,"lists":1)")
        << QStringList{sent, replies, u"Inbox health: 2 mailboxes active, 1 ready to send · 0 not active"_s,
                       u"Leads: 26,908, 1 list"_s};
    QTest::newRow("readiness unknown, no list")
        << todayOf(R"("mailboxes":1,"active":0,"lists":0)")
        << QStringList{sent, replies, u"Inbox health: 0 mailboxes active, 1 not active"_s, u"Leads: 26,908, 0 lists"_s};
  }
  void dashboardSaysHowTodayGoes() {
    QFETCH(QByteArray, today);
    loadDashboard(today);
    QTEST(lines(dashboard->today()), "said");
    QVERIFY(dashboard->metrics().isEmpty() && dashboard->days().isEmpty());
    QCOMPARE(dashboard->dayText(), u"Friday 20 November · New York time"_s);
  }

  void dashboardFollowsItsRange() {
    loadDashboard(R"("metrics":)" + QByteArray(totals).replace(R"("clicks":9,)", "") +
                  R"(,"metricDays":[{"day":"2026-11-20","sent":7,"opens":2,"replies":1}])");
    QVERIFY(dashboard->today().isEmpty());
    QCOMPARE(lines(dashboard->metrics()).mid(1, 2),
             (QStringList{u"Opens: 9,957, 35%"_s, u"Clicks: –, Tracking off"_s}));
    QCOMPARE(dashboard->days(), QStringList{u"2026-11-20"_s});
    QVERIFY(!dashboard->series().last().toMap().value(u"available"_s).toBool());
    dashboard->toggleSeries(u"sent"_s);
    QVERIFY(!dashboard->series().first().toMap().value(u"shown"_s).toBool());

    f->api.expect(overviewCall);
    dashboard->refresh();
    f->api.answer(overviewCall, "[]");
    QCOMPARE(lastToast(), u"Couldn’t load the dashboard"_s);
    QVERIFY(dashboard->overview()->hasContent());

    f->api.expect(overviewCall);
    dashboard->setPreset(u"ytd"_s);
    dashboard->setPreset(u"ytd"_s);
    QCOMPARE(queryText(f->api.last()), u"scope=this&from=2026-01-01&to=2026-11-21"_s);
    f->api.expect(overviewCall);
    dashboard->setPreset(u"last7"_s);
    QCOMPARE(f->api.cancelled(), QStringList{overviewCall});
    f->api.fail(overviewCall, TransportFailure::offline);
    QVERIFY(!dashboard->overview()->hasContent());
    dashboard->openAnalytics();
    QCOMPARE(f->navigator.page, Page::analytics);
  }
};

QTEST_GUILESS_MAIN(DashboardTest)
#include "dashboard_test.moc"
