#include "kit/models/leads/leadRequests.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/requestBuilders.h"
#include "kit/models/leads/facets.h"
#include "kit/models/leads/leadRecord.h"
#include "kit/models/leads/leadSearch.h"
#include "kit/models/leads/ownLeads.h"
#include "kit/models/leads/savedSearch.h"
#include "kit/models/leads/unlocks.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {
namespace {

QString savedSearch(const QString& id, const QString& rest = {}) {
  return u"/lead-searches/"_s + pathSegment(id) + rest;
}

}  // namespace

Request<LeadSearchPage> searchLeads(const LeadSearch& search, const std::optional<QString>& cursor) {
  auto request = get<LeadSearchPage>(u"/leads"_s, search.query());
  const bool isFurther = cursor && !cursor->isEmpty();
  request.query.append({u"limit"_s, isFurther ? u"20"_s : u"30"_s});
  if (isFurther) request.query.append({u"cursor"_s, *cursor});
  return request;
}

Request<LeadPools> leadPools(const LeadSearch& search) {
  return get<LeadPools>(u"/leads/pools"_s, search.filterQuery());
}

Request<FacetPage> leadFacets(const QString& field, const QString& database, const QString& typed) {
  auto request =
      get<FacetPage>(u"/leads/facets"_s, {{u"field"_s, field}, {u"source"_s, database}, {u"limit"_s, u"60"_s}});
  if (!typed.isEmpty()) request.query.append({u"q"_s, typed});
  return request;
}

Request<LeadTotals> leadTotals() { return get<LeadTotals>(u"/leads/totals"_s); }

Request<LeadRecord> getLead(const QString& id) { return get<LeadRecord>(u"/leads/"_s + pathSegment(id)); }

Request<SavedSearchList> savedSearches(bool archived) {
  // Here alone a flag that is not set is sent.
  return get<SavedSearchList>(u"/lead-searches"_s, {{u"archived"_s, archived ? u"1"_s : u"0"_s}});
}

Request<Empty> saveSearch(const SavedSearchBody& body) {
  return changing<Empty>(HTTPMethod::post, u"/lead-searches"_s, encodeJSON(body));
}

Request<Empty> deleteSavedSearch(const QString& id, bool permanent) {
  auto request = changing<Empty>(HTTPMethod::del, savedSearch(id));
  addFlag(request.query, u"permanent"_s, permanent);
  return request;
}

Request<Empty> restoreSavedSearch(const QString& id) {
  return changing<Empty>(HTTPMethod::post, savedSearch(id, u"/restore"_s));
}

Request<UnlockUsage> unlockUsage() { return get<UnlockUsage>(u"/leads/unlocks"_s); }

Request<UnlockResult> unlockLeads(const UnlockBody& body) {
  auto request = changing<UnlockResult>(HTTPMethod::post, u"/leads/unlock"_s, encodeJSON(body));
  request.answerAtMost = wholeListAtMost;
  return request;
}

Request<OwnLeads> ownLeads(const OwnLeadsBody& body) {
  auto request = changing<OwnLeads>(HTTPMethod::post, u"/leads/own"_s, encodeJSON(body));
  request.answerAtMost = wholeListAtMost;
  return request;
}

}  // namespace orv::Requests
