#pragma once

#include "app/base/TableModel.h"
#include "app/base/TableSort.h"
#include "kit/models/analytics/analyticsSummary.h"

namespace orv {

/// Whether so many bounces are more than mail providers bear before they begin to distrust a sender.
constexpr bool bouncesAreHigh(qint64 bounced, qint64 sent) { return 100 * bounced > 3 * sent; }

/// The rows of a table of figures: the records and what the table says of them.
///
/// Every figure has its text; those that are shares of what was sent have their rate as well, empty where tracking is
/// off.
template <class Row>
class FigureRows final : public TableModel<FigureRows<Row>, Row> {
 public:
  using typename TableModel<FigureRows, Row>::Cells;
  using TableModel<FigureRows, Row>::TableModel;

  static const Cells& cells();
};

using CampaignFigureRows = FigureRows<AnalyticsSummary::CampaignRow>;
using AccountFigureRows = FigureRows<AnalyticsSummary::AccountRow>;

/// The rows in the order of a column; rows that have nothing there come last.
template <class Row>
std::vector<Row> inOrder(const QList<Row>& rows, const std::optional<OrvSort>& sort);

}  // namespace orv
