#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct FacetPage;
struct LeadPools;
struct LeadRecord;
struct LeadSearch;
struct LeadSearchPage;
struct LeadTotals;
struct OwnLeads;
struct OwnLeadsBody;
struct SavedSearchBody;
struct SavedSearchList;
struct UnlockBody;
struct UnlockResult;
struct UnlockUsage;

namespace Requests {

/// The first page, or the one that continues with the cursor.
Request<LeadSearchPage> searchLeads(const LeadSearch& search, const std::optional<QString>& cursor = {});
Request<LeadPools> leadPools(const LeadSearch& search);
/// The values of one field in one database ("all" for both) that hold what was typed. The other filters do not count.
Request<FacetPage> leadFacets(const QString& field, const QString& database, const QString& typed = {});
Request<LeadTotals> leadTotals();
Request<LeadRecord> getLead(const QString& id);

Request<SavedSearchList> savedSearches(bool archived);
/// One of the same name is replaced.
Request<Empty> saveSearch(const SavedSearchBody& body);
/// Archives, or deletes for good.
Request<Empty> deleteSavedSearch(const QString& id, bool permanent);
Request<Empty> restoreSavedSearch(const QString& id);

Request<UnlockUsage> unlockUsage();
/// Uses up the allowance, or costs credits.
Request<UnlockResult> unlockLeads(const UnlockBody& body);
/// Asks for the ids of leads that the workspace has already; changes nothing, though it is a POST.
Request<OwnLeads> ownLeads(const OwnLeadsBody& body);

}  // namespace Requests
}  // namespace orv
