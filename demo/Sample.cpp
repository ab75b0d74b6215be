#include <array>

#include "demo/DailyFigures.h"
#include "demo/DemoState.h"
#include "demo/Enrolment.h"
#include "demo/Inbox.h"
#include "demo/LeadSample.h"
#include "demo/MailboxSample.h"
#include "demo/Mailboxes.h"
#include "demo/Pitches.h"
#include "demo/Roadmaps.h"
#include "demo/SetupRuns.h"
#include "demo/Words.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignSchedule.h"
#include "kit/models/campaigns/campaignSender.h"
#include "kit/models/campaigns/campaignStats.h"
#include "kit/models/campaigns/campaignStatus.h"
#include "kit/models/campaigns/campaignSummary.h"
#include "kit/models/campaigns/sequence.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

struct Row {
  QString name;
  QStringList tags;
  const char* status;
  qint64 steps, senders, done, leads, sent, replied, positive, bounced;
  /// Days before today that it was launched, or created when it never was.
  int daysAgo;
};

const QList<Row>& northgateRows() {
  static const QList<Row> rows{
      {u"Fleet maintenance, Benelux"_s, {u"fleet"_s, u"q4"_s}, "running", 4, 12, 1284, 3000, 4212, 118, 41, 31, 27},
      {u"Clinic schedulers, Nordics"_s, {u"health"_s}, "running", 3, 8, 611, 1450, 1530, 52, 19, 9, 15},
      {u"Property managers, Iberia"_s, {u"property"_s}, "running", 4, 10, 196, 2200, 904, 26, 11, 6, 19},
      {u"Insurance brokers, DACH"_s, {u"finance"_s, u"q4"_s}, "running", 5, 16, 2406, 2600, 8931, 231, 64, 142, 31},
      {u"Warehouse operators, UK"_s, {u"logistics"_s}, "paused", 4, 6, 402, 900, 1120, 21, 5, 38, 24},
      {u"Food wholesalers, follow-up"_s, {u"retail"_s}, "paused", 2, 4, 310, 640, 587, 17, 6, 4, 38},
      {u"Boutique hotels, winter"_s, {u"travel"_s}, "draft", 3, 0, 0, 0, 0, 0, 0, 0, 2},
      {u"Freight forwarders, Baltics"_s, {u"logistics"_s}, "draft", 4, 5, 0, 420, 0, 0, 0, 0, 1},
      {u"Payroll switchers, Ireland"_s, {u"finance"_s}, "completed", 4, 8, 1800, 1800, 6044, 196, 58, 49, 80},
      {u"Solar installers, Q3"_s, {u"energy"_s}, "completed", 5, 9, 1200, 1200, 5120, 101, 22, 71, 95},
  };
  return rows;
}

const QList<Row>& northgateArchive() {
  static const QList<Row> rows{
      {u"Gyms, spring trial"_s, {u"retail"_s}, "paused", 3, 4, 250, 250, 710, 12, 2, 9, 150},
      {u"Dentists, Vienna"_s, {u"health"_s}, "draft", 2, 0, 0, 0, 0, 0, 0, 0, 33},
      {u"Recruiters, test"_s, {}, "draft", 1, 1, 0, 10, 0, 0, 0, 0, 41},
      {u"Accountants, Lisbon"_s, {u"finance"_s}, "completed", 4, 6, 800, 800, 2410, 66, 20, 12, 200},
      {u"Bakeries, DACH"_s, {u"retail"_s}, "paused", 3, 3, 120, 400, 390, 7, 1, 22, 90},
      {u"Schools, Q2"_s, {u"education"_s}, "completed", 3, 5, 600, 600, 1640, 30, 8, 10, 160},
  };
  return rows;
}

QString instant(const QDate& today, int daysAgo, int hour = 9) {
  return formatPlatformDate(QDateTime(today.addDays(-daysAgo), QTime(hour, 0), Qt::UTC));
}

LeadCounts countsOf(const Row& row) {
  LeadCounts counts;
  counts.total = row.leads;
  counts.completed = row.done - std::min(row.done, row.replied + row.bounced);
  counts.replied = std::min(row.done, row.replied);
  counts.bounced = row.done - counts.completed - counts.replied;
  const qint64 open = row.leads - row.done;
  const QByteArray status = row.status;
  (status == "running" ? counts.active : status == "paused" ? counts.paused : counts.queued) = open;
  return counts;
}

