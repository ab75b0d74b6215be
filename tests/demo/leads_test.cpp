#include <QTest>
#include <QTimeZone>

#include "kit/api/PlatformDate.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/campaigns/campaignFeed.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/campaignStats.h"
#include "kit/models/campaigns/leadChanges.h"
#include "kit/models/campaigns/leadStatus.h"
#include "kit/models/campaigns/sentMessage.h"
#include "kit/models/leads/leadIds.h"
#include "kit/models/leads/leadRequests.h"
#include "kit/models/leads/ownLeads.h"
#include "tests/demo/DemoFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

QStringList idsOf(const QList<CampaignLead>& leads) {
  QStringList ids;
  for (const CampaignLead& lead : leads) ids.append(lead.id);
  return ids;
}

}  // namespace

class DemoLeadsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<DemoFixture> f;
  QString id;

  /// What the page, the campaign and the list say of the leads is the same, and is what the leads are.
  void verifyCounts(const QString& campaign) {
    const auto leads = f->leads(campaign);
    QMap<QString, qint64> counted;
    for (const CampaignLead& lead : leads) ++counted[lead.status.rawValue];
    QCOMPARE(*f->ask(Requests::listLeads(campaign, {1, {}, false, {}})).counts, counted);
    const LeadCounts counts = f->ask(Requests::getCampaign(campaign)).stats->leads;
    QCOMPARE(counts.total, leads.size());
    const LeadCounts expected{leads.size(),          counted[u"queued"_s],       counted[u"active"_s],
                              counted[u"paused"_s],  counted[u"completed"_s],    counted[u"replied"_s],
                              counted[u"bounced"_s], counted[u"unsubscribed"_s], counted[u"stopped"_s]};
    QCOMPARE(counts, expected);
    if (const auto row = f->row(campaign)) QCOMPARE(row->leads, leads.size());
  }
  QString firstOf(const QString& status) {
    return f->ask(Requests::listLeads(id, {1, LeadStatus(status), false, {}})).items.first().id;
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<DemoFixture>();
    id = f->idOf(u"running"_s);
  }

  void theLeadsAreWhatTheFiguresSay() {
    for (const auto& status : {u"running"_s, u"paused"_s, u"draft"_s, u"completed"_s}) verifyCounts(f->idOf(status));
    QSet<QString> addresses;
    const auto leads = f->leads(id);
    for (const CampaignLead& lead : leads) addresses.insert(lead.email);
    QCOMPARE(addresses.size(), leads.size());
  }

  void pagesWalkTheListOnce_data() {
    QTest::addColumn<qint64>("limit");
    QTest::addColumn<QString>("status");
    for (const qint64 limit : {1, 7, 50, 500}) QTest::addRow("replied, %d", int(limit)) << limit << u"replied"_s;
    QTest::newRow("all") << qint64(499) << QString();
    QTest::newRow("more than the service gives") << qint64(100'000) << QString();
    QTest::newRow("a status nobody has") << qint64(10) << u"unsubscribed"_s;
  }
  void pagesWalkTheListOnce() {
    QFETCH(qint64, limit);
    QFETCH(QString, status);
    id = f->idOf(u"paused"_s);
    const auto wanted = status.isEmpty() ? std::nullopt : std::optional(LeadStatus(status));
    QStringList expected;
    for (const CampaignLead& lead : f->leads(id))
      if (status.isEmpty() || lead.status.rawValue == status) expected.append(lead.id);
    QCOMPARE(idsOf(f->leads(id, {limit, wanted, false, {}})), expected);
  }

  void aPageIsNotShiftedByWhatHappensBetween() {
    const auto before = idsOf(f->leads(id));
    const auto page = f->ask(Requests::listLeads(id, {10, {}, false, {}}));
    f->ask(Requests::removeLead(id, before[3], false));
    f->ask(Requests::removeLead(id, before[9], false));
    f->add(id, u"new@b.example"_s);
    const auto rest = idsOf(f->leads(id, {500, {}, false, page.nextCursor}));
    QCOMPARE(rest.first(rest.size() - 1), before.mid(10));
    QCOMPARE(f->refusalCode(Requests::listLeads(id, {10, {}, false, u"l_none"_s})), u"invalid_input"_s);
  }

  void theFeedWalksOnceAndStaysInOrder() {
    id = f->idOf(u"paused"_s);
    QList<FeedItem> all;
    std::optional<QString> cursor;
    const auto leads = f->leads(id);
    do {
      const auto page = f->ask(Requests::campaignActivity(id, 250, cursor));
      all += page.items;
      // What happens now is newer than every page still to come.
      if (!cursor) f->add(id, u"between@b.example"_s);
      cursor = page.nextCursor;
    } while (cursor);
    QVERIFY(std::ranges::is_sorted(all, std::ranges::greater(), &FeedItem::at));
    qint64 sent = 0;
    for (const CampaignLead& lead : leads) sent += lead.currentStep.value_or(0);
    QCOMPARE(std::ranges::count(all, u"sent"_s, &FeedItem::kind), sent);
    QCOMPARE(f->ask(Requests::campaignActivity(id, 1, {})).items.first().kind, u"added"_s);
    QCOMPARE(f->refusalCode(Requests::campaignActivity(id, 1, u"-1"_s)), u"invalid_input"_s);
  }

  void aLeadsStoryIsWhole() {
    const auto detail = f->ask(Requests::leadDetail(id, firstOf(u"replied"_s)));
    QCOMPARE(detail.activity.first().kind, u"replied"_s);
    QCOMPARE(detail.activity.first().at, *detail.lead.repliedAt);
    QCOMPARE(detail.activity.size(), *detail.lead.currentStep + 1);
    QVERIFY(!detail.next);
  }

  void messagesAreThoseSentAndThenThoseToCome() {
    const auto messages = f->ask(Requests::campaignMessages(id)).items;
    QCOMPARE(messages.size(), 100);
    const auto booked = std::ranges::find(messages, u"scheduled"_s, &SentMessage::state);
    const QString now = formatPlatformDate(f->clock.now());
    const auto at = [](const SentMessage& message) { return message.sentAt.value_or(*message.scheduledAt); };
    QVERIFY(booked - messages.begin() >= 50 && messages.end() - booked >= 10);
    QVERIFY(std::ranges::is_sorted(messages.begin(), booked, std::ranges::greater(), at));
    QVERIFY(std::ranges::is_sorted(booked, messages.end(), {}, at));
    QVERIFY(at(messages.first()) <= now && at(*booked) > now);
    // What was sent is the same to the campaign's feed and to its lead.
    const auto detail = f->ask(Requests::leadDetail(id, *messages.first().leadId));
    const auto sent = std::ranges::find(detail.activity, messages.first().id, &LeadActivity::messageId);
    QVERIFY(sent != detail.activity.end());
    QCOMPARE(sent->subject, messages.first().subject);
    QCOMPARE(sent->at, messages.first().sentAt);
  }

  void emailsGoOutInTheHoursAndSpreadOverThem() {
    id = f->idOf(u"paused"_s);
    const QTimeZone zone("Europe/Berlin");
    const QDateTime now = f->clock.now();
    QHash<QDate, int> byDay;
    const auto verify = [&](const std::optional<QString>& at) {
      const QDateTime local = parsePlatformDate(at)->toTimeZone(zone);
      const bool isOpen = local.date().dayOfWeek() < 6 && local.time() >= QTime(9, 0) && local.time() <= QTime(17, 0);
      QVERIFY2(isOpen, qPrintable(local.toString(Qt::ISODate)));
      if (local <= now) ++byDay[local.date()];
    };
    std::optional<QString> cursor;
    qint64 sent = 0;
    do {
      const auto page = f->ask(Requests::campaignActivity(id, 500, cursor));
      for (const FeedItem& item : page.items) {
        if (item.kind != "sent"_L1) continue;
        verify(item.at);
        ++sent;
      }
      cursor = page.nextCursor;
    } while (cursor);
    for (const SentMessage& message : f->ask(Requests::campaignMessages(id)).items)
      if (message.state == "scheduled"_L1) verify(message.scheduledAt);
    const int most = *std::ranges::max_element(byDay);
    QVERIFY2(most < sent / 6, qPrintable(u"%1 of %2 on one day"_s.arg(most).arg(sent)));
  }

  void subjectsReadAsTheirLeadsDo() {
    const auto steps = *f->ask(Requests::getCampaign(id)).steps;
    QVERIFY(steps.size() > 1 && steps[1].sameThread && !steps.last().sameThread);
    const auto feed = f->ask(Requests::campaignActivity(id, 500, {})).items;
    QSet<QString> kinds;
    for (const FeedItem& item : feed) {
      const auto lead = f->ask(Requests::leadDetail(id, item.lead->id)).lead;
      const qint64 position = item.step.value_or(*lead.currentStep);
      qint64 opening = position;
      while (steps[opening - 1].sameThread) --opening;
      QStringList subjects;
      for (const CampaignVariant& variant : steps[opening - 1].variants)
        subjects.append(QString(variant.subject).replace(u"{{company}}"_s, *lead.company));
      const bool isReply = item.kind == "replied"_L1 || opening < position;
      QCOMPARE(item.subject->startsWith("Re: "_L1), isReply);
      QVERIFY2(subjects.contains(item.subject->mid(isReply ? 4 : 0)), qPrintable(*item.subject));
      kinds.insert(item.kind);
      if (kinds.size() == 3) break;
    }
    QVERIFY(kinds.contains(u"sent"_s) && kinds.contains(u"replied"_s));
  }

  void addedByHand() {
    const auto total = f->row(id)->leads;
    const auto result = f->add(id, u" Ida@B.Example "_s, {{u"firstName"_s, u"Ida"_s}, {u"city"_s, u"Riga"_s}});
    QCOMPARE(result.added, 1);
    QCOMPARE(result.total, total + 1);
    const auto lead = f->leads(id).last();
    QCOMPARE(lead.email, u"ida@b.example"_s);
    QCOMPARE(lead.firstName, u"Ida"_s);
    QCOMPARE(lead.data->value(u"city"_s), JSONValue::string(u"Riga"_s));
    QCOMPARE(lead.status.rawValue, u"active"_s);
    QCOMPARE(f->add(id, u"ida@b.example"_s).skipped.alreadyInCampaign, 1);
    QCOMPARE(f->add(id, u"nobody"_s).skipped.invalid, 1);
    verifyCounts(id);

    const QString draft = f->idOf(u"draft"_s);
    QCOMPARE(f->add(draft, u"ida@b.example"_s, {}, u"workspace"_s).skipped.inOtherCampaign, 1);
    QCOMPARE(f->add(draft, u"ida@b.example"_s).added, 1);
    QCOMPARE(f->leads(draft).last().status.rawValue, u"queued"_s);
  }

  void addedFromAFile() {
    const AddLeadsBody::Csv csv{
        u"email,firstName,\"Their, note\"\r\n"
        "a@b.example,\"Ann \"\"A\"\"\",\"two\nlines\"\n"
        "A@B.example,Again,\n\nbroken,,\nc@b.example"_s,
        u"fair.csv"_s,
        {}};
    const auto result = f->ask(Requests::addLeads(id, {csv}));
    QCOMPARE(result.columns, (QList<QString>{u"email"_s, u"firstName"_s, u"Their, note"_s}));
    QCOMPARE(result.added, 2);
    QCOMPARE(result.skipped.duplicateInFile, 1);
    QCOMPARE(result.skipped.invalid, 1);
    const auto leads = f->leads(id);
    const CampaignLead& ann = leads[leads.size() - 2];
    QCOMPARE(ann.firstName, u"Ann \"A\""_s);
    QCOMPARE(ann.data->value(u"Their, note"_s), JSONValue::string(u"two\nlines"_s));
    QCOMPARE(ann.source, u"fair.csv"_s);
    verifyCounts(id);
  }

  void addedFromAListOrFromOtherCampaigns() {
    const auto result = f->ask(Requests::addLeads(id, {AddLeadsBody::List{u"li_fair"_s, {}}}));
    QCOMPARE(result.added, 39);
    QCOMPARE(result.skipped.suppressed, 1);
    QCOMPARE(f->ask(Requests::addLeads(id, {AddLeadsBody::List{u"li_fair"_s, {}}})).skipped.alreadyInCampaign, 39);
    QCOMPARE(f->refusalCode(Requests::addLeads(id, {AddLeadsBody::List{u"li_none"_s, {}}})), u"invalid_input"_s);

    const QString draft = f->idOf(u"draft"_s), replied = firstOf(u"replied"_s);
    const auto from = [&](bool allow) {
      return f->ask(Requests::addLeads(draft, {AddLeadsBody::Leads{{replied}, allow}}));
    };
    QCOMPARE(from(false).skipped.inOtherCampaign, 1);
    QCOMPARE(from(true).added, 1);
    QVERIFY(!f->leads(draft).last().repliedAt);
    verifyCounts(id);
    verifyCounts(draft);
  }

  void editedDataIsInTheNextPreview() {
    const QString lead = firstOf(u"active"_s);
    const auto edited = f->ask(Requests::editLeadData(id, lead, {{{u"company"_s, u"Kraft"_s}, {u"city"_s, u"Ulm"_s}}}));
    QCOMPARE(edited.company, u"Kraft"_s);
    QCOMPARE(f->ask(Requests::leadDetail(id, lead)).lead, edited);
    const auto written = f->ask(Requests::previewCampaign(id, {lead, {}})).steps.first().variants.first();
    QVERIFY2((written.subject + written.body).contains(u"Kraft"_s), qPrintable(written.body));
    QCOMPARE(f->refusalCode(Requests::editLeadData(id, lead, {{{u"email"_s, u"x@y.example"_s}}})), u"invalid_input"_s);
  }

  void removedLeadsWaitThirtyDays() {
    const auto ids = idsOf(f->leads(id)).first(3);
    for (const QString& lead : ids) f->ask(Requests::removeLead(id, lead, false));
    verifyCounts(id);
    QCOMPARE(idsOf(f->leads(id, {10, {}, true, {}})), ids);
    QCOMPARE(f->ask(Requests::restoreLeads(id, {{ids[0], u"l_none"_s}})).restored, 1);
    QCOMPARE(f->ask(Requests::restoreLeads(id, {{ids[0]}})).restored, 0);
    QVERIFY(idsOf(f->leads(id)).contains(ids[0]));
    f->ask(Requests::removeLead(id, ids[1], true));
    QCOMPARE(f->refusalCode(Requests::leadDetail(id, ids[1])), u"not_found"_s);
    f->clock.advance(24h * 30);
    f->session = f->service.signInDirectly();
    QCOMPARE(*f->ask(Requests::listLeads(id, {1, {}, false, {}})).archivedCount, 0);
    QCOMPARE(f->ask(Requests::restoreLeads(id, {{ids[2]}})).restored, 0);
    verifyCounts(id);
  }

  void movedLeadsAreInOnePlace() {
    const QString target = f->idOf(u"paused"_s);
    const auto ids = idsOf(f->leads(id)).first(2);
    const auto there = f->leads(target).size();
    QCOMPARE(f->ask(Requests::moveLeads(id, {{ids[0], ids[1], u"l_none"_s}, target})), (MoveResult{2, 1}));
    QVERIFY(!idsOf(f->leads(id)).contains(ids[0]));
    QCOMPARE(idsOf(f->leads(target)).mid(there), ids);
    QCOMPARE(f->leads(target).last().status.rawValue, u"paused"_s);
    verifyCounts(id);
    verifyCounts(target);
    QCOMPARE(f->refusalCode(Requests::moveLeads(id, {{ids[0]}, id})), u"invalid_input"_s);
  }

  void leadsOfTheWorkspaceAreItsOwn() {
    const auto all = f->ask(Requests::ownLeads({})).ids;
    QCOMPARE(f->ask(Requests::ownLeads({.limit = 3})).ids, all.first(3));
    QCOMPARE(f->ask(Requests::ownLeads({.leadIds = QList{all[4], u"l_none"_s}})).ids, QStringList{all[4]});

    // The newest of them is on the block list.
    const auto before = f->leads(id).size();
    const AddLeadsBody body{AddLeadsBody::Leads{all.mid(1, 3), true}};
    QCOMPARE(f->ask(Requests::addLeads(id, body)).added, 3);
    QCOMPARE(f->ask(Requests::addLeads(id, body)).skipped.alreadyInCampaign, 3);
    QCOMPARE(f->leads(id).size(), before + 3);
    verifyCounts(id);
  }

  void actionsOnManyCountWhatTheyChanged() {
    const QStringList ids{firstOf(u"active"_s), firstOf(u"replied"_s), u"l_none"_s};
    const auto bulk = [&](const QString& action) { return f->ask(Requests::bulkLeads(id, {action, ids})); };
    QCOMPARE(bulk(u"pause"_s), (BulkResult{1, 2}));
    QCOMPARE(bulk(u"pause"_s), (BulkResult{0, 3}));
    QCOMPARE(bulk(u"resume"_s), (BulkResult{1, 2}));
    QCOMPARE(bulk(u"stop"_s), (BulkResult{1, 2}));
    QCOMPARE(f->ask(Requests::leadDetail(id, ids[0])).lead.status.rawValue, u"stopped"_s);
    verifyCounts(id);
    QCOMPARE(bulk(u"remove"_s), (BulkResult{2, 1}));
    verifyCounts(id);
    QCOMPARE(f->refusalCode(Requests::bulkLeads(id, {u"explode"_s, ids})), u"invalid_input"_s);
  }
};

QTEST_GUILESS_MAIN(DemoLeadsTest)
#include "leads_test.moc"
