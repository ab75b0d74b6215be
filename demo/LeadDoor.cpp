#include "demo/LeadDoor.h"

#include <QRegularExpression>

#include "demo/Enrolment.h"
#include "demo/LeadSource.h"
#include "demo/Timeline.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/campaigns/campaignFeed.h"
#include "kit/models/campaigns/leadChanges.h"
#include "kit/models/campaigns/leadStatus.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qint64 mostPerPage = 500;

bool looksLikeAddress(const QString& email) {
  static const QRegularExpression pattern(uR"(\A[^\s@]+@[^\s@]+\.[^\s@]+\z)"_s);
  return pattern.match(email).hasMatch();
}

}  // namespace

std::optional<HTTPAnswer> LeadDoor::answer(const DemoRequest& request, const QStringList& parts) {
  if (parts.value(0) != "leads"_L1) return std::nullopt;
  enrol(m_campaign, m_context.now);
  purge();
  const QString call = QString::fromLatin1(request.method) + u' ' + parts.mid(1).join(u'/');
  if (call == "GET "_L1) return list(request);
  if (call == "POST "_L1) return add(request);
  if (call == "POST restore"_L1) return restore(request);
  if (call == "POST move"_L1) return move(request);
  if (call == "POST bulk"_L1) return bulk(request);
  if (parts.size() != 2) return std::nullopt;
  CampaignLead* lead = findLead(m_campaign, parts[1]);
  if (!lead) return problemAnswer(404, u"not_found"_s, u"This lead is no longer in the campaign"_s);
  return one(request, *lead);
}

std::optional<HTTPAnswer> LeadDoor::one(const DemoRequest& request, CampaignLead& lead) {
  if (request.method == "GET") return detail(lead);
  if (request.method == "PATCH") return edit(request, lead);
  if (request.method == "DELETE") return remove(lead, request.query.queryItemValue(u"permanent"_s) == "1"_L1);
  return std::nullopt;
}

