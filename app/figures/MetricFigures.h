#pragma once

#include "app/figures/Figure.h"
#include "kit/models/analytics/analyticsSummary.h"

namespace orv {

/// The summary without the opens and clicks that it holds of a time when they were tracked: whatever is made of it,
/// strip, tables, chart or file, then says the same of them.
AnalyticsSummary asTracked(AnalyticsSummary summary);

/// The totals of a range. Opens and clicks that there are none of are told to be not tracked.
QList<Figure> metricFigures(const Metrics& metrics);

}  // namespace orv
