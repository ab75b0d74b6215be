#pragma once

#include "app/base/Listed.h"
#include "app/base/RowFields.h"
#include "app/base/TableModel.h"
#include "kit/models/leads/lead.h"

namespace orv {

/// What a row says of a lead that takes reckoning.
struct FoundLeadFacts {
  explicit FoundLeadFacts(const Lead& lead);
  QString name;
  QString place;
};

using FoundLead = Listed<Lead, FoundLeadFacts>;
ORV_DECLARE_ROW(FoundLead)

/// What tables say of leads, with a cell for each column there can be.
class FoundLeadsModel final : public TableModel<FoundLeadsModel, FoundLead> {
 public:
  using TableModel::TableModel;
  static const Cells& cells();
};

}  // namespace orv
