#pragma once

#include "demo/DailyFigures.h"
#include "demo/Door.h"
#include "kit/models/analytics/analyticsOverview.h"
#include "kit/models/analytics/analyticsSummary.h"

namespace orv::demo {

/// The requests about one workspace's figures; they change nothing.
class AnalyticsDoor {
 public:
  explicit AnalyticsDoor(const DoorContext& context) : m_workspace(context.workspace), m_now(context.now) {}

  /// `parts` is the path below the workspace. Nothing when there is no such call.
  std::optional<HTTPAnswer> answer(const DemoRequest& request, const QStringList& parts) const;

 private:
  HTTPAnswer summary(const QUrlQuery& query) const;
  HTTPAnswer overview(const QUrlQuery& query) const;
  HTTPAnswer dashboard() const;

  QList<AnalyticsSummary::CampaignRow> campaignRows(const RangeFigures& figures) const;
  QList<AnalyticsSummary::AccountRow> accountRows(const RangeFigures& figures) const;
  AnalyticsSummary::Options options() const;
  AnalyticsOverview::Today today() const;
  AnalyticsOverview::Month month() const;

  const DemoWorkspace& m_workspace;
  QDateTime m_now;
};

}  // namespace orv::demo
