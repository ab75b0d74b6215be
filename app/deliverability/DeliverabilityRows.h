#pragma once

#include "app/base/TableModel.h"
#include "app/base/TableSort.h"
#include "kit/models/deliverability/deliverabilityReport.h"

namespace orv {

/// What the table says of the inboxes.
class DeliverabilityRows final : public TableModel<DeliverabilityRows, DeliverabilityInbox> {
 public:
  using TableModel::TableModel;
  static const Cells& cells();
};

/// Which of the inboxes the table shows, and in which order.
struct DeliverabilityQuery {
  /// A tab's group; empty for every inbox.
  QString stage;
  std::optional<OrvSort> sort;
};
std::vector<DeliverabilityInbox> rowsOf(const QList<DeliverabilityInbox>& inboxes, const DeliverabilityQuery& query);

}  // namespace orv
