#include "app/campaigns/CampaignRecords.h"

#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

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

QString renameKey(const QString& id) { return u"campaigns/%1/rename"_s.arg(id); }

void copyCampaignLink(Services& services, const QString& id) {
  QUrl link = services.webOrigin;
  link.setPath(u"/campaigns/"_s + id);
  services.clipboard.setText(link.toString(QUrl::FullyEncoded));
  services.toasts.success(u"Link copied"_s);
}

}  // namespace orv
