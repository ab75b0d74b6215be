#include "demo/Mailboxes.h"

#include <algorithm>

#include "demo/DailyFigures.h"
#include "demo/Roadmaps.h"
#include "demo/WarmupFigures.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

bool sharesOne(const QList<QString>& tags, const QList<QString>& others) {
  return std::ranges::any_of(tags, [&others](const QString& tag) { return others.contains(tag); });
}

/// In seconds. Some are seen to run longer than a first look after them waits.
constexpr qint64 shortestCheck = 3, longestCheck = 14;

std::optional<QString> healthWord(const DemoMailbox& mailbox, const WarmupHealth::Account& warmup) {
  if (mailbox.record.status.isFailed()) return u"error"_s;
  if (warmup.placed7d == 0) return std::nullopt;
  if (warmup.health == "at_risk"_L1) return u"error"_s;
  return warmup.health == "watch"_L1 ? u"warning"_s : u"healthy"_s;
}

void endCheck(DemoMailbox& mailbox) {
  const auto check = *std::exchange(mailbox.check, std::nullopt);
  auto& connection = *mailbox.record.connection;
  connection.status = check.error ? u"failed"_s : u"connected"_s;
  connection.lastError = check.error;
  connection.lastVerifiedAt = formatPlatformDate(check.endsAt);
  mailbox.record.status = check.error ? MailboxStatus(u"failed"_s) : check.then;
  if (!mailbox.isActive() && !mailbox.idleSince) mailbox.idleSince = check.endsAt;
  if (mailbox.isActive()) mailbox.idleSince.reset();
  mailbox.record.version = mailbox.record.version.value_or(0) + 1;
}

/// Campaigns keep their senders as they were told of them, picked ones first.
void retell(DemoCampaign& campaign, const QHash<QString, const DemoMailbox*>& live, const DemoWorkspace& workspace,
            const QDateTime& localNow) {
  const auto tags =
      campaign.record.settings ? campaign.record.settings->senderTags.value_or(QList<QString>()) : QList<QString>();
  QList<CampaignSender> senders;
  QSet<QString> picked;
  for (const CampaignSender& sender : campaign.senders()) {
    const DemoMailbox* mailbox = live.value(sender.mailboxId);
    if (sender.viaTag || !mailbox) continue;
    senders.append(senderOf(*mailbox, localNow));
    picked.insert(mailbox->id());
  }
  for (const DemoMailbox& mailbox : workspace.mailboxes) {
    if (tags.isEmpty()) break;
    if (picked.contains(mailbox.id()) || !sharesOne(mailbox.tags(), tags)) continue;
    senders.append(senderOf(mailbox, localNow));
    senders.last().viaTag = true;
  }
  campaign.setSenders(senders, localNow.date());
}

}  // namespace

ShownMailboxes::ShownMailboxes(const DemoWorkspace& workspace, const QDateTime& now)
    : m_localNow(localTimeIn(workspace, now)), m_sentToday(sentTodayBy(workspace, now)) {}

Mailbox ShownMailboxes::of(const DemoMailbox& mailbox) const {
  Mailbox shown = mailbox.record;
  const auto warmup = warmupOf(mailbox, m_localNow);
  const auto today = warmupDayOf(mailbox, m_localNow.date(), m_localNow);
  shown.warmup = {warmup.rampDay, warmup.sentToday, warmup.plannedToday, today.received, {}, warmup.placed7d, {},
                  warmup.spam7d};
  for (int back = 0; back < 7; ++back)
    shown.warmup.replies7d += warmupDayOf(mailbox, m_localNow.date().addDays(-back), m_localNow).replies;
  shown.warmup.inboxPct7d = inboxShareOf(warmup);
  shown.health = healthWord(mailbox, warmup);
  if (shown.signature) shown.signatureHtml = shown.signature->toHtmlEscaped().replace(u'\n', u"<br>"_s);
  if (shown.isPool()) return shown;
  if (mailbox.roadmap) {
    shown.rampup = rampupOf(mailbox, m_localNow);
    shown.ramp = Mailbox::Ramp{4, 1, shown.rampup->warmupToday, {}};
  }
  const auto reason = notReadyBecause(mailbox, m_localNow.date());
  shown.sendReady = Mailbox::SendReady{!reason, mailbox.record.sendReady ? mailbox.record.sendReady->mode : QString(),
                                       reason, std::max<qint64>(0, warmup.rampDay), daysUntilReady};
  shown.campaign = Mailbox::CampaignToday{m_sentToday.value(mailbox.id())};
  return shown;
}

