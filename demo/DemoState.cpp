#include "demo/DemoState.h"

#include <algorithm>

#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// Whatever is archived waits this long, then go for good.
constexpr int archiveDays = 30;

}  // namespace

bool isOverdue(const std::optional<QString>& archivedAt, const QDateTime& now) {
  const auto archived = parsePlatformDate(archivedAt);
  return archived && archived->addDays(archiveDays) <= now;
}

QStringList DemoCampaign::senderIds() const {
  QStringList ids;
  for (const CampaignSender& sender : senders()) ids.append(sender.mailboxId);
  return ids;
}

void DemoCampaign::setSenders(const QList<CampaignSender>& senders, const QDate& today) {
  const QStringList before = senderIds();
  record.senders = senders;
  const bool isDealt = !earlierSenders.isEmpty() && earlierSenders.last().until == today;
  if (record.launchedAt && !isDealt && senderIds() != before) earlierSenders.append({today, before});
}

CampaignSummary DemoCampaign::summary() const {
  CampaignSummary summary;
  summary.id = record.id;
  summary.number = record.number;
  summary.name = record.name;
  summary.status = archivedAt ? CampaignStatus(u"archived"_s) : record.status;
  summary.senders = senders().size();
  summary.steps = steps().size();
  const LeadCounts& counts = stats().leads;
  summary.leads = counts.total;
  summary.done = counts.completed + counts.replied + counts.bounced;
  summary.sent = stats().sent;
  summary.replied = stats().replied;
  summary.positive = stats().positive;
  summary.bounced = stats().bounced;
  summary.launchedAt = record.launchedAt;
  summary.createdAt = record.createdAt.value_or(QString());
  summary.tags = record.tags;
  summary.version = record.version;
  summary.archivedAt = archivedAt;
  return summary;
}

DemoCampaign* DemoWorkspace::find(const QString& campaignId) {
  const auto found =
      std::ranges::find_if(campaigns, [&](const DemoCampaign& campaign) { return campaign.record.id == campaignId; });
  return found == campaigns.end() ? nullptr : &*found;
}

DemoLeadList* DemoWorkspace::findList(const QString& listId) {
  const auto found = std::ranges::find(lists, listId, &DemoLeadList::id);
  return found == lists.end() ? nullptr : &*found;
}

DemoMailbox* DemoWorkspace::findMailbox(const QString& mailboxId) {
  for (auto* list : {&mailboxes, &pool, &archivedMailboxes}) {
    const auto found = std::ranges::find(*list, mailboxId, &DemoMailbox::id);
    if (found != list->end()) return &*found;
  }
  return nullptr;
}

DemoWorkspace* DemoState::find(const QString& slug) {
  const auto found = std::ranges::find(workspaces, slug, &DemoWorkspace::slug);
  return found == workspaces.end() ? nullptr : &*found;
}

}  // namespace orv::demo
