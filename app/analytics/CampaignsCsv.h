#pragma once

#include <QByteArray>
#include <QList>

#include "kit/models/analytics.h"

namespace orv {

/// The table of campaigns as a comma-separated file, a line a row in the given order.
/// Figures that the service does not have (tracking off) are empty fields.
QByteArray campaignsCsv(const QList<AnalyticsSummary::CampaignRow>& rows);

}  // namespace orv
