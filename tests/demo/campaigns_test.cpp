#include <QTest>

#include "kit/api/PlatformDate.h"
#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/analytics/dashboard.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/campaignSender.h"
#include "kit/models/campaigns/campaignStats.h"
#include "kit/models/campaigns/launchCheck.h"
#include "kit/models/campaigns/sequence.h"
#include "kit/models/mailboxes/mailboxPage.h"
#include "kit/models/mailboxes/mailboxRequests.h"
#include "tests/demo/DemoFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

CampaignPatch named(const QString& name) {
  CampaignPatch patch;
  patch.name = name;
  return patch;
}

VariantIn variant(const QString& label, const QString& subject, const QString& body, qint64 weight = 100) {
  return {{}, label, subject, body, weight, true};
}

const QcCheck& find(const Qc& qc, const QString& key) { return *std::ranges::find(qc.checks, key, &QcCheck::key); }

}  // namespace

class DemoCampaignsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void changesAreSeenInTheListAndTheCampaign() {
    DemoFixture f;
    const QString id = f.idOf(u"running"_s);
    const auto before = *f.row(id);

    f.ask(Requests::updateCampaign(id, named(u"  Renamed "_s), before.version));
    QCOMPARE(f.row(id)->name, u"Renamed"_s);
    QCOMPARE(f.row(id)->version, *before.version + 1);

    f.ask(Requests::pauseCampaign(id));
    QCOMPARE(f.row(id)->status.rawValue, u"paused"_s);
    const auto paused = f.ask(Requests::getCampaign(id));
    QCOMPARE(paused.stats->leads.active, 0);
    QVERIFY(paused.stats->leads.paused > 0);
    QCOMPARE(paused.stats->leads.total, before.leads);

