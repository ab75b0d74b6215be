#pragma once

#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/base/TableSort.h"
#include "kit/models/deliverability/deliverabilityReport.h"

namespace orv {

/// An inbox in the table.
struct DeliverabilityRow {
  QString id;
  QString address;
  QString brand;
  QString stageLabel;
  QString stageTone;
  QString rateText;
  bool rateLow = false;
  QString checksText;
  QString checkCount;
  QString gmailText;
  QString outlookText;
  QString verdict;
  QString reason;
  bool operator==(const DeliverabilityRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeliverabilityRow, (),
                      (id, address, brand, stageLabel, stageTone, rateText, rateLow, checksText, checkCount, gmailText,
                       outlookText, verdict, reason))
ORV_DECLARE_ROW(DeliverabilityRow)

class DeliverabilityRows final : public RecordModel<DeliverabilityRow> {
 public:
  using RecordModel::RecordModel;
};

/// Which of the inboxes the table shows, and in which order.
struct DeliverabilityQuery {
  /// A tab's group; empty for every inbox.
  QString stage;
  std::optional<OrvSort> sort;
};
std::vector<DeliverabilityRow> rowsOf(const QList<DeliverabilityInbox>& inboxes, const DeliverabilityQuery& query);

}  // namespace orv
