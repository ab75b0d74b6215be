#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct AnalyticsOverview;
struct AnalyticsSummary;
struct Dashboard;
struct WarmupHealth;

namespace Requests {

/// Figures from one date to another ("%04d-%02d-%02d"), of one campaign, mailbox or tag when it is given.
Request<AnalyticsSummary> analyticsSummary(const QString& from, const QString& to,
                                           const std::optional<QString>& campaign = {},
                                           const std::optional<QString>& mailbox = {},
                                           const std::optional<QString>& tag = {});
/// Today, and the figures from one date to another, of this workspace.
Request<AnalyticsOverview> analyticsOverview(const QString& from, const QString& to);
Request<WarmupHealth> warmupHealth();
Request<Dashboard> dashboard();

}  // namespace Requests
}  // namespace orv
