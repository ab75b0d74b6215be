#include "demo/Leads.h"
#include "kit/models/leads/leadExport.h"
#include "kit/models/leads/leadIds.h"
#include "kit/models/leads/listAdding.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// More are added in the background.
constexpr qint64 addedAtOnce = 5'000;

HTTPAnswer lists(Call& call) {
  settleLeads(call);
  LeadListPage page;
  for (const DemoLeadList& list : std::as_const(call.workspace->lists))
    if (list.record.archivedAt.has_value() == call.request.isSet(u"archived"_s)) page.items.append(list.shown());
  return jsonAnswer(toJSON(page));
}

HTTPAnswer noSuchList() { return notFound(u"This list is no longer there"_s); }

template <HTTPAnswer (*answer)(Call&, DemoLeadList&)>
HTTPAnswer onList(Call& call) {
  settleLeads(call);
  DemoLeadList* list = call.workspace->findList(call.ids[0]);
  return list ? answer(call, *list) : noSuchList();
}

/// In another list, in a campaign.
bool isToBeSkipped(const Call& call, const DemoLeadList& list, const ListAddBody& body, LeadPlace lead,
                   const QSet<QString>& enrolled) {
  const auto& lists = call.workspace->lists;
  if (body.skipInLists && std::ranges::any_of(lists, [&](const DemoLeadList& other) {
        return other.id() != list.id() && !other.record.archivedAt && other.has.contains(lead);
      }))
    return true;
  return body.skipInCampaigns && enrolled.contains(call.workspace->leads.at(lead).id);
}

QSet<QString> enrolledIn(const DemoWorkspace& workspace) {
  QSet<QString> ids;
  for (const DemoCampaign& campaign : workspace.campaigns)
    for (const CampaignLead& lead : campaign.leads)
      if (!lead.removedAt) ids.insert(lead.id);
  return ids;
}

ListAddResult fill(Call& call, DemoLeadList& list, const ListAddBody& body, const QList<LeadPlace>& target) {
  const QSet<QString> enrolled = body.skipInCampaigns ? enrolledIn(*call.workspace) : QSet<QString>();
  ListAddResult result;
  QList<LeadPlace> adding;
  for (const LeadPlace lead : target) {
    if (list.has.contains(lead))
      ++result.already;
    else if (isToBeSkipped(call, list, body, lead, enrolled))
      ++result.skipped;
    else
      adding.append(lead);
  }
  result.added = std::min<qint64>(adding.size(), addedAtOnce);
  result.queued = adding.size() - result.added;
  // The last one in is the first of the list.
  for (qint64 at = result.added; at-- > 0;) list.add(adding[at]);
  if (result.queued > 0) {
    adding.remove(0, result.added);
    list.queued = adding + list.queued;
    list.queuedSince = call.now;
  }
  list.record.updatedAt = call.stamp();
  result.leadCount = list.members.size();
  return result;
}

/// What there is to say against a list that is made or filled.
std::optional<HTTPAnswer> refusalOf(const ListAddBody& body, const std::optional<QList<LeadPlace>>& target) {
  const bool isFilled = body.leadIds || body.filter;
  if (isFilled && !target) return invalid(u"A whole number from 1 to 100,000"_s, u"limit"_s);
  return std::nullopt;
}

HTTPAnswer create(Call& call) {
  settleLeads(call);
  const auto body = call.request.bodyAs<ListAddBody>();
  const QString name = body ? body->name.value_or(QString()).trimmed() : QString();
  if (name.isEmpty()) return invalid(u"Give the list a name"_s, u"name"_s);
  const auto target = targetOf(call, body->leadIds, body->filter, body->limit);
  if (auto refusal = refusalOf(*body, target)) return *refusal;
  DemoLeadList& list = addList(*call.workspace, call.random, name, callerName(call), call.stamp());
  list.record.description = body->description;
  ListAddResult filled;
  if (target) filled = fill(call, list, *body, *target);
  return jsonAnswer(toJSON(ListCreated{list.shown(), filled.added, filled.already, filled.skipped, filled.queued}));
}

HTTPAnswer add(Call& call, DemoLeadList& list) {
  const auto body = call.request.bodyAs<ListAddBody>();
  if (!body || (!body->leadIds && !body->filter)) return invalid(u"Say which leads to add."_s, u"leadIds"_s);
  if (list.record.archivedAt) return noSuchList();
  const auto target = targetOf(call, body->leadIds, body->filter, body->limit);
  if (auto refusal = refusalOf(*body, target)) return *refusal;
  return jsonAnswer(toJSON(fill(call, list, *body, *target)));
}

HTTPAnswer update(Call& call, DemoLeadList& list) {
  const auto patch = call.request.bodyAs<ListPatch>();
  if (!patch || (patch->name && patch->name->trimmed().isEmpty())) return invalid(u"Give the list a name"_s, u"name"_s);
  if (patch->name) list.record.name = patch->name->trimmed();
  if (patch->description) list.record.description = patch->description;
  list.record.updatedAt = call.stamp();
  return jsonAnswer(toJSON(list.shown()));
}

