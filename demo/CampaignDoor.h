#pragma once

#include "demo/DemoService.h"

namespace orv::demo {

/// The requests about one workspace's campaigns.
class CampaignDoor {
 public:
  CampaignDoor(DemoWorkspace& workspace, const QDateTime& now, DemoRandom& random)
      : m_workspace(workspace), m_now(now), m_random(random) {}

  /// `parts` is the path below the workspace. Nothing when there is no such call.
  std::optional<HTTPAnswer> answer(const DemoRequest& request, const QStringList& parts);

 private:
  HTTPAnswer list(bool archived) const;
  HTTPAnswer create(const DemoRequest& request);
  std::optional<HTTPAnswer> one(const DemoRequest& request, DemoCampaign& campaign, const QString& verb);
  HTTPAnswer patch(const DemoRequest& request, DemoCampaign& campaign);
  HTTPAnswer steps(const DemoRequest& request, DemoCampaign& campaign);
  HTTPAnswer launch(DemoCampaign& campaign);
  HTTPAnswer pause(DemoCampaign& campaign);
  HTTPAnswer duplicate(const DemoCampaign& campaign);
  HTTPAnswer archive(DemoCampaign& campaign);
  HTTPAnswer remove(const QString& id);
  HTTPAnswer restore(DemoCampaign& campaign);
  HTTPAnswer leads(const DemoRequest& request, const DemoCampaign& campaign) const;
  HTTPAnswer summary(const QUrlQuery& query) const;
  HTTPAnswer changed(DemoCampaign& campaign);
  void purge();
  QString stamp() const;

  DemoWorkspace& m_workspace;
  QDateTime m_now;
  DemoRandom& m_random;
};

}  // namespace orv::demo
