#pragma once

#include <QVariantList>

#include "kit/models/analytics/analyticsSummary.h"

namespace orv {

/// One figure of a strip, as QML reads it: {title, value, unit, detail, warning}. `unit` follows the value in small
/// type, `warning` follows the detail; both may be empty.
QVariantMap figure(const QString& title, const QString& value, const QString& detail, const QString& unit = {},
                   const QString& warning = {});

/// The summary without the opens and clicks that it holds of a time when they were tracked: whatever is made of it,
/// strip, tables, chart or file, then says the same of them.
AnalyticsSummary asTracked(AnalyticsSummary summary);

/// The totals of a range. Opens and clicks that there are none of are told to be not tracked.
QVariantList metricFigures(const Metrics& metrics);

}  // namespace orv
