#pragma once

#include "demo/Door.h"
#include "kit/models/campaigns/campaignLead.h"

namespace orv::demo {

/// The requests about the leads of one campaign.
class LeadDoor {
 public:
  LeadDoor(DoorContext& context, DemoCampaign& campaign) : m_context(context), m_campaign(campaign) {}

  /// `parts` is the path below the campaign. Nothing when there is no such call.
  std::optional<HTTPAnswer> answer(const DemoRequest& request, const QStringList& parts);

 private:
  std::optional<HTTPAnswer> one(const DemoRequest& request, CampaignLead& lead);
  HTTPAnswer list(const DemoRequest& request) const;
  HTTPAnswer add(const DemoRequest& request);
  HTTPAnswer detail(const CampaignLead& lead) const;
  HTTPAnswer edit(const DemoRequest& request, CampaignLead& lead);
  HTTPAnswer remove(CampaignLead& lead, bool permanent);
  HTTPAnswer restore(const DemoRequest& request);
  HTTPAnswer move(const DemoRequest& request);
  HTTPAnswer bulk(const DemoRequest& request);

  bool act(const QString& action, CampaignLead& lead);
  QSet<QString> addressesElsewhere() const;
  void enter(CampaignLead lead);
  void note(const QString& kind, const CampaignLead& lead);
  void settle();
  void purge();

  DoorContext& m_context;
  DemoCampaign& m_campaign;
};

}  // namespace orv::demo
