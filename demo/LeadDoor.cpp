#include <QRegularExpression>

#include "demo/CampaignDoor.h"
#include "demo/Enrolment.h"
#include "demo/LeadSource.h"
#include "demo/Timeline.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/campaigns/campaignFeed.h"
#include "kit/models/campaigns/leadChanges.h"
#include "kit/models/campaigns/leadStatus.h"
#include "kit/models/leads/leadIds.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

bool looksLikeAddress(const QString& email) {
  static const QRegularExpression pattern(uR"(\A[^\s@]+@[^\s@]+\.[^\s@]+\z)"_s);
  return pattern.match(email).hasMatch();
}

/// False when the action means nothing for this lead.
bool act(const Call& call, DemoCampaign& campaign, const QString& action, CampaignLead& lead) {
  if (lead.removedAt) return false;
  const QString status = lead.status.rawValue;
  const bool open = status == "active"_L1 || status == "queued"_L1;
  if (action == "remove"_L1)
    lead.removedAt = call.stamp();
  else if (action == "pause"_L1 && open)
    lead.status = LeadStatus(u"paused"_s);
  else if (action == "resume"_L1 && status == "paused"_L1 && !campaign.record.status.isPaused())
    lead.status = LeadStatus(openStatus(campaign));
  else if (action == "stop"_L1 && (open || status == "paused"_L1)) {
    lead.status = LeadStatus(u"stopped"_s);
    lead.stopReason = u"manual"_s;
  } else {
    return false;
  }
  if (!lead.status.isActive()) lead.nextSendAt.reset();
  note(campaign, action, call.now, &lead);
  return true;
}

QSet<QString> addressesElsewhere(const DemoWorkspace& workspace, const DemoCampaign& campaign) {
  QSet<QString> addresses;
  for (const DemoCampaign& other : workspace.campaigns)
    if (other.record.id != campaign.record.id) addresses.unite(addressesIn(other));
  return addresses;
}

void enter(const Call& call, DemoCampaign& campaign, CampaignLead lead) {
  lead.status = LeadStatus(openStatus(campaign));
  lead.enrolledAt = call.stamp();
  campaign.leads.append(lead);
  note(campaign, u"added"_s, call.now, &lead);
}

/// After any change to who is in the campaign or how far they are.
void settle(DemoCampaign& campaign) {
  recount(campaign);
  if (campaign.record.qc) campaign.record.qc->current = false;
}

/// Makes the leads where there are none yet and lets go of those that have waited long enough in the archive.
void prepare(DemoCampaign& campaign, const QDateTime& now) {
  enrol(campaign, now);
  const auto gone = [&now](const CampaignLead& lead) { return isOverdue(lead.removedAt, now); };
  if (campaign.leads.removeIf(gone) > 0) recount(campaign);
}

template <HTTPAnswer (*answer)(Call&, DemoCampaign&)>
HTTPAnswer prepared(Call& call, DemoCampaign& campaign) {
  prepare(campaign, call.now);
  return answer(call, campaign);
}

template <HTTPAnswer (*answer)(Call&, DemoCampaign&)>
constexpr auto onLeads = onCampaign<prepared<answer>>;

template <HTTPAnswer (*answer)(Call&, DemoCampaign&, CampaignLead&)>
HTTPAnswer found(Call& call, DemoCampaign& campaign) {
  CampaignLead* lead = findLead(campaign, call.ids[1]);
  return lead ? answer(call, campaign, *lead) : notFound(u"This lead is no longer in the campaign"_s);
}

template <HTTPAnswer (*answer)(Call&, DemoCampaign&, CampaignLead&)>
constexpr auto onLead = onLeads<found<answer>>;

/// The cursor is the last lead given, so that leads added or removed between two pages shift nothing.
HTTPAnswer list(Call& call, DemoCampaign& campaign) {
  const qint64 limit = call.request.limit(mostPerPage);
  const QString status = call.request.value(u"status"_s), cursor = call.request.value(u"cursor"_s);
  const bool archived = call.request.isSet(u"archived"_s);
  if (!cursor.isEmpty() && !findLead(campaign, cursor))
    return invalid(u"This page is gone. Load the list again."_s, u"cursor"_s);

  LeadPage page;
  page.counts.emplace();
  page.archivedCount = 0;
  bool reached = cursor.isEmpty();
  for (const CampaignLead& lead : std::as_const(campaign.leads)) {
    const bool wasReached = std::exchange(reached, reached || lead.id == cursor);
    if (lead.removedAt) ++*page.archivedCount;
    if (lead.removedAt.has_value() != archived) continue;
    ++(*page.counts)[lead.status.rawValue];
    if (!wasReached || (!status.isEmpty() && lead.status.rawValue != status)) continue;
    if (page.items.size() < limit)
      page.items.append(lead);
    else if (!page.nextCursor)
      page.nextCursor = page.items.last().id;
  }
  return jsonAnswer(toJSON(page));
}

