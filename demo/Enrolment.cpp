#include "demo/Enrolment.h"

#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>

#include "demo/Pitches.h"
#include "demo/Words.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignStats.h"
#include "kit/models/campaigns/leadStatus.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qint64 answersWithinSeconds = 4 * 86'400, nextAtMost = 3 * 1440;

/// Calls `use` with each status word and its count; the counts are named as the statuses are.
template <class Counts, class Use>
void forEachStatus(Counts& counts, Use use) {
  using Members = boost::describe::describe_members<LeadCounts, boost::describe::mod_public>;
  boost::mp11::mp_for_each<Members>([&](auto member) {
    const QString word = QString::fromLatin1(member.name);
    if (word != "total"_L1) use(word, counts.*member.pointer);
  });
}

/// Statuses of all leads in an order that mixes them.
QStringList shuffledStatuses(const LeadCounts& counts, DemoRandom& random) {
  QStringList statuses;
  forEachStatus(counts, [&](const QString& word, qint64 count) { statuses.insert(statuses.size(), count, word); });
  for (qsizetype i = statuses.size() - 1; i > 0; --i) statuses.swapItemsAt(i, random.below(i + 1));
  return statuses;
}

/// When the last email can have gone out.
QDateTime lastSend(const Campaign& record, const QDateTime& now) {
  QDateTime last = now;
  for (const auto* stopped : {&record.pausedAt, &record.completedAt})
    if (const auto at = parsePlatformDate(*stopped)) last = std::min(last, *at);
  return last;
}

/// Without blanks and accents.
QString inAddress(const QString& name) {
  QString text = name.toLower().normalized(QString::NormalizationForm_D);
  text.removeIf([](QChar c) { return c.unicode() > 127 || c.isSpace(); });
  return text;
}

/// Gives the lead the past that its status stands for.
void giveHistory(CampaignLead& lead, const DemoCampaign& campaign, const SendingHours& hours, const QDateTime& now,
                 DemoRandom& random) {
  const Campaign& record = campaign.record;
  lead.enrolledAt = record.createdAt;
  lead.source = u"csv"_s;
  const auto launched = parsePlatformDate(record.launchedAt);
  const qint64 steps = campaign.steps().size();
  const QString status = lead.status.rawValue;
  if (!launched || steps == 0 || status == "queued"_L1) return;

  if (!campaign.senders().isEmpty()) lead.senderAddress = random.pick(campaign.senders()).address;
  // Who is active waits for an email; where there is but one, for an answer.
  const qint64 last = status == "active"_L1 ? std::max<qint64>(1, steps - 1) : steps;
  const qint64 step = status == "completed"_L1 ? steps : random.between(1, last);
  lead.currentStep = step;
  const QDateTime end = lastSend(record, now);
  // The emails wait as they are meant to; where the campaign has not run for so long, they came closer together.
  const qint64 from = hours.until(*launched), worked = std::max<qint64>(1, hours.until(end) - from);
  qint64 waits = 0;
  for (qint64 before = 1; before < step; ++before) waits += hours.within(campaign.steps()[before].delayMinutes);
  waits = std::min(waits, worked - 1);
  const qint64 begun = from + random.below(worked - waits);
  const QDateTime first = std::max(hours.at(begun), *launched), latest = std::max(hours.at(begun + waits), first);
  lead.firstSentAt = formatPlatformDate(first);
  lead.lastSentAt = formatPlatformDate(latest);
  if (status == "replied"_L1) {
    // Most answer within days or not at all.
    lead.repliedAt =
        formatPlatformDate(latest.addSecs(random.below(std::min(latest.secsTo(now), answersWithinSeconds) + 1)));
    lead.interest = random.chance(0.3) ? u"interested"_s : u"not_interested"_s;
    lead.inboxThreadId = random.id(u"th"_s);
  }
  if (status == "active"_L1 && step < steps)
    lead.nextSendAt = formatPlatformDate(hours.at(hours.until(now) + random.between(600, hours.within(nextAtMost))));
}

}  // namespace

