#pragma once

#include <QVariantList>

#include "kit/models/analytics/metrics.h"

namespace orv {

/// One figure of a strip, as QML reads it: {title, value, unit, detail, warning}. `unit` follows the value in small
/// type, `warning` follows the detail; both may be empty.
QVariantMap figure(const QString& title, const QString& value, const QString& detail, const QString& unit = {},
                   const QString& warning = {});

/// The totals of a range. Opens and clicks are told to be off where tracking is, or where the service has none.
QVariantList metricFigures(const Metrics& metrics, bool tracksOpens, bool tracksClicks);

}  // namespace orv