HTTPAnswer mailboxAnswer(const Call& call, const DemoMailbox& mailbox, int status) {
  return jsonAnswer(toJSON(ShownMailboxes(*call.workspace, call.now).of(mailbox)), status);
}

HTTPAnswer changedAnswer(const Call& call, DemoMailbox& mailbox, int status) {
  mailbox.record.version = mailbox.record.version.value_or(0) + 1;
  retellSenders(*call.workspace, call.now);
  return mailboxAnswer(call, mailbox, status);
}

DemoMailbox* findMailbox(Call& call) { return call.workspace->findMailbox(call.ids.first()); }

HTTPAnswer noSuchMailbox() { return notFound(u"This account is no longer here"_s); }

void settleMailboxes(DemoWorkspace& workspace, const QDateTime& now) {
  bool ended = false;
  for (DemoMailbox& mailbox : workspace.mailboxes) {
    if (!mailbox.check || mailbox.check->endsAt > now) continue;
    endCheck(mailbox);
    ended = true;
  }
  workspace.archivedMailboxes.removeIf(
      [&now](const DemoMailbox& mailbox) { return isOverdue(mailbox.record.archivedAt, now); });
  if (ended) retellSenders(workspace, now);
}

void beginCheck(DemoMailbox& mailbox, const Call& call) {
  const auto then = mailbox.record.status.isPaused() ? mailbox.record.status : MailboxStatus(u"active"_s);
  if (!mailbox.check)
    mailbox.check =
        DemoMailbox::Check{call.now.addSecs(call.random.between(shortestCheck, longestCheck)), mailbox.fault, then};
  mailbox.record.status = MailboxStatus(u"verifying"_s);
  if (mailbox.record.connection) mailbox.record.connection->status = u"verifying"_s;
}

void pause(DemoMailbox& mailbox, const QString& reason, const QDateTime& now) {
  mailbox.record.status = MailboxStatus(u"paused"_s);
  mailbox.record.pausedReason = reason;
  if (!mailbox.idleSince) mailbox.idleSince = now;
}

std::optional<QString> resume(DemoMailbox& mailbox) {
  if (mailbox.record.connection && mailbox.record.connection->status == "failed"_L1)
    return u"Its connection fails. Reconnect it first."_s;
  mailbox.record.status = MailboxStatus(u"active"_s);
  mailbox.record.pausedReason.reset();
  mailbox.idleSince.reset();
  return std::nullopt;
}

void archiveMailbox(DemoWorkspace& workspace, const QString& id, const Call& call) {
  const auto found = std::ranges::find(workspace.mailboxes, id, &DemoMailbox::id);
  if (found == workspace.mailboxes.end()) return;
  DemoMailbox mailbox = *found;
  workspace.mailboxes.erase(found);
  mailbox.record.archivedAt = call.stamp();
  mailbox.record.version = mailbox.record.version.value_or(0) + 1;
  for (DemoCampaign& campaign : workspace.campaigns)
    for (const CampaignSender& sender : campaign.senders())
      if (sender.mailboxId == id && !sender.viaTag) mailbox.leftCampaigns.append(campaign.record.id);
  workspace.archivedMailboxes.prepend(mailbox);
}

void restoreMailbox(DemoWorkspace& workspace, const QString& id, const QDateTime& now) {
  const auto found = std::ranges::find(workspace.archivedMailboxes, id, &DemoMailbox::id);
  if (found == workspace.archivedMailboxes.end()) return;
  DemoMailbox mailbox = *found;
  workspace.archivedMailboxes.erase(found);
  mailbox.record.archivedAt.reset();
  mailbox.record.version = mailbox.record.version.value_or(0) + 1;
  for (const QString& campaignId : std::exchange(mailbox.leftCampaigns, {}))
    if (DemoCampaign* campaign = workspace.find(campaignId))
      campaign->setSenders(campaign->senders() + QList{CampaignSender{.mailboxId = mailbox.id()}},
                           dayIn(workspace, now));
  const auto place = std::ranges::upper_bound(workspace.mailboxes, mailbox.order, {}, &DemoMailbox::order);
  workspace.mailboxes.insert(place, mailbox);
}

