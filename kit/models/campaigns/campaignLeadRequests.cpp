#include "kit/models/campaigns/campaignLead.h"

#include "kit/api/JSONCodingImpl.h"
#include "kit/api/requestBuilders.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_RECORD_CODERS(CampaignLead)
ORV_RECORD_CODERS(LeadPage)
ORV_RECORD_CODERS(LeadDetail)
ORV_RECORD_CODERS(FeedPage)
ORV_RECORD_CODERS(MessagePage)
ORV_RECORD_CODERS(AddLeadsResult)
ORV_RECORD_CODERS(BulkResult)
ORV_RECORD_CODERS(MoveResult)
ORV_RECORD_CODERS(RestoredResult)
ORV_RECORD_CODERS(BulkLeadsBody)
ORV_RECORD_CODERS(MoveLeadsBody)
ORV_RECORD_CODERS(LeadIdsBody)
ORV_RECORD_CODERS(LeadPatchBody)
ORV_RECORD_CODERS(AddLeadsBody::List)
ORV_RECORD_CODERS(AddLeadsBody::Csv)
ORV_RECORD_CODERS(AddLeadsBody::Manual)
ORV_RECORD_CODERS(AddLeadsBody::Leads)

namespace Requests {
namespace {

QString lead(const QString& id, const QString& leadId) {
  return u"/campaigns/"_s + pathSegment(id) + u"/leads/"_s + pathSegment(leadId);
}

QString campaign(const QString& id, const QString& rest) { return u"/campaigns/"_s + pathSegment(id) + rest; }

QByteArray encode(const AddLeadsBody& body) {
  static const QStringList names{u"list"_s, u"csv"_s, u"manual"_s, u"leads"_s};
  QJsonObject object = std::visit([](const auto& source) { return toJSON(source); }, body.source);
  object.insert("source"_L1, names.at(qsizetype(body.source.index())));
  return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

}  // namespace

Request<LeadPage> listLeads(const QString& id, const LeadQuery& query) {
  auto request = get<LeadPage>(campaign(id, u"/leads"_s), {{u"limit"_s, QString::number(query.limit)}});
  if (query.status) request.query.append({u"status"_s, query.status->rawValue});
  addFlag(request.query, u"archived"_s, query.archived);
  addOptional(request.query, u"cursor"_s, query.cursor);
  return request;
}

Request<AddLeadsResult> addLeads(const QString& id, const AddLeadsBody& body) {
  return changing<AddLeadsResult>(HTTPMethod::post, campaign(id, u"/leads"_s), encode(body));
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
  return changing<RestoredResult>(HTTPMethod::post, campaign(id, u"/leads/restore"_s), encodeJSON(body));
}

Request<MoveResult> moveLeads(const QString& id, const MoveLeadsBody& body) {
  return changing<MoveResult>(HTTPMethod::post, campaign(id, u"/leads/move"_s), encodeJSON(body));
}

Request<BulkResult> bulkLeads(const QString& id, const BulkLeadsBody& body) {
  return changing<BulkResult>(HTTPMethod::post, campaign(id, u"/leads/bulk"_s), encodeJSON(body));
}

Request<FeedPage> campaignActivity(const QString& id, qint64 limit, std::optional<QString> cursor) {
  auto request = get<FeedPage>(campaign(id, u"/activity"_s), {{u"limit"_s, QString::number(limit)}});
  addOptional(request.query, u"cursor"_s, cursor);
  return request;
}

Request<MessagePage> campaignMessages(const QString& id) {
  return get<MessagePage>(campaign(id, u"/messages"_s), {{u"limit"_s, u"100"_s}});
}

}  // namespace Requests
}  // namespace orv
