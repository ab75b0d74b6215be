#include "app/campaigns/CampaignStore.h"

namespace orv {

CampaignStore::CampaignStore(QString id, APITransport& api, Services& services, QObject* parent)
    : Store(parent),
      m_id(std::move(id)),
      m_campaign(
          services.clock, [this, &api] { return api.send(Requests::getCampaign(m_id)); },
          [](const Campaign&) { return false; }) {
  connect(&m_campaign, &ResourceBase::changed, this, &CampaignStore::changed);
}

QString CampaignStore::name() const {
  const Campaign* campaign = m_campaign.value();
  return campaign ? campaign->name : QString();
}

void CampaignStore::ensureLoaded() {
  if (std::exchange(m_loaded, true)) return;
  m_campaign.load();
}

void CampaignStore::close() {
  m_campaign.cancel();
  Store::close();
}

}  // namespace orv
