#pragma once

#include <QByteArray>
#include <span>

#include "kit/models/analytics/analyticsSummary.h"

namespace orv {

/// The tables as comma-separated files, a line a row in the given order. Words are the service's own. Figures that the
/// service does not have (tracking off) are empty fields.
QByteArray campaignsCsv(std::span<const AnalyticsSummary::CampaignRow> rows);
QByteArray accountsCsv(std::span<const AnalyticsSummary::AccountRow> rows);

}  // namespace orv
