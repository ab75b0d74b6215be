#include "demo/CampaignDoor.h"

#include "demo/DailyFigures.h"
#include "demo/Enrolment.h"
#include "demo/Mailboxes.h"
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

void giveNextVersion(DemoCampaign& campaign) { campaign.record.version = campaign.record.version.value_or(0) + 1; }

DemoCampaign newCampaign(Call& call, const QString& name) {
  DemoCampaign campaign;
  campaign.record.id = call.random.id(u"c"_s);
  campaign.record.number = ++call.workspace->lastNumber;
  campaign.record.name = name;
  campaign.record.status = CampaignStatus(u"draft"_s);
  campaign.record.createdAt = call.stamp();
  campaign.record.version = 1;
  campaign.record.tags.emplace();
  campaign.record.senders.emplace();
  campaign.record.steps.emplace();
  campaign.record.stats.emplace();
  return campaign;
}

void giveFreshIds(QList<CampaignStep>& steps, DemoRandom& random) {
  for (CampaignStep& step : steps) {
    step.id = random.id(u"st"_s);
    step.stats.reset();
    for (CampaignVariant& variant : step.variants) {
      variant.id = random.id(u"va"_s);
      variant.stats.reset();
    }
  }
}

void purge(DemoWorkspace& workspace, const QDateTime& now) {
  workspace.campaigns.removeIf([&now](const DemoCampaign& campaign) { return isOverdue(campaign.archivedAt, now); });
}

/// Subsequences are listed with their parent, not here; deleted ones wait in the archive like all others.
HTTPAnswer list(Call& call) {
  purge(*call.workspace, call.now);
  const bool archived = call.request.isSet(u"archived"_s);
  CampaignList list;
  list.archivedCount = 0;
  for (const DemoCampaign& campaign : std::as_const(call.workspace->campaigns)) {
    if (campaign.archivedAt) ++*list.archivedCount;
    if (campaign.archivedAt.has_value() != archived || (!archived && campaign.record.parent)) continue;
    list.items.append(campaign.summary());
  }
  return jsonAnswer(toJSON(list));
}

HTTPAnswer get(Call& call, DemoCampaign& campaign) { return campaignAnswer(call, campaign); }

HTTPAnswer create(Call& call) {
  const auto body = call.request.bodyAs<CreateCampaignBody>();
  if (!body || body->name.trimmed().isEmpty()) return invalid(u"Name is required."_s, u"name"_s);
  call.workspace->campaigns.prepend(newCampaign(call, body->name.trimmed()));
  return campaignAnswer(call, call.workspace->campaigns.first(), 201);
}

