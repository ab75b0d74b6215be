#include "kit/models/leads/leadListRequests.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/requestBuilders.h"
#include "kit/models/leads/leadExport.h"
#include "kit/models/leads/leadIds.h"
#include "kit/models/leads/leadImport.h"
#include "kit/models/leads/listAdding.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {
namespace {

QString leadList(const QString& id, const QString& rest = {}) { return u"/lead-lists/"_s + pathSegment(id) + rest; }

}  // namespace

Request<LeadListPage> leadLists(bool archived) {
  auto request = get<LeadListPage>(u"/lead-lists"_s);
  addFlag(request.query, u"archived"_s, archived);
  return request;
}

Request<ListCreated> createLeadList(const ListAddBody& body) {
  return changing<ListCreated>(HTTPMethod::post, u"/lead-lists"_s, encodeJSON(body));
}

Request<LeadList> updateLeadList(const QString& id, const ListPatch& patch) {
  return changing<LeadList>(HTTPMethod::patch, leadList(id), encodeJSON(patch));
}

Request<Empty> deleteLeadList(const QString& id, bool permanent) {
  auto request = changing<Empty>(HTTPMethod::del, leadList(id));
  addFlag(request.query, u"permanent"_s, permanent);
  return request;
}

Request<Empty> restoreLeadList(const QString& id) {
  return changing<Empty>(HTTPMethod::post, leadList(id, u"/restore"_s));
}

Request<ListAddResult> addToLeadList(const QString& id, const ListAddBody& body) {
  return changing<ListAddResult>(HTTPMethod::post, leadList(id, u"/leads"_s), encodeJSON(body));
}

Request<ListRemoved> removeFromLeadList(const QString& id, const LeadIdsBody& body) {
  return changing<ListRemoved>(HTTPMethod::del, leadList(id, u"/leads"_s), encodeJSON(body));
}

Request<RawData> exportLeadList(const QString& id, std::optional<qint64> limit) {
  auto request = get<RawData>(u"/leads/export.csv"_s, {{u"list"_s, id}});
  if (limit) request.query.append({u"limit"_s, QString::number(*limit)});
  request.answerAtMost = fileAtMost;
  return request;
}

Request<RawData> exportTickedLeads(const ExportTickedBody& body) {
  auto request = changing<RawData>(HTTPMethod::post, u"/leads/export.csv"_s, encodeJSON(body));
  request.answerAtMost = fileAtMost;
  return request;
}

Request<LeadImportPage> leadImports() { return get<LeadImportPage>(u"/lead-imports"_s); }

Request<ImportStarted> startCsvImport(const CsvImportBody& body) {
  return changing<ImportStarted>(HTTPMethod::post, u"/lead-imports/csv"_s, encodeJSON(body));
}

Request<Empty> cancelLeadImport(const QString& id) {
  return changing<Empty>(HTTPMethod::post, u"/lead-imports/"_s + pathSegment(id) + u"/cancel"_s);
}

}  // namespace orv::Requests
