#pragma once

#include "demo/DemoState.h"
#include "kit/models/analytics.h"

namespace orv::demo {

/// Figures of the campaigns between two dates. Days add up to the rows and rows to the totals, and a range that covers
/// a campaign's whole life gives the campaign's own figures.
AnalyticsSummary analyticsOf(const QList<const DemoCampaign*>& campaigns, const QDate& from, const QDate& to,
                             const QDate& today, const QString& timeZone);

}  // namespace orv::demo