HTTPAnswer patch(Call& call, DemoCampaign& campaign) {
  const QByteArray match = call.request.headers.value("if-match");
  if (!match.isEmpty() && match != '"' + QByteArray::number(campaign.record.version.value_or(0)) + '"')
    return problemAnswer(409, u"version_conflict"_s, u"Someone changed this campaign meanwhile"_s,
                         u"What is shown now is the latest; make your change again."_s);
  const auto patch = call.request.bodyAs<CampaignPatch>();
  if (!patch) return invalid(u"This change can’t be read."_s, {});
  if (patch->name && patch->name->trimmed().isEmpty()) return invalid(u"Name is required."_s, u"name"_s);
  Campaign& record = campaign.record;
  if (patch->senderMailboxIds || (patch->settings && patch->settings->senderTags)) {
    const auto& options = patch->settings && patch->settings->senderTags ? patch->settings : record.settings;
    const auto senders = sendersOf(*call.workspace, patch->senderMailboxIds.value_or(pickedIdsOf(campaign)),
                                   senderTagsOf(options.value_or(CampaignOptions())), call.now);
    if (!senders) return invalid(u"One of these inboxes is no longer there."_s, u"senderMailboxIds"_s);
    campaign.setSenders(*senders, dayIn(*call.workspace, call.now));
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
  return changedAnswer(call, campaign);
}

HTTPAnswer launch(Call& call, DemoCampaign& campaign) {
  Campaign& record = campaign.record;
  const bool resumes = record.launchedAt.has_value();
  if (campaign.archivedAt) return problemAnswer(409, u"archived"_s, u"Restore this campaign first"_s);
  if (record.status.isRunning()) return problemAnswer(409, u"already_running"_s, u"This campaign is running already"_s);
  const Qc qc = checkOf(campaign, call.now);
  for (const QcCheck& check : qc.checks) {
    // What has been sent from before may go on: its leads may be through, its senders may be waited for.
    if (check.status == "fail"_L1 && !(resumes && check.key != "senders"_L1))
      return problemAnswer(422, u"not_ready"_s, u"Not ready to send"_s, check.detail);
  }
  const auto body = call.request.bodyAs<LaunchBody>();
  if (!resumes && !(body && body->confirmExternal) && qc.external && qc.external->count > 0)
    return problemAnswer(409, u"external_unconfirmed"_s, u"This campaign writes to real people"_s,
                         u"Open the campaign and launch it there."_s);
  record.status = CampaignStatus(u"running"_s);
  if (!resumes) record.launchedAt = call.stamp();
  record.pausedAt.reset();
  const QString first = formatPlatformDate(call.now.addSecs(firstEmailAfterSeconds));
  for (CampaignLead& lead : campaign.leads)
    if (lead.status.isQueued() && !lead.nextSendAt) lead.nextSendAt = first;
  changeLeads(campaign, u"paused"_s, u"active"_s);
  changeLeads(campaign, u"queued"_s, u"active"_s);
  record.lastPlan = Campaign::Plan{call.stamp(), campaign.stats().leads.active, {}};
  note(campaign, resumes ? u"resumed"_s : u"launched"_s, call.now);
  return changedAnswer(call, campaign);
}

void stopSending(DemoCampaign& campaign, const Call& call) {
  campaign.record.status = CampaignStatus(u"paused"_s);
  campaign.record.pausedAt = call.stamp();
  changeLeads(campaign, u"active"_s, u"paused"_s);
  note(campaign, u"paused"_s, call.now);
}

HTTPAnswer pause(Call& call, DemoCampaign& campaign) {
  if (!campaign.record.status.isRunning())
    return problemAnswer(409, u"not_running"_s, u"This campaign isn’t running"_s);
  stopSending(campaign, call);
  return changedAnswer(call, campaign);
}

HTTPAnswer duplicate(Call& call, DemoCampaign& campaign) {
  DemoCampaign copy = newCampaign(call, campaign.record.name + u" (copy)"_s);
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
  giveFreshIds(copy.steps(), call.random);
  call.workspace->campaigns.prepend(copy);
  return campaignAnswer(call, copy, 201);
}

HTTPAnswer remove(Call& call, DemoCampaign& campaign) {
  if (call.request.isSet(u"permanent"_s)) {
    call.workspace->campaigns.removeIf([id = campaign.record.id](const DemoCampaign& other) {
      return other.record.id == id || (other.record.parent && other.record.parent->id == id);
    });
  } else if (!campaign.archivedAt) {
    if (campaign.record.status.isRunning()) stopSending(campaign, call);
    campaign.archivedAt = call.stamp();
    giveNextVersion(campaign);
  }
  return emptyAnswer();
}

HTTPAnswer restore(Call& call, DemoCampaign& campaign) {
  if (!campaign.archivedAt) return problemAnswer(409, u"not_archived"_s, u"This campaign isn’t archived"_s);
  campaign.archivedAt.reset();
  return changedAnswer(call, campaign);
}

HTTPAnswer subsequences(Call& call, DemoCampaign& parent) {
  SubsequenceList list;
  for (const DemoCampaign& campaign : std::as_const(call.workspace->campaigns)) {
    if (campaign.archivedAt || !campaign.record.parent || campaign.record.parent->id != parent.record.id) continue;
    const CampaignSummary row = campaign.summary();
    list.items.append({row.id, row.number, row.name, row.status, campaign.record.trigger, row.steps, row.leads,
                       row.sent, row.replied, row.createdAt, row.version});
  }
  return jsonAnswer(toJSON(list));
}

HTTPAnswer createSubsequence(Call& call, DemoCampaign& parent) {
  const auto body = call.request.bodyAs<SubsequenceBody>();
  if (!body || body->name.trimmed().isEmpty()) return invalid(u"Name is required."_s, u"name"_s);
  if (body->trigger.labels.isEmpty()) return invalid(u"Pick at least one label."_s, u"trigger.labels"_s);
  DemoCampaign campaign = newCampaign(call, body->name.trimmed());
  campaign.record.parent = Campaign::Parent{parent.record.id, parent.record.number, parent.record.name};
  campaign.record.trigger = body->trigger;
  campaign.record.senders = parent.record.senders;
  campaign.record.schedule = parent.record.schedule;
  campaign.record.settings = parent.record.settings;
  campaign.record.dailyCapPerInbox = parent.record.dailyCapPerInbox;
  campaign.record.gapSeconds = parent.record.gapSeconds;
  campaign.record.stopOnReply = parent.record.stopOnReply;
  const CampaignVariant variant{call.random.id(u"va"_s), u"A"_s, {}, {}, 100, true, {}};
  campaign.steps().append({call.random.id(u"st"_s), 1, 0, true, {variant}, {}});
  call.workspace->campaigns.append(campaign);
  return campaignAnswer(call, campaign, 201);
}

HTTPAnswer activity(Call& call, DemoCampaign& campaign) {
  enrol(campaign, call.now);
  const auto page = feedOf(campaign, call.request.limit(mostPerPage), call.request.value(u"cursor"_s));
  return page ? jsonAnswer(toJSON(*page)) : invalid(u"This page is gone. Load the feed again."_s, u"cursor"_s);
}

HTTPAnswer messages(Call& call, DemoCampaign& campaign) {
  enrol(campaign, call.now);
  return jsonAnswer(toJSON(messagesOf(campaign, call.request.limit(mostPerPage))));
}

}  // namespace