    QCOMPARE(f.launch(id, false).launchedAt, before.launchedAt);
    QCOMPARE(f.ask(Requests::getCampaign(id)).stats->leads.active, paused.stats->leads.paused);
    QCOMPARE(f.refusalCode(Requests::launchCampaign(id, {false})), u"already_running"_s);
  }

  void aCopyIsADraftOfItsOwn() {
    DemoFixture f;
    const QString id = f.idOf(u"running"_s);
    const auto original = f.ask(Requests::getCampaign(id)), copy = f.ask(Requests::duplicateCampaign(id));
    QCOMPARE(copy.name, original.name + u" (copy)"_s);
    QCOMPARE(f.ask(Requests::listCampaigns(false)).items.first().id, copy.id);
    QCOMPARE(copy.status.rawValue, u"draft"_s);
    QVERIFY(!copy.launchedAt);
    QCOMPARE(*copy.stats, CampaignStats{});
    QVERIFY(f.leads(copy.id).isEmpty());
    QCOMPARE(copy.steps->size(), original.steps->size());
    QVERIFY(copy.steps->first().id != original.steps->first().id);
    f.ask(Requests::saveSteps(copy.id, {}));
    QCOMPARE(f.ask(Requests::getCampaign(id)).steps, original.steps);
  }

  void aStaleVersionIsRefused() {
    DemoFixture f;
    const QString id = f.idOf(u"draft"_s);
    const auto version = f.row(id)->version;
    f.ask(Requests::updateCampaign(id, named(u"First"_s), version));
    const APIError error = f.refusal(Requests::updateCampaign(id, named(u"Second"_s), version));
    QVERIFY(isVersionConflict(error));
    QCOMPARE(error.context().httpStatus, 409);
    QCOMPARE(f.row(id)->name, u"First"_s);
    f.ask(Requests::updateCampaign(id, named(u"Third"_s), {}));
    QCOMPARE(f.row(id)->name, u"Third"_s);
  }

  void deletingIsArchiving() {
    DemoFixture f;
    const QString id = f.idOf(u"running"_s);
    const auto archivedCount = *f.ask(Requests::listCampaigns(false)).archivedCount;
    f.ask(Requests::deleteCampaign(id, false));
    QVERIFY(!f.row(id));
    QCOMPARE(f.row(id, true)->status.rawValue, u"archived"_s);
    QCOMPARE(f.ask(Requests::listCampaigns(false)).archivedCount, archivedCount + 1);
    QCOMPARE(f.refusalCode(Requests::launchCampaign(id, {true})), u"archived"_s);

    QCOMPARE(f.ask(Requests::restoreCampaign(id)).status.rawValue, u"paused"_s);
    QCOMPARE(f.refusalCode(Requests::restoreCampaign(id)), u"not_archived"_s);
    QVERIFY(f.row(id) && !f.row(id, true));

    f.ask(Requests::deleteCampaign(id, true));
    QVERIFY(!f.row(id) && !f.row(id, true));
    QCOMPARE(f.refusalCode(Requests::getCampaign(id)), u"not_found"_s);
  }

  void theArchiveKeepsThirtyDays() {
    DemoFixture f;
    const QString id = f.idOf(u"draft"_s);
    f.ask(Requests::deleteCampaign(id, false));
    f.clock.advance(24h * 30 - 1s);
    QVERIFY(f.row(id, true));
    f.clock.advance(1s);
    QVERIFY(!f.row(id, true));
    QCOMPARE(f.refusalCode(Requests::restoreCampaign(id)), u"not_found"_s);
  }

  void sendersHaveSentTodayWhatEveryPageSays() {
    DemoFixture f;
    f.clock.advance(24h * 2);  // To a Monday.
    QMap<QString, qint64> sent;
    for (const Mailbox& mailbox : f.ask(Requests::listMailboxes()).items)
      if (!mailbox.isPool()) sent.insert(mailbox.id, mailbox.campaign->sentToday);
    qint64 all = 0;
    for (const CampaignSummary& row : f.ask(Requests::listCampaigns(false)).items) {
      const auto senders = *f.ask(Requests::getCampaign(row.id)).senders;
      for (const CampaignSender& sender : senders) {
        QCOMPARE(sender.sentToday, sent.value(sender.mailboxId));
        QVERIFY(sender.sentToday <= sender.capToday);
        if (row.status.rawValue == "running"_L1) QVERIFY(sender.sentToday > 0);
      }
    }
    for (const qint64 count : std::as_const(sent)) all += count;
    QCOMPARE(f.ask(Requests::dashboard()).sends->campaigns, all);
  }

  void sendersArePickedAmongTheMailboxes() {
    DemoFixture f;
    const QString id = f.idOf(u"draft"_s);
    const auto known = f.ask(Requests::getCampaign(f.idOf(u"running"_s))).senders->first();
    CampaignPatch patch;
    patch.senderMailboxIds = {known.mailboxId};
    QCOMPARE(f.ask(Requests::updateCampaign(id, patch, {})).senders->first(), known);
    QCOMPARE(f.row(id)->senders, 1);
    patch.senderMailboxIds = {u"mb_none"_s};
    QCOMPARE(f.refusalCode(Requests::updateCampaign(id, patch, {})), u"invalid_input"_s);
    QCOMPARE(f.row(id)->senders, 1);
  }

  void sendersJoinByTheirTag() {
    DemoFixture f(1, {0, 450, 0});
    QList<Mailbox> all;
    std::optional<QString> cursor;
    do {
      const MailboxPage page = f.ask(Requests::listMailboxes(false, cursor));
      QVERIFY(page.items.size() <= 200);
      all += page.items;
      cursor = page.nextCursor;
    } while (cursor);
    all.removeIf([](const Mailbox& mailbox) { return mailbox.isPool(); });
    QCOMPARE(all.size(), 450);
    const auto tagged = std::ranges::count_if(
        all, [](const Mailbox& mailbox) { return mailbox.tags.value_or(QList<QString>()).contains(u"dach"_s); });
    const QString id = f.ask(Requests::createCampaign({u"Tagged"_s})).id;
    CampaignPatch patch;
    patch.senderMailboxIds = QList{all.first().id};
    patch.settings.emplace().senderTags = QList{u"dach"_s};
    const auto joined = f.ask(Requests::updateCampaign(id, patch, {}));
    QCOMPARE(joined.senders->size(), tagged + 1);
    QVERIFY(!joined.senders->first().viaTag && joined.senders->last().viaTag);
    patch = {};
    patch.settings.emplace().senderTags = QList<QString>();
    QCOMPARE(f.ask(Requests::updateCampaign(id, patch, {})).senders->size(), 1);
  }

  void optionsThatAreNotNamedStay() {
    DemoFixture f;
    const QString id = f.ask(Requests::createCampaign({u"Limits"_s})).id;
    CampaignPatch patch;
    patch.settings.emplace().dailyLimit = 400;
    patch.settings->prioritizeNew = true;
    f.ask(Requests::updateCampaign(id, patch, {}));
    patch = {};
    patch.settings.emplace().maxNewPerDay = 50;
    QCOMPARE(f.ask(Requests::updateCampaign(id, patch, {})).settings->dailyLimit.value(), std::optional<qint64>(400));
    patch = {};
    patch.settings.emplace().dailyLimit = Clearable<qint64>::cleared();
    const auto cleared = f.ask(Requests::updateCampaign(id, patch, {}));
    QVERIFY(!cleared.settings->dailyLimit.value());
    QCOMPARE(cleared.settings->prioritizeNew, std::optional(true));
  }

  void namesAreNeverEmpty() {
    DemoFixture f;
    QCOMPARE(f.refusalCode(Requests::createCampaign({u" "_s})), u"invalid_input"_s);
    QCOMPARE(f.refusalCode(Requests::updateCampaign(f.idOf(u"draft"_s), named(u" "_s), {})), u"invalid_input"_s);
  }

  void savedStepsKeepTheirIds() {
    DemoFixture f;
    const QString id = f.ask(Requests::createCampaign({u"New"_s})).id;
    const StepIn first{{}, 0, false, {variant(u"A"_s, u"S"_s, u"One"_s)}};
    const auto saved = f.ask(Requests::saveSteps(id, {{first}}));
    StepIn known = first;
    known.id = saved.steps->first().id;
    known.variants.first().id = saved.steps->first().variants.first().id;
    const auto again = f.ask(Requests::saveSteps(id, {{first, known}}));
    QCOMPARE(again.steps->at(1).id, known.id);
    QCOMPARE(again.steps->at(1).position, 2);
    QVERIFY(again.steps->at(0).id != known.id);
    QCOMPARE(*again.version, *saved.version + 1);
    QCOMPARE(f.row(id)->steps, 2);
    QCOMPARE(f.refusalCode(Requests::saveSteps(id, {{StepIn{}}})), u"invalid_input"_s);
  }

  void aPreviewIsWhatTheLeadWouldGet() {
    DemoFixture f;
    const QString id = f.ask(Requests::createCampaign({u"New"_s})).id;
    f.add(id, u"ida@b.example"_s, {{u"firstName"_s, u"Ida"_s}, {u"city"_s, u"Riga"_s}});
    const StepIn step{{},
                      0,
                      false,
                      {variant(u"A"_s, u"{{city}}"_s, u"{Hi|Hello} {{firstName}} of {{company}}"_s, 0),
                       variant(u"B"_s, {}, u"{Hi {{firstName}}|Hi {{ firstName }}}"_s, 100)}};
    const auto preview = f.ask(Requests::previewCampaign(id, {{}, QList{step}}));
    QCOMPARE(preview.lead->email, u"ida@b.example"_s);
    const auto& variants = preview.steps.first().variants;
    QCOMPARE(variants[0].subject, u"Riga"_s);
    QVERIFY(variants[0].body == u"Hi Ida of "_s || variants[0].body == u"Hello Ida of "_s);
    QCOMPARE(variants[0].warnings, QStringList{u"No value for {{company}}."_s});
    QCOMPARE(variants[1].body, u"Hi Ida"_s);
    QCOMPARE(variants[1].warnings, QStringList{u"The subject is empty."_s});
    QVERIFY(!variants[0].picked && variants[1].picked);
    QCOMPARE(f.ask(Requests::previewCampaign(id, {{}, QList{step}})), preview);
    QCOMPARE(f.refusalCode(Requests::previewCampaign(id, {u"l_none"_s, {}})), u"not_found"_s);
  }

  void aCheckTellsWhatIsMissing() {
    DemoFixture f;
    const QString id = f.ask(Requests::createCampaign({u"New"_s})).id;
    auto qc = f.ask(Requests::checkCampaign(id));
    for (const auto& key : {u"steps"_s, u"senders"_s, u"leads"_s}) QCOMPARE(find(qc, key).status, u"fail"_s);
    QVERIFY(!qc.passed);
    QCOMPARE(f.refusalCode(Requests::launchCampaign(id, {true})), u"not_ready"_s);

    CampaignPatch patch;
    patch.senderMailboxIds = {f.ask(Requests::getCampaign(f.idOf(u"running"_s))).senders->first().mailboxId};
    f.ask(Requests::updateCampaign(id, patch, {}));
    f.ask(Requests::saveSteps(id, {{{{}, 0, false, {variant(u"A"_s, u"S"_s, u"For {{company}}"_s)}}}}));
    f.add(id, u"ida@b.example"_s);
    QVERIFY(!f.ask(Requests::getCampaign(id)).qc->current);
    qc = f.ask(Requests::checkCampaign(id));
    QVERIFY(qc.passed && qc.current);
    QCOMPARE(find(qc, u"variables"_s).status, u"warn"_s);
    QCOMPARE(find(qc, u"variables"_s).items, QList<QString>{u"company"_s});
    QCOMPARE(*qc.external, (Qc::External{1, {u"ida@b.example"_s}}));
    QCOMPARE(f.ask(Requests::updateCampaign(id, named(u"Newer"_s), {})).qc->current, false);

    QCOMPARE(f.refusalCode(Requests::launchCampaign(id, {false})), u"external_unconfirmed"_s);
    QCOMPARE(f.row(id)->status.rawValue, u"draft"_s);
    QVERIFY(f.launch(id).launchedAt);
    QCOMPARE(f.leads(id).first().status.rawValue, u"active"_s);
  }

  void stepsAddUpToTheCampaign() {
    DemoFixture f;
    const QString id = f.idOf(u"running"_s);
    const Campaign campaign = f.ask(Requests::getCampaign(id));
    const auto& stats = *campaign.stats;
    Stats4 sum;
    for (const CampaignStep& step : *campaign.steps) {
      sum.sent += step.stats->sent;
      sum.replied += step.stats->replied;
      sum.positive += step.stats->positive;
      sum.bounced += step.stats->bounced;
    }
    QCOMPARE(sum, (Stats4{stats.sent, stats.replied, stats.positive, stats.bounced}));
    const auto booked = [](const CampaignLead& lead) { return lead.nextSendAt && lead.status.rawValue == "active"_L1; };
    const auto leads = f.leads(id);
    QCOMPARE(f.ask(Requests::getCampaign(id)).stats->scheduled, std::ranges::count_if(leads, booked));
    QVERIFY2(stats.scheduled == std::ranges::count_if(leads, booked), "to look at the leads changes nothing");

    // Saved in another order, with one email more, each keeps what it did.
    const QList<VariantIn> text{{{}, u"A"_s, u"New"_s, u"B"_s, 100, true}};
    QList<StepIn> steps{{{}, 0, false, text}};
    for (const CampaignStep& step : *campaign.steps) steps.insert(1, {step.id, 0, false, text});
    const auto saved = *f.ask(Requests::saveSteps(id, {steps})).steps;
    QVERIFY(!saved.first().stats);
    QCOMPARE(saved.last().stats, campaign.steps->first().stats);
    QCOMPARE(f.ask(Requests::pauseCampaign(id)).stats->scheduled, 0);
  }

  void aTestEmailIsOnItsWayForAMoment() {
    DemoFixture f;
    const QString id = f.idOf(u"running"_s);
    const auto send = [&](const QString& to) {
      return f.ask(Requests::sendTestEmail(id, {to, {}, {}, 1, {}, u"For {{company}}"_s, u"B"_s}));
    };
    const auto test = send(u"me@b.example"_s), refused = send(u"bounce@b.example"_s);
    QCOMPARE(test.state, u"queued"_s);
    QVERIFY(!test.subject->contains(u'{'));
    QCOMPARE(f.ask(Requests::testEmailState(test.id)), test);
    f.clock.advance(2s);
    QCOMPARE(f.ask(Requests::testEmailState(test.id)).state, u"sent"_s);
    QCOMPARE(f.ask(Requests::testEmailState(refused.id)).state, u"failed"_s);
    QVERIFY(f.ask(Requests::testEmailState(refused.id)).error);
    QCOMPARE(f.refusalCode(Requests::sendTestEmail(id, {u"me@b.example"_s, {}, {}, 99, {}, {}, {}})),
             u"invalid_input"_s);
  }

  void spintax_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("spun");
    QTest::newRow("a phrase") << u"Hi {{firstName}}"_s << u"{Hi|Hello|Hey} {{firstName}}"_s;
    QTest::newRow("spun already") << u"{Hi|Hello} there"_s << u"{Hi|Hello} there"_s;
    QTest::newRow("inside a word") << u"History, {{Hi}}"_s << u"History, {{Hi}}"_s;
    QTest::newRow("a lone brace") << u"{ Thanks"_s << u"{ {Thanks|Thank you|Many thanks}"_s;
  }
  void spintax() {
    QFETCH(QString, text);
    QFETCH(QString, spun);
    DemoFixture f;
    QCOMPARE(f.ask(Requests::spinText({text, u"body"_s})).text, spun);
  }

  void subsequencesHangOnTheirParent() {
    DemoFixture f;
    const QString id = f.idOf(u"running"_s);
    const auto parent = f.ask(Requests::getCampaign(id));
    const auto made = f.ask(Requests::createSubsequence(id, {u"Interested"_s, {{u"interested"_s}}}));
    QCOMPARE(made.parent->id, id);
    QCOMPARE(made.senders, parent.senders);
    QCOMPARE(made.steps->size(), 1);
    QVERIFY(made.steps->first().sameThread);
    QVERIFY(!f.row(made.id));
    const auto listed = f.ask(Requests::listSubsequences(id)).items;
    QCOMPARE(listed.size(), 1);
    QCOMPARE(listed.first().trigger, made.trigger);
    f.ask(Requests::updateCampaign(made.id, named(u"Warm"_s), made.version));
    QCOMPARE(f.ask(Requests::listSubsequences(id)).items.first().name, u"Warm"_s);
    QCOMPARE(f.refusalCode(Requests::createSubsequence(id, {u"None"_s, {}})), u"invalid_input"_s);
    f.ask(Requests::deleteCampaign(made.id, false));
    QVERIFY(f.ask(Requests::listSubsequences(id)).items.isEmpty());
    QVERIFY(f.row(made.id, true));
  }
};

QTEST_GUILESS_MAIN(DemoCampaignsTest)
#include "campaigns_test.moc"
