#pragma once

#include "demo/Door.h"
#include "kit/models/campaigns/sequence.h"

namespace orv::demo {

/// The requests about one workspace's campaigns. Those about a campaign's emails and leads have doors of their own
/// behind this one.
class CampaignDoor {
 public:
  explicit CampaignDoor(DoorContext context) : m_context(std::move(context)), m_workspace(m_context.workspace) {}

  /// `parts` is the path below the workspace. Nothing when there is no such call.
  std::optional<HTTPAnswer> answer(const DemoRequest& request, const QStringList& parts);

 private:
  std::optional<HTTPAnswer> one(const DemoRequest& request, DemoCampaign& campaign, const QStringList& below);
  HTTPAnswer list(bool archived) const;
  HTTPAnswer create(const DemoRequest& request);
  HTTPAnswer patch(const DemoRequest& request, DemoCampaign& campaign);
  HTTPAnswer launch(const DemoRequest& request, DemoCampaign& campaign);
  HTTPAnswer pause(DemoCampaign& campaign);
  HTTPAnswer duplicate(const DemoCampaign& campaign);
  HTTPAnswer archive(DemoCampaign& campaign);
  HTTPAnswer remove(const QString& id);
  HTTPAnswer restore(DemoCampaign& campaign);
  HTTPAnswer subsequences(const DemoCampaign& parent) const;
  HTTPAnswer createSubsequence(const DemoRequest& request, const DemoCampaign& parent);
  HTTPAnswer activity(const DemoRequest& request, DemoCampaign& campaign) const;
  HTTPAnswer messages(const DemoRequest& request, DemoCampaign& campaign) const;

  DemoCampaign newCampaign(const QString& name);
  void giveFreshIds(QList<CampaignStep>& steps);
  void note(const QString& kind, DemoCampaign& campaign);
  void purge();

  DoorContext m_context;
  DemoWorkspace& m_workspace;
};

}  // namespace orv::demo