DemoCampaign* findCampaign(Call& call) {
  purge(*call.workspace, call.now);
  return call.workspace->find(call.ids.first());
}

HTTPAnswer campaignAnswer(const Call& call, const DemoCampaign& campaign, int status) {
  Campaign record = campaign.record;
  if (record.senders) tellTodaysSends(*record.senders, *call.workspace, call.now);
  return jsonAnswer(toJSON(record), status);
}

HTTPAnswer changedAnswer(const Call& call, DemoCampaign& campaign) {
  giveNextVersion(campaign);
  return campaignAnswer(call, campaign);
}

const QList<Route>& campaignRoutes() {
  static const QList<Route> routes{
      {"GET", u"/campaigns"_s, Access::readers, list},
      {"POST", u"/campaigns"_s, Access::members, create},
      {"GET", u"/campaigns/{id}"_s, Access::readers, onCampaign<get>},
      {"PATCH", u"/campaigns/{id}"_s, Access::members, onCampaign<patch>},
      {"DELETE", u"/campaigns/{id}"_s, Access::members, onCampaign<remove>},
      {"POST", u"/campaigns/{id}/launch"_s, Access::members, onCampaign<launch>},
      {"POST", u"/campaigns/{id}/pause"_s, Access::members, onCampaign<pause>},
      {"POST", u"/campaigns/{id}/duplicate"_s, Access::members, onCampaign<duplicate>},
      {"POST", u"/campaigns/{id}/restore"_s, Access::members, onCampaign<restore>},
      {"GET", u"/campaigns/{id}/subsequences"_s, Access::readers, onCampaign<subsequences>},
      {"POST", u"/campaigns/{id}/subsequences"_s, Access::members, onCampaign<createSubsequence>},
      {"GET", u"/campaigns/{id}/activity"_s, Access::readers, onCampaign<activity>},
      {"GET", u"/campaigns/{id}/messages"_s, Access::readers, onCampaign<messages>},
  };
  return routes;
}

}  // namespace orv::demo