/// The cursor is the last lead given, so that leads added or removed between two pages shift nothing.
HTTPAnswer LeadDoor::list(const DemoRequest& request) const {
  const qint64 limit = std::clamp<qint64>(request.query.queryItemValue(u"limit"_s).toLongLong(), 1, mostPerPage);
  const QString status = request.query.queryItemValue(u"status"_s);
  const QString cursor = request.query.queryItemValue(u"cursor"_s, QUrl::FullyDecoded);
  const bool archived = request.query.queryItemValue(u"archived"_s) == "1"_L1;
  if (!cursor.isEmpty() && !findLead(m_campaign, cursor))
    return invalid(u"This page is gone. Load the list again."_s, u"cursor"_s);

  LeadPage page;
  page.counts.emplace();
  page.archivedCount = 0;
  bool reached = cursor.isEmpty();
  for (const CampaignLead& lead : std::as_const(m_campaign.leads)) {
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

HTTPAnswer LeadDoor::add(const DemoRequest& request) {
  auto source = readSource(m_context, request.body);
  if (!source) return invalid(u"There is nobody to add here."_s, u"source"_s);
  AddLeadsResult result;
  result.columns = source->columns;
  const QSet<QString> here = addressesIn(m_campaign),
                      elsewhere = source->onlyNew ? addressesElsewhere() : QSet<QString>();
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
    else if (m_context.workspace.blocklist.contains(lead.email))
      ++skipped.suppressed;
    else if (here.contains(lead.email))
      ++skipped.alreadyInCampaign;
    else if (elsewhere.contains(lead.email))
      ++skipped.inOtherCampaign;
    else {
      ++result.added;
      enter(lead);
    }
  }
  settle();
  result.total = m_campaign.stats().leads.total;
  return jsonAnswer(toJSON(result));
}

HTTPAnswer LeadDoor::detail(const CampaignLead& lead) const {
  LeadDetail detail;
  detail.lead = lead;
  const qint64 steps = m_campaign.steps().size();
  detail.steps = steps;
  const qint64 next = lead.currentStep.value_or(0) + 1;
  if (lead.status.isActive() && next <= steps) detail.next = {next, lead.nextSendAt};
  detail.activity = activityOf(m_campaign, lead);
  return jsonAnswer(toJSON(detail));
}

HTTPAnswer LeadDoor::edit(const DemoRequest& request, CampaignLead& lead) {
  const auto body = bodyOf<LeadPatchBody>(request);
  if (!body) return invalid(u"This change can’t be read."_s, u"data"_s);
  for (const auto& [name, value] : body->data.asKeyValueRange()) {
    // Another address is another person.
    if (name == "email"_L1) return invalid(u"The address of a lead stays as it is."_s, u"data.email"_s);
    setLeadField(lead, name, value);
  }
  return jsonAnswer(toJSON(lead));
}

HTTPAnswer LeadDoor::remove(CampaignLead& lead, bool permanent) {
  if (permanent)
    m_campaign.leads.removeIf([id = lead.id](const CampaignLead& other) { return other.id == id; });
  else
    act(u"remove"_s, lead);
  settle();
  return emptyAnswer();
}

HTTPAnswer LeadDoor::restore(const DemoRequest& request) {
  const auto body = bodyOf<LeadIdsBody>(request);
  if (!body) return invalid(u"Choose the leads to restore."_s, u"leadIds"_s);
  RestoredResult result;
  for (const QString& id : body->leadIds) {
    CampaignLead* lead = findLead(m_campaign, id);
    if (!lead || !std::exchange(lead->removedAt, std::nullopt)) continue;
    note(u"restored"_s, *lead);
    ++result.restored;
  }
  settle();
  return jsonAnswer(toJSON(result));
}

HTTPAnswer LeadDoor::move(const DemoRequest& request) {
  const auto body = bodyOf<MoveLeadsBody>(request);
  DemoCampaign* target = body ? m_context.workspace.find(body->toCampaignId) : nullptr;
  if (!body || !target || target == &m_campaign || target->archivedAt)
    return invalid(u"Choose another campaign to move the leads to."_s, u"toCampaignId"_s);
  enrol(*target, m_context.now);
  LeadDoor there(m_context, *target);
  QSet<QString> taken = addressesIn(*target);
  MoveResult result;
  for (const QString& id : body->leadIds) {
    const CampaignLead* found = findLead(m_campaign, id);
    if (!found || found->removedAt || taken.contains(found->email)) {
      ++result.skipped;
      continue;
    }
    CampaignLead lead = *found;
    lead.currentStep.reset();
    lead.nextSendAt.reset();
    m_campaign.leads.removeIf([&id](const CampaignLead& other) { return other.id == id; });
    taken.insert(lead.email);
    there.enter(lead);
    ++result.moved;
  }
  settle();
  there.settle();
  return jsonAnswer(toJSON(result));
}

HTTPAnswer LeadDoor::bulk(const DemoRequest& request) {
  static const QStringList actions{u"pause"_s, u"resume"_s, u"stop"_s, u"remove"_s};
  const auto body = bodyOf<BulkLeadsBody>(request);
  if (!body || !actions.contains(body->action)) return invalid(u"Choose what to do with the leads."_s, u"action"_s);
  BulkResult result;
  for (const QString& id : body->leadIds) {
    CampaignLead* lead = findLead(m_campaign, id);
    ++(lead && act(body->action, *lead) ? result.changed : result.skipped);
  }
  settle();
  return jsonAnswer(toJSON(result));
}

/// False when the action means nothing for this lead.
bool LeadDoor::act(const QString& action, CampaignLead& lead) {
  if (lead.removedAt) return false;
  const QString status = lead.status.rawValue;
  const bool open = status == "active"_L1 || status == "queued"_L1;
  if (action == "remove"_L1)
    lead.removedAt = m_context.stamp();
  else if (action == "pause"_L1 && open)
    lead.status = LeadStatus(u"paused"_s);
  else if (action == "resume"_L1 && status == "paused"_L1 && !m_campaign.record.status.isPaused())
    lead.status = LeadStatus(openStatus(m_campaign));
  else if (action == "stop"_L1 && (open || status == "paused"_L1)) {
    lead.status = LeadStatus(u"stopped"_s);
    lead.stopReason = u"manual"_s;
  } else {
    return false;
  }
  if (!lead.status.isActive()) lead.nextSendAt.reset();
  note(action, lead);
  return true;
}

QSet<QString> LeadDoor::addressesElsewhere() const {
  QSet<QString> addresses;
  for (const DemoCampaign& campaign : std::as_const(m_context.workspace.campaigns))
    if (campaign.record.id != m_campaign.record.id) addresses.unite(addressesIn(campaign));
  return addresses;
}

void LeadDoor::enter(CampaignLead lead) {
  lead.status = LeadStatus(openStatus(m_campaign));
  lead.enrolledAt = m_context.stamp();
  m_campaign.leads.append(lead);
  note(u"added"_s, lead);
}

void LeadDoor::note(const QString& kind, const CampaignLead& lead) {
  FeedItem item;
  item.kind = kind;
  item.at = m_context.stamp();
  item.lead = whoIs(lead);
  m_campaign.events.append(item);
}

/// After any change to who is in the campaign or how far they are.
void LeadDoor::settle() {
  recount(m_campaign);
  if (m_campaign.record.qc) m_campaign.record.qc->current = false;
}

void LeadDoor::purge() {
  const auto gone = [this](const CampaignLead& lead) { return isOverdue(lead.removedAt, m_context.now); };
  if (m_campaign.leads.removeIf(gone) > 0) recount(m_campaign);
}

}  // namespace orv::demo
