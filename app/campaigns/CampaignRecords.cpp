#include "app/campaigns/CampaignRecords.h"

#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Task<void> resume(std::shared_ptr<WorkspaceContext> context, QString id, QString told) {
  BusySet busy;
  Actions actions(*context, busy, [&context, &id] { context->changes().stale<Campaign>(id); });
  // Nothing outside the workspace was shown, so nothing of it is confirmed.
  if (co_await actions.change(id, Requests::launchCampaign(id, {false}), {})) context->services().toasts.success(told);
}

}  // namespace

void follow(CampaignSummary& row, const Campaign& campaign) {
  row.name = campaign.name;
  row.status = campaign.status;
  if (campaign.version) row.version = campaign.version;
  if (campaign.launchedAt) row.launchedAt = campaign.launchedAt;
  if (campaign.tags) row.tags = campaign.tags;
  if (campaign.senders) row.senders = campaign.senders->size();
  if (campaign.steps) row.steps = campaign.steps->size();
  if (campaign.stats) row.leads = campaign.stats->leads.total;
}

Archive<Campaign>::Requests campaignArchiveRequests() {
  return {.remove = [](const QString& id, bool forGood) { return Requests::deleteCampaign(id, forGood); },
          .restore = [](const QString& id) { return Requests::restoreCampaign(id); }};
}

std::function<void()> laterResume(WorkspaceContext& context, const QString& id, const QString& told) {
  return undo(context, [id, told](auto there) { return resume(std::move(there), id, told); });
}

QString renameKey(const QString& id) { return u"campaigns/%1/rename"_s.arg(id); }

void copyCampaignLink(Services& services, const QString& id) {
  QUrl link = services.webOrigin;
  link.setPath(u"/campaigns/"_s + id);
  services.clipboard.setText(link.toString(QUrl::FullyEncoded));
  services.toasts.success(u"Link copied"_s);
}

}  // namespace orv
