#pragma once

#include "app/base/Listed.h"
#include "app/base/RowFields.h"
#include "app/base/TableModel.h"
#include "app/base/TableSort.h"
#include "kit/async/Clock.h"
#include "kit/models/leads/leadList.h"

namespace orv {

/// What lists are sorted by.
struct LeadListFacts {
  explicit LeadListFacts(const LeadList& list);
  std::optional<QDateTime> updated;
  std::optional<QDateTime> archived;
};

using LeadListRow = Listed<LeadList, LeadListFacts>;
ORV_DECLARE_ROW(LeadListRow)

/// What tables say of lists, of those in the archive as well.
class LeadListRowsModel final : public TableModel<LeadListRowsModel, LeadListRow> {
 public:
  using TableModel::TableModel;
  static const Cells& cells();

  /// Says how long ago something was.
  void setClock(Clock& clock) { m_clock = &clock; }
  bool isJustNow(const LeadListRow& row) const;
  QString when(const LeadListRow& row) const;

 private:
  Clock* m_clock = nullptr;
};

/// The order of a column; lists without its value come last either way.
std::function<bool(const LeadListRow&, const LeadListRow&)> leadListOrder(const std::optional<OrvSort>& sort);

}  // namespace orv
