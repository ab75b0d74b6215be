#include "demo/CampaignDoor.h"

#include <QJsonArray>

#include "demo/Enrolment.h"
#include "demo/LeadDoor.h"
#include "demo/MailboxDoor.h"
#include "demo/SequenceDoor.h"
#include "demo/Timeline.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignFeed.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignOptions.h"
#include "kit/models/campaigns/campaignSender.h"
#include "kit/models/campaigns/campaignStatus.h"
#include "kit/models/campaigns/campaignSummary.h"
#include "kit/models/campaigns/launchCheck.h"
#include "kit/models/campaigns/subsequence.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr int firstEmailAfterSeconds = 120;

bool isSet(const DemoRequest& request, const QString& flag) { return request.query.queryItemValue(flag) == "1"_L1; }

/// What a patch does not name stays.
template <class T>
void take(std::optional<T>& field, const std::optional<T>& patched) {
  if (patched) field = patched;
}
template <class T>
void take(Clearable<T>& field, const Clearable<T>& patched) {
  if (patched.isPresent()) field = patched.value() ? patched : Clearable<T>();
}

void takeOptions(Campaign& record, const CampaignOptions& patched) {
  CampaignOptions& options = record.settings ? *record.settings : record.settings.emplace();
  take(options.dkimSelectors, patched.dkimSelectors);
  take(options.pacing, patched.pacing);
  take(options.dailyLimit, patched.dailyLimit);
  take(options.maxNewPerDay, patched.maxNewPerDay);
  take(options.prioritizeNew, patched.prioritizeNew);
  take(options.stopOnAutoReply, patched.stopOnAutoReply);
  take(options.stopCompanyOnReply, patched.stopCompanyOnReply);
  take(options.unsubscribeHeader, patched.unsubscribeHeader);
  take(options.cc, patched.cc);
  take(options.bcc, patched.bcc);
  take(options.senderTags, patched.senderTags);
}

QList<QString> pickedIdsOf(const DemoCampaign& campaign) {
  QList<QString> ids;
  for (const CampaignSender& sender : campaign.senders())
    if (!sender.viaTag) ids.append(sender.mailboxId);
  return ids;
}

QList<QString> senderTagsOf(const CampaignOptions& options) { return options.senderTags.value_or(QList<QString>()); }

qint64 limitOf(const DemoRequest& request) {
  return std::clamp<qint64>(request.query.queryItemValue(u"limit"_s).toLongLong(), 1, 500);
}

}  // namespace

HTTPAnswer invalid(const QString& detail, const QString& path) {
  return problemAnswer(422, u"invalid_input"_s, u"Invalid input"_s, detail,
                       {{u"errors"_s, QJsonArray{QJsonObject{{u"path"_s, path}, {u"message"_s, detail}}}}});
}

HTTPAnswer changed(DemoCampaign& campaign) {
  campaign.record.version = campaign.record.version.value_or(0) + 1;
  return jsonAnswer(toJSON(campaign.record));
}

std::optional<HTTPAnswer> CampaignDoor::answer(const DemoRequest& request, const QStringList& parts) {
  purge();
  const QString call = QString::fromLatin1(request.method) + u' ' + parts.join(u'/');
  if (call == "GET campaigns"_L1) return list(isSet(request, u"archived"_s));
  if (call == "POST campaigns"_L1) return create(request);
  if (call == "POST campaigns/spintax"_L1) return SequenceDoor::spin(request);
  if (parts.size() == 2 && call.startsWith("GET test-email/"_L1))
    return SequenceDoor::testEmailState(m_context, parts[1]);
  if (parts.size() < 2 || parts[0] != "campaigns"_L1) return std::nullopt;
  DemoCampaign* campaign = m_workspace.find(parts[1]);
  if (!campaign) return problemAnswer(404, u"not_found"_s, u"This campaign no longer exists"_s);
  return one(request, *campaign, parts.mid(2));
}