/// Every email of the sequence has its part of what the campaign did; the later ones reach fewer people.
void shareAmong(QList<CampaignStep>& steps, const CampaignStats& stats) {
  const qint64 count = steps.size(), whole = count * (count + 1) / 2;
  qint64 before = 0;
  for (CampaignStep& step : steps) {
    const qint64 until = before + count + 1 - step.position;
    const auto part = [&](qint64 total) { return total * until / whole - total * before / whole; };
    step.stats = Stats4{part(stats.sent), part(stats.replied), part(stats.positive), part(stats.bounced)};
    const qint64 variants = step.variants.size();
    for (qint64 at = 0; at < variants; ++at) {
      const auto half = [&](qint64 all) { return all * (at + 1) / variants - all * at / variants; };
      step.variants[at].stats = Stats4{half(step.stats->sent), half(step.stats->replied), half(step.stats->positive),
                                       half(step.stats->bounced)};
    }
    before = until;
  }
}

/// The mailboxes after those of the campaign before: what is sent at the same time comes out of different ones.
QList<CampaignSender> nextSenders(const DemoWorkspace& workspace, qint64 count, const QDate& today) {
  const auto& mailboxes = workspace.mailboxes;
  qint64 next = 0;
  for (qsizetype last = workspace.campaigns.size(); next == 0 && last-- > 0;)
    if (const auto& senders = workspace.campaigns[last].senders(); !senders.isEmpty())
      next = 1 + std::ranges::find(mailboxes, senders.last().mailboxId, &DemoMailbox::id) - mailboxes.begin();
  QList<CampaignSender> senders;
  for (qint64 i = 0; i < std::min<qint64>(count, mailboxes.size()); ++i)
    senders.append(senderOf(mailboxes[(next + i) % mailboxes.size()], today.startOfDay(Qt::UTC)));
  return senders;
}

DemoCampaign makeCampaign(const Row& row, DemoWorkspace& workspace, DemoRandom& random, const QDate& today) {
  DemoCampaign campaign;
  campaign.seed = random.next();
  Campaign& record = campaign.record;
  record.id = random.id(u"c"_s);
  record.number = ++workspace.lastNumber;
  record.name = row.name;
  record.status = CampaignStatus(QString::fromLatin1(row.status));
  record.tags = row.tags;
  record.version = 1;
  record.stopOnReply = true;
  record.dailyCapPerInbox = mostSentADay;
  record.gapSeconds = 600;
  record.schedule =
      CampaignSchedule{{}, {}, {{u"Working hours"_s, {1, 2, 3, 4, 5}, u"09:00"_s, u"17:00"_s, workspace.timeZone}}};
  record.steps = stepsFor(pitchOf(row.name), row.steps, random);
  record.senders = nextSenders(workspace, row.senders, today);
  const bool launched = QByteArrayView(row.status) != "draft";
  record.createdAt = instant(today, row.daysAgo + (launched ? 3 : 0));
  if (launched) record.launchedAt = instant(today, row.daysAgo);
  const int stoppedDaysAgo = std::max(1, row.daysAgo / 4), stoppedAt = 16;
  if (record.status.isPaused()) record.pausedAt = instant(today, stoppedDaysAgo, stoppedAt);
  if (record.status.isCompleted()) record.completedAt = instant(today, stoppedDaysAgo, stoppedAt);
  CampaignStats stats;
  stats.leads = countsOf(row);
  stats.sent = row.sent;
  stats.bounced = row.bounced;
  stats.delivered = row.sent - row.bounced;
  stats.replied = row.replied;
  stats.positive = row.positive;
  stats.scheduled = bookedBefore(stats.leads, record.steps->size());
  record.stats = stats;
  shareAmong(*record.steps, stats);
  return campaign;
}