HTTPAnswer add(Call& call, DemoCampaign& campaign) {
  auto source = readSource(call);
  if (!source) return invalid(u"There is nobody to add here."_s, u"source"_s);
  AddLeadsResult result;
  result.columns = source->columns;
  const QSet<QString> here = addressesIn(campaign),
                      elsewhere = source->onlyNew ? addressesElsewhere(*call.workspace, campaign) : QSet<QString>();
  QSet<QString> seen;
  for (CampaignLead& lead : source->people) {
    lead.email = lead.email.trimmed().toLower();
    const bool again = seen.contains(lead.email);
    seen.insert(lead.email);
    auto& skipped = result.skipped;
    if (!looksLikeAddress(lead.email))
      ++skipped.invalid;
    else if (again)
      ++skipped.duplicateInFile;
    else if (call.workspace->blocklist.contains(lead.email))
      ++skipped.suppressed;
    else if (here.contains(lead.email))
      ++skipped.alreadyInCampaign;
    else if (elsewhere.contains(lead.email))
      ++skipped.inOtherCampaign;
    else {
      ++result.added;
      enter(call, campaign, lead);
    }
  }
  settle(campaign);
  result.total = campaign.stats().leads.total;
  return jsonAnswer(toJSON(result));
}

HTTPAnswer detail(Call&, DemoCampaign& campaign, CampaignLead& lead) {
  LeadDetail detail;
  detail.lead = lead;
  const qint64 steps = campaign.steps().size();
  detail.steps = steps;
  const qint64 next = lead.currentStep.value_or(0) + 1;
  if (lead.status.isActive() && next <= steps) detail.next = {next, lead.nextSendAt};
  detail.activity = activityOf(campaign, lead);
  return jsonAnswer(toJSON(detail));
}

HTTPAnswer edit(Call& call, DemoCampaign&, CampaignLead& lead) {
  const auto body = call.request.bodyAs<LeadPatchBody>();
  if (!body) return invalid(u"This change can’t be read."_s, u"data"_s);
  for (const auto& [name, value] : body->data.asKeyValueRange()) {
    // Another address is another person.
    if (name == "email"_L1) return invalid(u"The address of a lead stays as it is."_s, u"data.email"_s);
    setLeadField(lead, name, value);
  }
  return jsonAnswer(toJSON(lead));
}

HTTPAnswer remove(Call& call, DemoCampaign& campaign, CampaignLead& lead) {
  if (call.request.isSet(u"permanent"_s))
    campaign.leads.removeIf([id = lead.id](const CampaignLead& other) { return other.id == id; });
  else
    act(call, campaign, u"remove"_s, lead);
  settle(campaign);
  return emptyAnswer();
}

HTTPAnswer restore(Call& call, DemoCampaign& campaign) {
  const auto body = call.request.bodyAs<LeadIdsBody>();
  if (!body) return invalid(u"Choose the leads to restore."_s, u"leadIds"_s);
  RestoredResult result;
  for (const QString& id : body->leadIds) {
    CampaignLead* lead = findLead(campaign, id);
    if (!lead || !std::exchange(lead->removedAt, std::nullopt)) continue;
    note(campaign, u"restored"_s, call.now, lead);
    ++result.restored;
  }
  settle(campaign);
  return jsonAnswer(toJSON(result));
}

HTTPAnswer move(Call& call, DemoCampaign& campaign) {
  const auto body = call.request.bodyAs<MoveLeadsBody>();
  DemoCampaign* target = body ? call.workspace->find(body->toCampaignId) : nullptr;
  if (!body || !target || target == &campaign || target->archivedAt)
    return invalid(u"Choose another campaign to move the leads to."_s, u"toCampaignId"_s);
  enrol(*target, call.now);
  QSet<QString> taken = addressesIn(*target);
  MoveResult result;
  for (const QString& id : body->leadIds) {
    const CampaignLead* found = findLead(campaign, id);
    if (!found || found->removedAt || taken.contains(found->email)) {
      ++result.skipped;
      continue;
    }
    CampaignLead lead = *found;
    lead.currentStep.reset();
    lead.nextSendAt.reset();
    campaign.leads.removeIf([&id](const CampaignLead& other) { return other.id == id; });
    taken.insert(lead.email);
    enter(call, *target, lead);
    ++result.moved;
  }
  settle(campaign);
  settle(*target);
  return jsonAnswer(toJSON(result));
}

HTTPAnswer bulk(Call& call, DemoCampaign& campaign) {
  static const QStringList actions{u"pause"_s, u"resume"_s, u"stop"_s, u"remove"_s};
  const auto body = call.request.bodyAs<BulkLeadsBody>();
  if (!body || !actions.contains(body->action)) return invalid(u"Choose what to do with the leads."_s, u"action"_s);
  BulkResult result;
  for (const QString& id : body->leadIds) {
    CampaignLead* lead = findLead(campaign, id);
    ++(lead && act(call, campaign, body->action, *lead) ? result.changed : result.skipped);
  }
  settle(campaign);
  return jsonAnswer(toJSON(result));
}

}  // namespace

const QList<Route>& campaignLeadRoutes() {
  static const QList<Route> routes{
      {"GET", u"/campaigns/{id}/leads"_s, Access::readers, onLeads<list>},
      {"POST", u"/campaigns/{id}/leads"_s, Access::members, onLeads<add>},
      {"POST", u"/campaigns/{id}/leads/restore"_s, Access::members, onLeads<restore>},
      {"POST", u"/campaigns/{id}/leads/move"_s, Access::members, onLeads<move>},
      {"POST", u"/campaigns/{id}/leads/bulk"_s, Access::members, onLeads<bulk>},
      {"GET", u"/campaigns/{id}/leads/{leadId}"_s, Access::readers, onLead<detail>},
      {"PATCH", u"/campaigns/{id}/leads/{leadId}"_s, Access::members, onLead<edit>},
      {"DELETE", u"/campaigns/{id}/leads/{leadId}"_s, Access::members, onLead<remove>},
  };
  return routes;
}

}  // namespace orv::demo