void enrol(DemoCampaign& campaign, const QDateTime& now) {
  if (std::exchange(campaign.enrolled, true)) return;
  DemoRandom random(campaign.seed);
  const Pitch& pitch = pitchOf(campaign.record.name);
  const SendingHours hours = hoursOf(campaign);
  qint64 number = 0;
  for (const QString& status : shuffledStatuses(campaign.stats().leads, random)) {
    CampaignLead lead = makePerson(random, ++number, pitch);
    lead.status = LeadStatus(status);
    giveHistory(lead, campaign, hours, now, random);
    campaign.leads.append(lead);
  }
  recount(campaign);
}

qint64 bookedBefore(const LeadCounts& counts, qsizetype steps) { return steps > 1 ? counts.active : 0; }

void recount(DemoCampaign& campaign) {
  QHash<QString, qint64> found;
  LeadCounts counts;
  qint64 booked = 0;
  for (const CampaignLead& lead : std::as_const(campaign.leads)) {
    if (lead.removedAt) continue;
    ++found[lead.status.rawValue];
    ++counts.total;
    booked += isBooked(lead);
  }
  forEachStatus(counts, [&found](const QString& word, qint64& count) { count = found.value(word); });
  campaign.stats().leads = counts;
  campaign.stats().scheduled = booked;
}

void changeLeads(DemoCampaign& campaign, const QString& from, const QString& to) {
  if (campaign.enrolled) {
    for (CampaignLead& lead : campaign.leads)
      if (lead.status.rawValue == from) lead.status = LeadStatus(to);
    return recount(campaign);
  }
  qint64 moved = 0;
  auto& counts = campaign.stats().leads;
  forEachStatus(counts,
                [&](const QString& word, qint64& count) { moved += word == from ? std::exchange(count, 0) : 0; });
  forEachStatus(counts, [&](const QString& word, qint64& count) { count += word == to ? moved : 0; });
  campaign.stats().scheduled = bookedBefore(counts, campaign.steps().size());
}

QString openStatus(const DemoCampaign& campaign) {
  const QString status = campaign.record.status.rawValue;
  if (status == "running"_L1) return u"active"_s;
  return status == "paused"_L1 ? u"paused"_s : u"queued"_s;
}

bool isBooked(const CampaignLead& lead) { return lead.nextSendAt && lead.status.isActive() && !lead.removedAt; }

SendingHours hoursOf(const DemoCampaign& campaign) {
  return {campaign.record.schedule, parsePlatformDate(campaign.record.createdAt)};
}

CampaignLead makePerson(DemoRandom& random, qint64 number, const Pitch& pitch) {
  CampaignLead lead;
  lead.id = random.id(u"l"_s);
  lead.firstName = random.pick(words::firstNames());
  lead.lastName = random.pick(words::lastNames());
  const QString name = random.pick(words::companies()), trade = random.pick(pitch.trades);
  lead.company = name + u' ' + trade;
  const QString domain = inAddress(name + trade) + u".example"_s;
  lead.email = inAddress(*lead.firstName) + u'.' + inAddress(*lead.lastName) + QString::number(number) + u'@' + domain;
  lead.website = u"https://"_s + domain;
  lead.title = random.pick(words::titles());
  lead.verification = random.chance(0.95) ? u"valid"_s : u"risky"_s;
  lead.esp = random.chance(0.5) ? u"google"_s : u"microsoft"_s;
  // Not everybody has the custom field: that is what a preview warns of.
  if (random.chance(0.8)) lead.data = {{u"city"_s, JSONValue::string(random.pick(words::cities()))}};
  return lead;
}

CampaignLead* findLead(DemoCampaign& campaign, const QString& id) {
  const auto found = std::ranges::find(campaign.leads, id, &CampaignLead::id);
  return found == campaign.leads.end() ? nullptr : &*found;
}

QSet<QString> addressesIn(const DemoCampaign& campaign) {
  QSet<QString> addresses;
  addresses.reserve(campaign.leads.size());
  for (const CampaignLead& lead : campaign.leads) addresses.insert(lead.email);
  return addresses;
}

}  // namespace orv::demo
