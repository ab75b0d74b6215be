#include <QTest>

#include "kit/models/deliverability/deliverabilityReport.h"
#include "kit/models/deliverability/deliverabilityRequests.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/mailboxes/mailboxRequests.h"
#include "kit/models/rampup/rampupChanges.h"
#include "kit/models/rampup/rampupDetail.h"
#include "kit/models/rampup/rampupRequests.h"
#include "kit/models/rampup/roadmapTemplate.h"
#include "kit/models/rampup/warmupStats.h"
#include "tests/demo/DemoFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

class DemoRampupTest : public QObject {
  Q_OBJECT

  std::unique_ptr<DemoFixture> f;

  RampupDetail get(const QString& id) { return f->ask(Requests::getRampup(id)); }
  /// The first account of which that holds.
  QString idOf(const std::function<bool(const RampupItem&)>& holds) {
    const auto items = f->ask(Requests::listRampup()).items;
    const auto found = std::ranges::find_if(items, holds);
    if (found == items.end()) qFatal("The sample has no such account");
    return found->mailboxId;
  }
  QString running() {
    return idOf([](const RampupItem& item) {
      return item.status.isActive() && item.plan && item.plan->state == "running"_L1 && item.plan->dayIndex < 30;
    });
  }

 private Q_SLOTS:
  void init() { f = std::make_unique<DemoFixture>(); }
  void cleanup() { f.reset(); }

  void theSampleHasEveryStateThereIs() {
    QSet<QString> states;
    for (const RampupItem& item : f->ask(Requests::listRampup()).items)
      states.insert(item.isPool()              ? u"pool"_s
                    : !item.plan               ? u"none"_s
                    : item.plan->isProtected() ? u"protected"_s
                                               : item.plan->state);
    QCOMPARE(states, (QSet<QString>{u"pool"_s, u"none"_s, u"protected"_s, u"scheduled"_s, u"running"_s, u"paused"_s,
                                    u"done"_s}));
  }

  void aRoadmapGoesOnByTheDayAndHoldsWhilePaused() {
    const QString id = running();
    const RoadmapPlan before = *get(id).plan;
    f->clock.advance(24h);
    QCOMPARE(get(id).plan->dayIndex, before.dayIndex + 1);
    f->ask(Requests::pauseRoadmap(id));
    f->clock.advance(72h);
    const RoadmapPlan held = *get(id).plan;
    QCOMPARE(held.dayIndex, before.dayIndex + 1);
    QVERIFY(held.isPaused());
    QCOMPARE(f->refusalCode(Requests::pauseRoadmap(id)), u"not_possible"_s);
    const RoadmapPlan resumed = *f->ask(Requests::resumeRoadmap(id)).plan;
    QCOMPARE(resumed.dayIndex, held.dayIndex);
    QCOMPARE(QDate::fromString(before.endsOn, Qt::ISODate).daysTo(QDate::fromString(resumed.endsOn, Qt::ISODate)), 3);
  }

  void aChangeLeavesThePastAsItWasPlanned() {
    const QString id = running();
    const RampupDetail before = get(id);
    auto stages = before.plan->stages;
    for (RoadmapStage& stage : stages) stage.warmup = {1, 1};
    const auto edited = f->ask(Requests::editRoadmap(id, {stages}, before.plan->version));
    QVERIFY(edited.plan->version > before.plan->version);
    QCOMPARE(f->refusalCode(Requests::editRoadmap(id, {stages}, before.plan->version)), u"version_conflict"_s);
    qint64 past = 0;
    for (const RoadmapDay& day : edited.days) {
      if (day.when == "past"_L1) {
        QCOMPARE(day.warmup, before.days.at(past).warmup);
        QCOMPARE(day.warmupSent, before.days.at(past).warmupSent);
        ++past;
      } else {
        QCOMPARE(day.warmup, 1);
      }
    }
    QVERIFY(past > 0);
  }

  void figuresAgreeWithTheAccounts() {
    for (const RampupItem& item : f->ask(Requests::listRampup()).items.mid(40)) {
      const Mailbox mailbox = f->ask(Requests::getMailbox(item.mailboxId));
      QCOMPARE(item.sent.warmup, mailbox.warmup.sentToday);
      QCOMPARE(item.inboxPct7d, mailbox.warmup.inboxPct7d);
      QCOMPARE(item.plan.has_value(), mailbox.rampup.has_value());
      if (item.plan) QCOMPARE(item.plan->state, mailbox.rampup->state);
    }
    const QString id = running();
    const WarmupStats stats = f->ask(Requests::warmupStats(id, 30));
    QCOMPARE(stats.days.size(), 30);
    qint64 sent = 0, inbox = 0;
    for (const WarmupStatsDay& day : stats.days) {
      sent += day.sent;
      inbox += day.inbox;
    }
    QCOMPARE(stats.totals.sent, sent);
    QCOMPARE(stats.totals.inbox, inbox);
    QCOMPARE(get(id).health.inbox, inbox);
    QCOMPARE(get(id).sent.warmup, stats.days.last().sent);
  }