DemoMailbox newMailbox(Call& call, const QString& address, const QString& displayName) {
  DemoMailbox mailbox;
  Mailbox& record = mailbox.record;
  record.id = call.random.id(u"mb"_s);
  record.number = mailbox.order = ++call.workspace->lastMailboxNumber;
  record.address = address;
  record.displayName = displayName.isEmpty() ? nameOf(address) : displayName;
  record.role = u"sender"_s;
  record.dailyCap = record.sendLimit.emplace(mostSentADay);
  record.sendReady = Mailbox::SendReady{false, u"automatic"_s, {}, 0, 0};
  record.tags.emplace();
  record.version = 1;
  record.createdAt = call.stamp();
  mailbox.warmup = firstWarmup(mailbox.id());
  putOnRoadmap(mailbox, defaultTemplate(*call.workspace), dayIn(*call.workspace, call.now));
  return mailbox;
}

bool isConnected(const DemoWorkspace& workspace, const QString& address) {
  return std::ranges::any_of(workspace.mailboxes, [&address](const DemoMailbox& mailbox) {
    return mailbox.record.address.compare(address, Qt::CaseInsensitive) == 0;
  });
}

QString nameOf(const QString& address) {
  QStringList words = address.section(u'@', 0, 0).split(u'.', Qt::SkipEmptyParts);
  for (QString& word : words) word[0] = word[0].toUpper();
  return words.join(u' ');
}

bool setTrackingDomain(DemoMailbox& mailbox, const std::optional<QString>& host, const Call& call) {
  mailbox.record.trackingDomain = host;
  // Somebody has been at the name servers of those already.
  const bool points = host && host->startsWith("track."_L1);
  mailbox.record.trackingDomainVerifiedAt = points ? std::optional(call.stamp()) : std::nullopt;
  return points;
}

CampaignSender senderOf(const DemoMailbox& mailbox, const QDateTime& localNow) {
  const auto reason = notReadyBecause(mailbox, localNow.date());
  const qint64 ramp = standingOn(mailbox, localNow.date()).campaign;
  CampaignSender sender;
  sender.mailboxId = mailbox.id();
  sender.address = mailbox.record.address;
  sender.displayName = mailbox.record.displayName;
  sender.status = mailbox.record.status.rawValue;
  sender.ready = !reason;
  sender.reason = reason;
  sender.capToday = std::min(mailbox.record.sendLimit.value_or(mostSentADay), ramp);
  sender.rampToday = ramp;
  sender.signature = mailbox.record.signature;
  return sender;
}

std::optional<QList<CampaignSender>> sendersOf(const DemoWorkspace& workspace, const QList<QString>& pickedIds,
                                               const QList<QString>& tags, const QDateTime& now) {
  const QDateTime localNow = localTimeIn(workspace, now);
  QList<CampaignSender> senders;
  for (const QString& id : pickedIds) {
    const auto mailbox = std::ranges::find(workspace.mailboxes, id, &DemoMailbox::id);
    if (mailbox == workspace.mailboxes.cend()) return std::nullopt;
    senders.append(senderOf(*mailbox, localNow));
  }
  for (const DemoMailbox& mailbox : workspace.mailboxes) {
    if (pickedIds.contains(mailbox.id()) || !sharesOne(mailbox.tags(), tags)) continue;
    senders.append(senderOf(mailbox, localNow));
    senders.last().viaTag = true;
  }
  return senders;
}

void retellSenders(DemoWorkspace& workspace, const QDateTime& now) {
  const QDateTime localNow = localTimeIn(workspace, now);
  QHash<QString, const DemoMailbox*> live;
  for (const DemoMailbox& mailbox : std::as_const(workspace.mailboxes)) live.insert(mailbox.id(), &mailbox);
  for (DemoCampaign& campaign : workspace.campaigns) retell(campaign, live, workspace, localNow);
}

void tellTodaysSends(QList<CampaignSender>& senders, const DemoWorkspace& workspace, const QDateTime& now) {
  const auto sent = sentTodayBy(workspace, now);
  for (CampaignSender& sender : senders) sender.sentToday = sent.value(sender.mailboxId);
}

}  // namespace orv::demo
