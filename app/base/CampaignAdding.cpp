#include "app/base/CampaignAdding.h"

#include "kit/api/Format.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/leads/leadRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// The service takes this many ids in one request.
constexpr qsizetype blockSize = 1000;

}  // namespace

void leadsCameTo(WorkspaceContext& workspace, const QString& campaignId) {
  workspace.changes().stale<AddedLeads>(campaignId);
  workspace.changes().stale<Campaign>(campaignId);
}

Task<qsizetype> addOwnLeads(Job* job, QString campaignId, OwnLeadsBody whom, bool allowOtherCampaigns,
                            std::function<void(const AddLeadsResult&)> took) {
  job->setStage(u"Looking up your leads…"_s);
  APITransport& api = job->context().api();
  const OwnLeads own = co_await api.send(Requests::ownLeads(whom));
  const qsizetype all = own.ids.size();
  for (qsizetype at = 0; at < all; at += blockSize) {
    job->setStage(Format::grouped(at) + u" of "_s + Format::counted(all, u"lead"_s, u"leads"_s) + u" sent"_s, at, all);
    const AddLeadsBody::Leads block{own.ids.mid(at, blockSize), allowOtherCampaigns};
    took(co_await api.send(Requests::addLeads(campaignId, {block})));
  }
  co_return all;
}

}  // namespace orv