  void warmupThatIsOffSendsNothingFromTodayOn() {
    const QString id = running();
    const qint64 before = f->ask(Requests::warmupStats(id, 30)).totals.sent;
    f->clock.advance(1h);
    WarmupSettingsPatch off;
    off.enabled = false;
    off.increasePerDay = Clearable<qint64>::cleared();
    const RampupDetail answer = f->ask(Requests::updateWarmup(id, off));
    QVERIFY(!answer.settings.enabled && !answer.settings.increasePerDay && !answer.plan->warmupToday);
    f->clock.advance(48h);
    const auto days = f->ask(Requests::warmupStats(id, 2)).days;
    QCOMPARE(days.first().sent + days.last().sent, 0);
    QVERIFY(before > 0);
  }

  void aBulkChangeSkipsWhatItCannotDo() {
    const QString without = idOf([](const RampupItem& item) { return !item.plan && !item.isPool(); });
    const auto result = f->ask(Requests::bulkRampup({{running(), without, u"gone"_s}, u"extend"_s, 7, {}, {}}));
    QCOMPARE(result.ok, 1);
    QCOMPARE(result.failed.size(), 2);
    QCOMPARE(f->ask(Requests::bulkRampup({{without}, u"restart"_s, {}, u"rt_2"_s, {}})).ok, 1);
    QCOMPARE(get(without).plan->dayIndex, 1);
    QCOMPARE(get(without).plan->templateId, u"rt_2"_s);
    QVERIFY(f->refusal(Requests::bulkRampup({{without}, u"edit"_s, {}, {}, QList<RoadmapStage>()}))
                .is(APIError::Kind::problem));
  }

  void templatesAreKept() {
    const auto templates = f->ask(Requests::listTemplates(false));
    QCOMPARE(templates.archivedCount, 1);
    const RoadmapTemplate google = templates.items.first();
    const auto made = f->ask(Requests::createTemplate({u"Spring"_s, {}, google.stages}));
    auto stages = made.stages;
    stages.first().days = 3;
    const auto changed = f->ask(Requests::updateTemplate(made.id, {.stages = stages}, made.version));
    QCOMPARE(changed.length, made.length - 11);
    QCOMPARE(f->refusalCode(Requests::updateTemplate(made.id, {.name = u"x"_s}, made.version)), u"version_conflict"_s);
    const QString id = running();
    f->ask(Requests::restartRoadmap(id, {made.id}));
    stages.first().days = 4;
    f->ask(Requests::updateTemplate(made.id, {.stages = stages}, {}));
    QCOMPARE(get(id).plan->stages.first().days, 4);
    f->ask(Requests::deleteTemplate(made.id, false));
    QCOMPARE(f->ask(Requests::listTemplates(true)).items.size(), 2);
    QCOMPARE(get(id).plan->stages.first().days, 4);
    f->ask(Requests::restoreTemplate(made.id));
    f->ask(Requests::deleteTemplate(made.id, true));
    QCOMPARE(f->refusalCode(Requests::restoreTemplate(made.id)), u"not_found"_s);
    QCOMPARE(f->refusalCode(Requests::deleteTemplate(google.id, false)), u"default_template"_s);
  }

  void theWatcherSeesWhatTheAccountsHave() {
    const auto report = f->ask(Requests::deliverability());
    QSet<QString> stages;
    for (const DeliverabilityInbox& inbox : report.inboxes) {
      stages.insert(*inbox.stage);
      const Mailbox mailbox = f->ask(Requests::getMailbox(inbox.id));
      QVERIFY(!mailbox.isPool());
      if (inbox.inboxRate) QVERIFY(std::abs(*inbox.inboxRate * 100 - *mailbox.warmup.inboxPct7d) < 0.11);
    }
    QVERIFY2(stages.size() >= 5, qPrintable(QStringList(stages.values()).join(u' ')));
    QVERIFY(report.automatic && report.lastScanAt);
    const auto detail = f->ask(Requests::deliverabilityInbox(report.inboxes.first().id));
    QCOMPARE(detail.inbox, report.inboxes.first());
    QVERIFY(detail.trend.size() <= 14 && detail.decisions.size() >= 3);
    f->slug = u"caldera"_s;
    QVERIFY(!f->ask(Requests::deliverability()).automatic);
    f->slug = u"harbour"_s;
    QVERIFY(!f->ask(Requests::deliverability()).lastScanAt);
    f->slug = u"fresh"_s;
    QVERIFY(f->ask(Requests::deliverability()).inboxes.isEmpty());
  }
};

QTEST_GUILESS_MAIN(DemoRampupTest)
#include "rampup_test.moc"