Row randomRow(DemoRandom& random) {
  static constexpr std::array statuses{"running", "paused", "draft", "completed"};
  Row row{};
  row.name = random.pick(words::industries()) + u", "_s + random.pick(words::regions()) + u' ' +
             QString::number(random.between(1, 99));
  row.status = random.pick(statuses);
  row.tags = {random.pick(words::regions()).toLower()};
  row.steps = random.between(1, 6);
  row.senders = random.between(1, 12);
  row.daysAgo = int(random.between(1, 300));
  row.leads = random.between(0, 3000);
  const QByteArrayView status = row.status;
  if (status == "draft" || row.leads == 0) return row;
  row.done = status == "completed" ? row.leads : random.below(row.leads);
  row.sent = row.done * row.steps + random.below(row.leads - row.done + 1);
  row.replied = random.below(row.done / 20 + 1);
  row.positive = random.below(row.replied + 1);
  row.bounced = random.below(row.sent / 40 + 1);
  return row;
}

void addRandomCampaigns(DemoWorkspace& workspace, qint64 count, DemoRandom& random, const QDate& today) {
  for (qint64 i = 0; i < count; ++i)
    workspace.campaigns.append(makeCampaign(randomRow(random), workspace, random, today));
}

DemoWorkspace makeWorkspace(const QString& slug, const QString& name, const QString& timeZone,
                            const QMap<QString, QString>& members, const QDate& today,
                            const std::shared_ptr<const LeadBase>& base) {
  DemoWorkspace workspace;
  workspace.leads.base = base;
  addCredits(workspace);
  workspace.id = u"w_"_s + slug;
  workspace.slug = slug;
  workspace.name = name;
  workspace.timeZone = timeZone;
  workspace.members = members;
  workspace.templates = firstTemplates(today);
  return workspace;
}

}  // namespace

DemoState makeSample(quint64 seed, const DemoScale& scale, const QDate& today) {
  DemoRandom random(seed);
  DemoState state;
  const QString maren = u"maren@northgate.example"_s, tomas = u"tomas@northgate.example"_s;
  state.accounts.insert(maren, {{u"u_maren"_s, maren, u"Maren Kolbe"_s, {}, {}}, u"northgate-demo"_s, u"northgate"_s});
  state.accounts.insert(tomas, {{u"u_tomas"_s, tomas, u"Tomas Lind"_s, {}, {}}, {}, {}});

  // Everybody searches the same one.
  const auto base = std::make_shared<LeadBase>(seed, scale.database, today);
  auto northgate = makeWorkspace(u"northgate"_s, u"Northgate Growth"_s, u"Europe/Berlin"_s,
                                 {{maren, u"owner"_s}, {tomas, u"member"_s}}, today, base);
  addMailboxes(northgate, std::max(54, scale.mailboxes), random, today);
  for (Row row : northgateRows()) {
    if (northgate.campaigns.isEmpty()) row.leads = std::max<qint64>(row.leads, scale.leads);
    northgate.campaigns.append(makeCampaign(row, northgate, random, today));
  }
  addTeam(state, northgate, today);
  int day = 4;
  for (const Row& row : northgateArchive()) {
    auto campaign = makeCampaign(row, northgate, random, today);
    campaign.archivedAt = instant(today, day += 3, 15);
    northgate.campaigns.append(campaign);
  }
  addRandomCampaigns(northgate, scale.campaigns - northgateRows().size(), random, today);
  addLeads(northgate, random, today);
  addArchivedMailboxes(northgate, 2, random, today);
  addSetup(northgate, today);

  auto caldera =
      makeWorkspace(u"caldera"_s, u"Caldera Studio"_s, u"Europe/Lisbon"_s, {{maren, u"admin"_s}}, today, base);
  caldera.watcherActs = false;
  addMailboxes(caldera, 4, random, today);
  addRandomCampaigns(caldera, 3, random, today);
  auto harbour = makeWorkspace(u"harbour"_s, u"Harbour Clients"_s, u"UTC"_s, {{maren, u"viewer"_s}}, today, base);
  harbour.watcherScanned = false;
  addMailboxes(harbour, 6, random, today);
  addRandomCampaigns(harbour, 2, random, today);
  state.workspaces = {northgate, caldera, harbour,
                      makeWorkspace(u"fresh"_s, u"Fresh Start"_s, u"UTC"_s, {{maren, u"owner"_s}}, today, base)};
  for (DemoWorkspace& workspace : state.workspaces) {
    const bool isFirst = &workspace == &state.workspaces.first();
    addInbox(workspace, isFirst ? std::max(64, scale.threads) : 12, DemoRandom(seed ^ 0x1b0c5), today);
  }
  return state;
}

}  // namespace orv::demo
