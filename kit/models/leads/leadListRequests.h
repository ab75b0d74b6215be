#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct CsvImportBody;
struct ExportTickedBody;
struct ImportStarted;
struct LeadIdsBody;
struct LeadImportPage;
struct LeadList;
struct LeadListPage;
struct ListAddBody;
struct ListAddResult;
struct ListCreated;
struct ListPatch;
struct ListRemoved;

namespace Requests {

Request<LeadListPage> leadLists(bool archived);
/// Fills it at once where the body says with whom.
Request<ListCreated> createLeadList(const ListAddBody& body);
Request<LeadList> updateLeadList(const QString& id, const ListPatch& patch);
/// Archives, or deletes for good.
Request<Empty> deleteLeadList(const QString& id, bool permanent);
Request<Empty> restoreLeadList(const QString& id);
Request<ListAddResult> addToLeadList(const QString& id, const ListAddBody& body);
Request<ListRemoved> removeFromLeadList(const QString& id, const LeadIdsBody& body);
/// The newest leads up to the limit, or all of them.
Request<RawData> exportLeadList(const QString& id, std::optional<qint64> limit = {});
Request<RawData> exportTickedLeads(const ExportTickedBody& body);

Request<LeadImportPage> leadImports();
Request<ImportStarted> startCsvImport(const CsvImportBody& body);
Request<Empty> cancelLeadImport(const QString& id);

}  // namespace Requests
}  // namespace orv
