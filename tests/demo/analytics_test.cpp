#include <QTest>

#include "kit/models/analytics/analyticsOverview.h"
#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/analytics/analyticsSummary.h"
#include "kit/models/analytics/dashboard.h"
#include "kit/models/analytics/metrics.h"
#include "kit/models/analytics/warmupHealth.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/mailboxes/mailboxRequests.h"
#include "tests/demo/DemoFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// What every list of figures has, so that lists and totals can be compared.
struct Sums {
  qint64 sent = 0, contacted = 0, opens = 0, replies = 0, bounces = 0;
  bool operator==(const Sums&) const = default;

  template <class Row>
  static Sums of(const Row& row) {
    return {row.sent, std::optional<qint64>(row.contacted).value_or(0), row.opens.value_or(0), row.replies,
            std::optional<qint64>(row.bounces).value_or(0)};
  }
  template <class Row>
  static Sums ofAll(const QList<Row>& rows) {
    Sums sums;
    for (const Row& row : rows) sums += of(row);
    return sums;
  }
  Sums& operator+=(const Sums& other) {
    for (const auto field : {&Sums::sent, &Sums::contacted, &Sums::opens, &Sums::replies, &Sums::bounces})
      this->*field += other.*field;
    return *this;
  }
};

const auto launchOfAll = u"2025-11-21"_s, today = u"2026-11-21"_s;

}  // namespace

class DemoAnalyticsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<DemoFixture> f;

  AnalyticsSummary summary(const QString& from, const QString& to, const std::optional<QString>& campaign = {},
                           const std::optional<QString>& mailbox = {}, const std::optional<QString>& tag = {}) {
    return f->ask(Requests::analyticsSummary(from, to, campaign, mailbox, tag));
  }

 private Q_SLOTS:
  void init() { f = std::make_unique<DemoFixture>(); }
  void cleanup() { f.reset(); }

  void everyListAddsUpToTheTotals_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<qsizetype>("days");
    QTest::newRow("a day") << today << today << qsizetype(1);
    QTest::newRow("four weeks") << u"2026-10-25"_s << today << qsizetype(28);
    QTest::newRow("over the change of the clocks") << u"2026-10-24"_s << u"2026-10-26"_s << qsizetype(3);
    QTest::newRow("everything") << launchOfAll << today << qsizetype(366);
    QTest::newRow("into the future") << u"2026-11-20"_s << u"2026-12-01"_s << qsizetype(12);
    QTest::newRow("over a leap day") << u"2024-02-28"_s << u"2024-03-01"_s << qsizetype(3);
  }
  void everyListAddsUpToTheTotals() {
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(qsizetype, days);
    const auto choices = *summary(from, to).options;
    const std::optional<QString> any, campaign = choices.campaigns->first().id, mailbox = choices.mailboxes->first().id,
                                      tag = choices.tags->first();
    for (const auto& [c, m, t] :
         {std::tuple(any, any, any), std::tuple(campaign, any, any), std::tuple(any, mailbox, any),
          std::tuple(any, any, tag), std::tuple(campaign, mailbox, tag)}) {
      const auto figures = summary(from, to, c, m, t);
      QCOMPARE(figures.days.size(), days);
      QCOMPARE(figures.days.first().day, from);
      QCOMPARE(figures.days.last().day, to);
      const Sums totals = Sums::of(figures.totals);
      QVERIFY(Sums::ofAll(figures.days) == totals);
      QVERIFY(Sums::ofAll(figures.campaigns) == totals);
      QVERIFY(Sums::ofAll(figures.accounts) == totals);
      double value = 0;
      for (const auto& row : figures.campaigns) value += *row.opportunityValue;
      QCOMPARE(value, figures.totals.opportunityValue);
    }
  }

  void noFigureIsMoreThanWhatItIsPartOf() {
    const auto figures = summary(launchOfAll, today);
    QVERIFY(figures.totals.sent > 0);
    for (const auto& day : figures.days)
      QVERIFY(std::max({*day.contacted, *day.opens, day.replies, *day.bounces}) <= day.sent);
    const Metrics& totals = figures.totals;
    QVERIFY(totals.won <= totals.meetingsCompleted && totals.meetingsCompleted <= totals.meetingsBooked);
    QVERIFY(totals.meetingsBooked <= totals.interested && totals.interested <= totals.replies);
    QVERIFY(figures.tracking.opens && !figures.tracking.clicks && !totals.clicks);
  }

  void filtersTakeTheirPartOut() {
    const auto all = summary(launchOfAll, today);
    Sums byCampaign;
    for (const auto& row : all.campaigns) {
      const auto one = summary(launchOfAll, today, row.id);
      QCOMPARE(one.campaigns, QList{row});
      byCampaign += Sums::of(one.totals);
    }
    QVERIFY(byCampaign == Sums::of(all.totals));
    for (const auto& row : all.accounts) {
      const auto one = summary(launchOfAll, today, {}, row.id);
      QCOMPARE(one.accounts, QList{row});
    }
    QSet<QString> tagged;
    for (const QString& tag : *all.options->tags) {
      for (const auto& row : summary(launchOfAll, today, {}, {}, tag).accounts) {
        QVERIFY(all.accounts.contains(row));
        tagged.insert(row.id);
      }
    }
    QVERIFY(!tagged.isEmpty() && tagged.size() < all.accounts.size());
    QCOMPARE(summary(launchOfAll, today, {}, u"mb_none"_s).totals, summary(u"2020-01-01"_s, u"2020-01-02"_s).totals);
  }

  void neighbouringRangesAddUp() {
    Sums parts = Sums::of(summary(launchOfAll, u"2026-10-24"_s).totals);
    parts += Sums::of(summary(u"2026-10-25"_s, today).totals);
    QVERIFY(parts == Sums::of(summary(launchOfAll, today).totals));
    QCOMPARE(summary(u"2026-11-22"_s, u"2026-12-31"_s).totals.sent, 0);
    QVERIFY(summary(u"2026-11-22"_s, u"2026-12-31"_s).campaigns.isEmpty());
  }

  void theFiguresOfAllDaysAreTheCampaignsOwn() {
    for (const auto& row : f->ask(Requests::listCampaigns(false)).items) {
      if (row.sent == 0) continue;
      const auto figures = summary(row.createdAt.left(10), today, row.id);
      QCOMPARE(figures.campaigns.size(), 1);
      QCOMPARE(figures.totals.sent, row.sent);
      QCOMPARE(figures.totals.replies, row.replied);
      QCOMPARE(figures.totals.interested, row.positive);
      QCOMPARE(figures.totals.bounces, row.bounced);
    }
  }

  void badRangesAreRefused_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("backwards") << today << u"2020-01-01"_s;
    QTest::newRow("no day of the calendar") << u"2026-02-29"_s << today;
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("endless") << u"0001-01-01"_s << u"9999-12-31"_s;
  }
  void badRangesAreRefused() {
    QFETCH(QString, from);
    QFETCH(QString, to);
    QCOMPARE(f->refusalCode(Requests::analyticsSummary(from, to)), u"invalid_input"_s);
    QCOMPARE(f->refusalCode(Requests::analyticsOverview(from, to)), u"invalid_input"_s);
  }

  void figuresFollowWhatPeopleDo() {
    const QString id = f->idOf(u"running"_s);
    const auto all = summary(launchOfAll, today);
    f->ask(Requests::deleteCampaign(id, false));
    QVERIFY2(summary(launchOfAll, today).totals == all.totals, "what waits in the archive was sent all the same");
    QVERIFY(!summary(launchOfAll, today)
                 .options->campaigns->contains(AnalyticsSummary::Option{id, f->row(id, true)->name}));
    f->ask(Requests::deleteCampaign(id, true));
    Sums left = Sums::of(summary(launchOfAll, today).totals);
    left += Sums::of(*std::ranges::find(all.campaigns, id, &AnalyticsSummary::CampaignRow::id));
    QVERIFY(left == Sums::of(all.totals));
  }

  void whatWasSentStaysWhereItCameFrom() {
    const auto sentBy = [this] {
      QMap<QString, qint64> sent;
      for (const auto& row : summary(launchOfAll, today).accounts) sent.insert(row.id, row.sent);
      return sent;
    };
    const QString id = f->idOf(u"running"_s);
    auto senders = *f->ask(Requests::getCampaign(id)).senders;
    QVERIFY(senders.size() > 1);
    const auto before = sentBy();
    const QString first = senders.takeFirst().mailboxId, second = senders.takeFirst().mailboxId;
    f->ask(Requests::updateCampaign(id, {.senderMailboxIds = QStringList{second}}, {}));
    QCOMPARE(sentBy(), before);
    // One that is archived and comes back has what it had.
    f->ask(Requests::deleteMailbox(second, false));
    auto left = before;
    left.remove(second);
    QCOMPARE(sentBy(), left);
    f->ask(Requests::restoreMailbox(second));
    QCOMPARE(sentBy(), before);
    // The others send from the day after.
    f->ask(Requests::updateCampaign(id, {.senderMailboxIds = QStringList{first}}, {}));
    f->clock.advance(72h);
    const auto later = f->ask(Requests::analyticsSummary(u"2026-11-22"_s, u"2026-11-24"_s, id)).accounts;
    QVERIFY(!later.isEmpty());
    QVERIFY(std::ranges::all_of(later, [&](const auto& row) { return row.id == first; }));
  }

  void theOverviewIsOfTheSameFigures() {
    const auto overview = f->ask(Requests::analyticsOverview(u"2026-10-25"_s, today));
    const auto figures = summary(u"2026-10-25"_s, today);
    const auto& combined = overview.combined;
    QVERIFY(*combined.metrics == figures.totals);
    QCOMPARE(*combined.metricDays, figures.days);
    QCOMPARE(combined.totals->sends, figures.totals.sent);
    qint64 positive = 0;
    for (const auto& day : *combined.days) positive += day.positive;
    QCOMPARE(positive, figures.totals.interested);
    QCOMPARE(combined.today->sendsCampaigns, summary(today, today).totals.sent);
    QCOMPARE(combined.month->sends, summary(u"2026-11-01"_s, today).totals.sent);
    QCOMPARE(overview.workspaces.size(), 1);
    QVERIFY(overview.workspaces.first().metrics == combined.metrics);
  }

  void todayIsTheSameEverywhere() {
    const auto overview = f->ask(Requests::analyticsOverview(today, today));
    const auto now = *overview.combined.today;
    const auto dashboard = f->ask(Requests::dashboard());
    const auto health = f->ask(Requests::warmupHealth());
    QCOMPARE(*dashboard.sends, (Dashboard::Sends{now.sendsWarmup, now.sendsCampaigns}));
    QCOMPARE(*dashboard.replies, now.replies);
    const auto inbox = *dashboard.inbox;
    QCOMPARE(inbox, (Dashboard::InboxHealth{now.mailboxes, now.active, inbox.paused, inbox.failed, 0, now.ready}));
    QCOMPARE(inbox.paused + inbox.failed, now.mailboxes - now.active);
    QCOMPARE(*dashboard.leads, (Dashboard::Leads{now.leads, now.lists}));
    const auto& [healthy, watch, atRisk, off, ready] = health.summary;
    QCOMPARE(healthy + watch + atRisk + off, now.mailboxes);
    QCOMPARE(off, now.mailboxes - now.active);
    QCOMPARE(ready, *now.ready);
    qint64 sent = 0;
    for (const auto& account : health.items) {
      sent += account.sentToday;
      QCOMPARE(account.inbox7d + account.spam7d, account.placed7d);
      QVERIFY(account.placed7d + account.failed7d <= account.sent7d);
      QVERIFY(account.ready != account.readyReason.has_value());
    }
    QCOMPARE(sent, now.sendsWarmup);
    QVERIFY(now.ready <= now.active && now.leads > 0);
  }

  void daysAreThoseOfTheWorkspace() {
    const auto day = [this] { return f->ask(Requests::analyticsOverview(today, today)).day; };
    QCOMPARE(day(), u"2026-11-21"_s);
    f->clock.advance(11h - 1s);
    QCOMPARE(day(), u"2026-11-21"_s);
    f->clock.advance(1s);
    QCOMPARE(day(), u"2026-11-22"_s);
    QCOMPARE(f->ask(Requests::dashboard()).day, u"2026-11-22"_s);
  }

  void aWorkspaceWithoutAnythingHasNoFigures() {
    f->slug = u"fresh"_s;
    const auto figures = summary(launchOfAll, today);
    QCOMPARE(figures.totals.sent, 0);
    QVERIFY(figures.campaigns.isEmpty() && figures.accounts.isEmpty());
    QCOMPARE(f->ask(Requests::analyticsOverview(today, today)).combined.today->mailboxes, 0);
    QVERIFY(f->ask(Requests::warmupHealth()).items.isEmpty());
  }
};

QTEST_GUILESS_MAIN(DemoAnalyticsTest)
#include "analytics_test.moc"
