#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"
#include "kit/models/campaigns/leadStatus.h"

namespace orv {

struct AddLeadsBody;
struct AddLeadsResult;
struct BulkLeadsBody;
struct BulkResult;
struct CampaignLead;
struct LeadDetail;
struct LeadIdsBody;
struct LeadPage;
struct LeadPatchBody;
struct MoveLeadsBody;
struct MoveResult;
struct RestoredResult;

namespace Requests {

/// What part of a campaign's leads a page holds.
struct LeadQuery {
  qint64 limit = 50;
  std::optional<LeadStatus> status;
  bool archived = false;
  std::optional<QString> cursor;
};

Request<LeadPage> listLeads(const QString& id, const LeadQuery& query);
Request<AddLeadsResult> addLeads(const QString& id, const AddLeadsBody& body);
Request<LeadDetail> leadDetail(const QString& id, const QString& leadId);
Request<CampaignLead> editLeadData(const QString& id, const QString& leadId, const LeadPatchBody& body);
Request<Empty> removeLead(const QString& id, const QString& leadId, bool permanent);
Request<RestoredResult> restoreLeads(const QString& id, const LeadIdsBody& body);
Request<MoveResult> moveLeads(const QString& id, const MoveLeadsBody& body);
Request<BulkResult> bulkLeads(const QString& id, const BulkLeadsBody& body);

}  // namespace Requests
}  // namespace orv
