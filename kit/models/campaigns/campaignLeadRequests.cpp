#include "kit/models/campaigns/campaignLeadRequests.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/requestBuilders.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/leadChanges.h"
#include "kit/models/leads/leadIds.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {
namespace {

QString leads(const QString& id, const QString& rest = {}) {
  return u"/campaigns/"_s + pathSegment(id) + u"/leads"_s + rest;
}

QString lead(const QString& id, const QString& leadId) { return leads(id, u'/' + pathSegment(leadId)); }

QByteArray encode(const AddLeadsBody& body) {
  static const QStringList names{u"list"_s, u"csv"_s, u"manual"_s, u"leads"_s};
  QJsonObject object = std::visit([](const auto& source) { return toJSON(source); }, body.source);
  object.insert("source"_L1, names.at(qsizetype(body.source.index())));
  return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

}  // namespace

Request<LeadPage> listLeads(const QString& id, const LeadQuery& query) {
  auto request = get<LeadPage>(leads(id), {{u"limit"_s, QString::number(query.limit)}});
  if (query.status) request.query.append({u"status"_s, query.status->rawValue});
  addFlag(request.query, u"archived"_s, query.archived);
  addOptional(request.query, u"cursor"_s, query.cursor);
  return request;
}

Request<AddLeadsResult> addLeads(const QString& id, const AddLeadsBody& body) {
  return changing<AddLeadsResult>(HTTPMethod::post, leads(id), encode(body));
}

Request<LeadDetail> leadDetail(const QString& id, const QString& leadId) { return get<LeadDetail>(lead(id, leadId)); }

Request<CampaignLead> editLeadData(const QString& id, const QString& leadId, const LeadPatchBody& body) {
  return changing<CampaignLead>(HTTPMethod::patch, lead(id, leadId), encodeJSON(body));
}

Request<Empty> removeLead(const QString& id, const QString& leadId, bool permanent) {
  auto request = changing<Empty>(HTTPMethod::del, lead(id, leadId));
  addFlag(request.query, u"permanent"_s, permanent);
  return request;
}

Request<RestoredResult> restoreLeads(const QString& id, const LeadIdsBody& body) {
  return changing<RestoredResult>(HTTPMethod::post, leads(id, u"/restore"_s), encodeJSON(body));
}

Request<MoveResult> moveLeads(const QString& id, const MoveLeadsBody& body) {
  return changing<MoveResult>(HTTPMethod::post, leads(id, u"/move"_s), encodeJSON(body));
}

Request<BulkResult> bulkLeads(const QString& id, const BulkLeadsBody& body) {
  return changing<BulkResult>(HTTPMethod::post, leads(id, u"/bulk"_s), encodeJSON(body));
}

}  // namespace orv::Requests