std::optional<HTTPAnswer> CampaignDoor::one(const DemoRequest& request, DemoCampaign& campaign,
                                            const QStringList& below) {
  const QString call = QString::fromLatin1(request.method) + u' ' + below.join(u'/');
  if (call == "GET "_L1) return jsonAnswer(toJSON(campaign.record));
  if (call == "PATCH "_L1) return patch(request, campaign);
  if (call == "POST launch"_L1) return launch(request, campaign);
  if (call == "POST pause"_L1) return pause(campaign);
  if (call == "POST duplicate"_L1) return duplicate(campaign);
  if (call == "POST restore"_L1) return restore(campaign);
  if (call == "DELETE "_L1) return isSet(request, u"permanent"_s) ? remove(campaign.record.id) : archive(campaign);
  if (call == "GET subsequences"_L1) return subsequences(campaign);
  if (call == "POST subsequences"_L1) return createSubsequence(request, campaign);
  if (call == "GET activity"_L1) return activity(request, campaign);
  if (call == "GET messages"_L1) return messages(request, campaign);
  if (auto answer = SequenceDoor(m_context, campaign).answer(request, call)) return answer;
  return LeadDoor(m_context, campaign).answer(request, below);
}

/// Subsequences are listed with their parent, not here; deleted ones wait in the archive like all others.
HTTPAnswer CampaignDoor::list(bool archived) const {
  CampaignList list;
  list.archivedCount = 0;
  for (const DemoCampaign& campaign : std::as_const(m_workspace.campaigns)) {
    if (campaign.archivedAt) ++*list.archivedCount;
    if (campaign.archivedAt.has_value() != archived || (!archived && campaign.record.parent)) continue;
    list.items.append(campaign.summary());
  }
  return jsonAnswer(toJSON(list));
}

HTTPAnswer CampaignDoor::create(const DemoRequest& request) {
  const auto body = bodyOf<CreateCampaignBody>(request);
  if (!body || body->name.trimmed().isEmpty()) return invalid(u"Name is required."_s, u"name"_s);
  m_workspace.campaigns.prepend(newCampaign(body->name.trimmed()));
  return jsonAnswer(toJSON(m_workspace.campaigns.first().record), 201);
}

DemoCampaign CampaignDoor::newCampaign(const QString& name) {
  DemoCampaign campaign;
  campaign.record.id = m_context.random.id(u"c"_s);
  campaign.record.number = ++m_workspace.lastNumber;
  campaign.record.name = name;
  campaign.record.status = CampaignStatus(u"draft"_s);
  campaign.record.createdAt = m_context.stamp();
  campaign.record.version = 1;
  campaign.record.tags.emplace();
  campaign.record.senders.emplace();
  campaign.record.steps.emplace();
  campaign.record.stats.emplace();
  return campaign;
}

HTTPAnswer CampaignDoor::patch(const DemoRequest& request, DemoCampaign& campaign) {
  const QByteArray match = request.headers.value("if-match");
  if (!match.isEmpty() && match != '"' + QByteArray::number(campaign.record.version.value_or(0)) + '"')
    return problemAnswer(409, u"version_conflict"_s, u"Someone changed this campaign meanwhile"_s,
                         u"What is shown now is the latest; make your change again."_s);
  const auto patch = bodyOf<CampaignPatch>(request);
  if (!patch) return invalid(u"This change can’t be read."_s, {});
  if (patch->name && patch->name->trimmed().isEmpty()) return invalid(u"Name is required."_s, u"name"_s);
  Campaign& record = campaign.record;
  if (patch->senderMailboxIds || (patch->settings && patch->settings->senderTags)) {
    const auto& options = patch->settings && patch->settings->senderTags ? patch->settings : record.settings;
    const auto senders = sendersOf(m_workspace, patch->senderMailboxIds.value_or(pickedIdsOf(campaign)),
                                   senderTagsOf(options.value_or(CampaignOptions())));
    if (!senders) return invalid(u"One of these inboxes is no longer there."_s, u"senderMailboxIds"_s);
    record.senders = senders;
  }
  if (patch->name) record.name = patch->name->trimmed();
  take(record.schedule, patch->schedule);
  take(record.dailyCapPerInbox, patch->dailyCapPerInbox);
  take(record.gapSeconds, patch->gapSeconds);
  take(record.stopOnReply, patch->stopOnReply);
  if (patch->settings) takeOptions(record, *patch->settings);
  take(record.tags, patch->tags);
  take(record.trigger, patch->trigger);
  if (record.qc) record.qc->current = false;
  return changed(campaign);
}