HTTPAnswer remove(Call& call, DemoLeadList& list) {
  if (call.request.isSet(u"permanent"_s))
    call.workspace->lists.removeIf([id = list.id()](const DemoLeadList& one) { return one.id() == id; });
  else
    list.record.archivedAt = call.stamp();
  return emptyAnswer();
}

HTTPAnswer restore(Call&, DemoLeadList& list) {
  list.record.archivedAt.reset();
  return emptyAnswer();
}

HTTPAnswer takeOut(Call& call, DemoLeadList& list) {
  const auto body = call.request.bodyAs<LeadIdsBody>();
  if (!body) return invalid(u"Choose the leads to remove."_s, u"leadIds"_s);
  ListRemoved result;
  for (const QString& id : body->leadIds)
    if (const auto place = call.workspace->leads.placeOf(id)) result.removed += list.remove(*place);
  list.record.updatedAt = call.stamp();
  result.leadCount = list.members.size();
  return jsonAnswer(toJSON(result));
}

QByteArray csvLine(const QStringList& fields) {
  QStringList quoted;
  for (QString field : fields) {
    const bool isPlain = !field.contains(u',') && !field.contains(u'"') && !field.contains(u'\n');
    quoted.append(isPlain ? field : u'"' + field.replace(u'"', u"\"\""_s) + u'"');
  }
  return quoted.join(u',').toUtf8() + '\n';
}

/// Who is locked has no address in the file.
HTTPAnswer csvOf(const Call& call, const QList<LeadPlace>& places) {
  const WorkspaceLeads& leads = call.workspace->leads;
  QByteArray csv = csvLine({u"email"_s, u"first_name"_s, u"last_name"_s, u"title"_s, u"company"_s, u"website"_s,
                            u"industry"_s, u"country"_s, u"city"_s, u"phone"_s, u"verification"_s});
  for (const LeadPlace place : places) {
    const LeadRecord lead = leads.at(place);
    const bool isOurs = leads.has(place);
    const auto text = [](const std::optional<QString>& field) { return field.value_or(QString()); };
    csv += csvLine({isOurs ? lead.email : QString(), text(lead.firstName), text(lead.lastName), text(lead.title),
                    text(lead.company), text(lead.website), text(lead.industry), text(lead.country), text(lead.city),
                    isOurs ? text(lead.phone) : QString(), lead.verification.rawValue});
  }
  return {200, {{"Content-Type", "text/csv; charset=utf-8"}}, csv};
}

HTTPAnswer exportList(Call& call) {
  settleLeads(call);
  const DemoLeadList* list = call.workspace->findList(call.request.value(u"list"_s));
  if (!list) return noSuchList();
  const QString limit = call.request.value(u"limit"_s);
  const qint64 most = limit.isEmpty() ? list->members.size() : limit.toLongLong();
  if (most < 1 && !limit.isEmpty()) return invalid(u"Say how many leads."_s, u"limit"_s);
  QList<LeadPlace> places;
  for (auto member = list->members.crbegin(); member != list->members.crend() && places.size() < most; ++member)
    places.append(member->lead);
  return csvOf(call, places);
}

HTTPAnswer exportTicked(Call& call) {
  settleLeads(call);
  const auto body = call.request.bodyAs<ExportTickedBody>();
  const DemoLeadList* list = body ? call.workspace->findList(body->list) : nullptr;
  if (!list) return body ? noSuchList() : invalid(u"Choose the leads to export."_s, u"leadIds"_s);
  QList<LeadPlace> places;
  for (const QString& id : body->leadIds)
    if (const auto place = call.workspace->leads.placeOf(id); place && list->has.contains(*place))
      places.append(*place);
  return csvOf(call, places);
}

}  // namespace

const QList<Route>& leadListRoutes() {
  static const QList<Route> routes{
      {"GET", u"/lead-lists"_s, Access::readers, lists},
      {"POST", u"/lead-lists"_s, Access::members, create},
      {"PATCH", u"/lead-lists/{id}"_s, Access::members, onList<update>},
      {"DELETE", u"/lead-lists/{id}"_s, Access::members, onList<remove>},
      {"POST", u"/lead-lists/{id}/restore"_s, Access::members, onList<restore>},
      {"POST", u"/lead-lists/{id}/leads"_s, Access::members, onList<add>},
      {"DELETE", u"/lead-lists/{id}/leads"_s, Access::members, onList<takeOut>},
      {"GET", u"/leads/export.csv"_s, Access::readers, exportList},
      // A file, and no change.
      {"POST", u"/leads/export.csv"_s, Access::readers, exportTicked},
  };
  return routes;
}

}  // namespace orv::demo
