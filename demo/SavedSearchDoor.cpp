#include <QJsonArray>
#include <QJsonDocument>

#include "demo/Leads.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

SavedSearch* find(Call& call) {
  settleLeads(call);
  auto& searches = call.workspace->leads.searches;
  const auto found = std::ranges::find(searches, call.ids[0], &SavedSearch::id);
  return found == searches.end() ? nullptr : &*found;
}

HTTPAnswer noSuchSearch() { return notFound(u"This search is no longer there"_s); }

/// A bare list.
HTTPAnswer list(Call& call) {
  settleLeads(call);
  SavedSearchList saved;
  for (const SavedSearch& search : std::as_const(call.workspace->leads.searches))
    if (search.archivedAt.has_value() == call.request.isSet(u"archived"_s)) saved.items.append(search);
  HTTPAnswer answer = jsonAnswer({});
  answer.body = QJsonDocument(toJSON(saved)["items"_L1].toArray()).toJson(QJsonDocument::Compact);
  return answer;
}

HTTPAnswer save(Call& call) {
  const auto body = call.request.bodyAs<SavedSearchBody>();
  if (!body || body->name.trimmed().isEmpty()) return invalid(u"Give the search a name."_s, u"name"_s);
  auto& searches = call.workspace->leads.searches;
  const QString name = body->name.trimmed();
  const auto known = std::ranges::find_if(
      searches, [&name](const SavedSearch& search) { return search.name == name && !search.archivedAt; });
  if (known == searches.end())
    searches.prepend({call.random.id(u"s"_s), name, body->search, call.stamp(), {}});
  else
    *known = {known->id, name, body->search, call.stamp(), {}};
  return emptyAnswer();
}

HTTPAnswer remove(Call& call) {
  SavedSearch* search = find(call);
  if (!search) return noSuchSearch();
  if (call.request.isSet(u"permanent"_s))
    call.workspace->leads.searches.removeIf([id = search->id](const SavedSearch& one) { return one.id == id; });
  else
    search->archivedAt = call.stamp();
  return emptyAnswer();
}

HTTPAnswer restore(Call& call) {
  SavedSearch* search = find(call);
  if (!search) return noSuchSearch();
  search->archivedAt.reset();
  return emptyAnswer();
}

}  // namespace

const QList<Route>& savedSearchRoutes() {
  static const QList<Route> routes{
      {"GET", u"/lead-searches"_s, Access::readers, list},
      {"POST", u"/lead-searches"_s, Access::members, save},
      {"DELETE", u"/lead-searches/{id}"_s, Access::members, remove},
      {"POST", u"/lead-searches/{id}/restore"_s, Access::members, restore},
  };
  return routes;
}

}  // namespace orv::demo