HTTPAnswer CampaignDoor::launch(const DemoRequest& request, DemoCampaign& campaign) {
  Campaign& record = campaign.record;
  const bool resumes = record.launchedAt.has_value();
  if (campaign.archivedAt) return problemAnswer(409, u"archived"_s, u"Restore this campaign first"_s);
  if (record.status.isRunning()) return problemAnswer(409, u"already_running"_s, u"This campaign is running already"_s);
  const Qc qc = SequenceDoor(m_context, campaign).check();
  for (const QcCheck& check : qc.checks) {
    // What has been sent from before may go on: its leads may be through, its senders may be waited for.
    if (check.status == "fail"_L1 && !(resumes && check.key != "senders"_L1))
      return problemAnswer(422, u"not_ready"_s, u"Not ready to send"_s, check.detail);
  }
  const auto body = bodyOf<LaunchBody>(request);
  if (!resumes && !(body && body->confirmExternal) && qc.external && qc.external->count > 0)
    return problemAnswer(409, u"external_unconfirmed"_s, u"This campaign writes to real people"_s,
                         u"Open the campaign and launch it there."_s);
  record.status = CampaignStatus(u"running"_s);
  if (!resumes) record.launchedAt = m_context.stamp();
  record.pausedAt.reset();
  const QString first = formatPlatformDate(m_context.now.addSecs(firstEmailAfterSeconds));
  for (CampaignLead& lead : campaign.leads)
    if (lead.status.isQueued() && !lead.nextSendAt) lead.nextSendAt = first;
  changeLeads(campaign, u"paused"_s, u"active"_s);
  changeLeads(campaign, u"queued"_s, u"active"_s);
  record.lastPlan = Campaign::Plan{m_context.stamp(), campaign.stats().leads.active, {}};
  note(resumes ? u"resumed"_s : u"launched"_s, campaign);
  return changed(campaign);
}

HTTPAnswer CampaignDoor::pause(DemoCampaign& campaign) {
  Campaign& record = campaign.record;
  if (!record.status.isRunning()) return problemAnswer(409, u"not_running"_s, u"This campaign isn’t running"_s);
  record.status = CampaignStatus(u"paused"_s);
  record.pausedAt = m_context.stamp();
  changeLeads(campaign, u"active"_s, u"paused"_s);
  note(u"paused"_s, campaign);
  return changed(campaign);
}

HTTPAnswer CampaignDoor::duplicate(const DemoCampaign& campaign) {
  DemoCampaign copy = newCampaign(campaign.record.name + u" (copy)"_s);
  const Campaign fresh = std::exchange(copy.record, campaign.record);
  copy.record.id = fresh.id;
  copy.record.number = fresh.number;
  copy.record.name = fresh.name;
  copy.record.status = fresh.status;
  copy.record.createdAt = fresh.createdAt;
  copy.record.version = fresh.version;
  copy.record.stats = fresh.stats;
  for (auto* instant : {&copy.record.launchedAt, &copy.record.pausedAt, &copy.record.completedAt}) instant->reset();
  copy.record.qc.reset();
  copy.record.lastPlan.reset();
  giveFreshIds(copy.steps());
  m_workspace.campaigns.prepend(copy);
  return jsonAnswer(toJSON(copy.record), 201);
}

void CampaignDoor::giveFreshIds(QList<CampaignStep>& steps) {
  for (CampaignStep& step : steps) {
    step.id = m_context.random.id(u"st"_s);
    step.stats.reset();
    for (CampaignVariant& variant : step.variants) {
      variant.id = m_context.random.id(u"va"_s);
      variant.stats.reset();
    }
  }
}

HTTPAnswer CampaignDoor::archive(DemoCampaign& campaign) {
  if (campaign.archivedAt) return emptyAnswer();
  if (campaign.record.status.isRunning()) pause(campaign);
  campaign.archivedAt = m_context.stamp();
  changed(campaign);
  return emptyAnswer();
}

HTTPAnswer CampaignDoor::remove(const QString& id) {
  m_workspace.campaigns.removeIf([&id](const DemoCampaign& campaign) {
    return campaign.record.id == id || (campaign.record.parent && campaign.record.parent->id == id);
  });
  return emptyAnswer();
}

HTTPAnswer CampaignDoor::restore(DemoCampaign& campaign) {
  if (!campaign.archivedAt) return problemAnswer(409, u"not_archived"_s, u"This campaign isn’t archived"_s);
  campaign.archivedAt.reset();
  return changed(campaign);
}

HTTPAnswer CampaignDoor::subsequences(const DemoCampaign& parent) const {
  SubsequenceList list;
  for (const DemoCampaign& campaign : std::as_const(m_workspace.campaigns)) {
    if (campaign.archivedAt || !campaign.record.parent || campaign.record.parent->id != parent.record.id) continue;
    const CampaignSummary row = campaign.summary();
    list.items.append({row.id, row.number, row.name, row.status, campaign.record.trigger, row.steps, row.leads,
                       row.sent, row.replied, row.createdAt, row.version});
  }
  return jsonAnswer(toJSON(list));
}

HTTPAnswer CampaignDoor::createSubsequence(const DemoRequest& request, const DemoCampaign& parent) {
  const auto body = bodyOf<SubsequenceBody>(request);
  if (!body || body->name.trimmed().isEmpty()) return invalid(u"Name is required."_s, u"name"_s);
  if (body->trigger.labels.isEmpty()) return invalid(u"Pick at least one label."_s, u"trigger.labels"_s);
  DemoCampaign campaign = newCampaign(body->name.trimmed());
  campaign.record.parent = Campaign::Parent{parent.record.id, parent.record.number, parent.record.name};
  campaign.record.trigger = body->trigger;
  campaign.record.senders = parent.record.senders;
  campaign.record.schedule = parent.record.schedule;
  campaign.record.settings = parent.record.settings;
  campaign.record.dailyCapPerInbox = parent.record.dailyCapPerInbox;
  campaign.record.gapSeconds = parent.record.gapSeconds;
  campaign.record.stopOnReply = parent.record.stopOnReply;
  const CampaignVariant variant{m_context.random.id(u"va"_s), u"A"_s, {}, {}, 100, true, {}};
  campaign.steps().append({m_context.random.id(u"st"_s), 1, 0, true, {variant}, {}});
  m_workspace.campaigns.append(campaign);
  return jsonAnswer(toJSON(campaign.record), 201);
}

HTTPAnswer CampaignDoor::activity(const DemoRequest& request, DemoCampaign& campaign) const {
  enrol(campaign, m_context.now);
  const auto page = feedOf(campaign, limitOf(request), request.query.queryItemValue(u"cursor"_s));
  return page ? jsonAnswer(toJSON(*page)) : invalid(u"This page is gone. Load the feed again."_s, u"cursor"_s);
}

HTTPAnswer CampaignDoor::messages(const DemoRequest& request, DemoCampaign& campaign) const {
  enrol(campaign, m_context.now);
  return jsonAnswer(toJSON(messagesOf(campaign, limitOf(request))));
}

void CampaignDoor::note(const QString& kind, DemoCampaign& campaign) {
  FeedItem item;
  item.kind = kind;
  item.at = m_context.stamp();
  campaign.events.append(item);
}

void CampaignDoor::purge() {
  m_workspace.campaigns.removeIf(
      [this](const DemoCampaign& campaign) { return isOverdue(campaign.archivedAt, m_context.now); });
}

}  // namespace orv::demo
