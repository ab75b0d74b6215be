#pragma once

#include <vector>

#include "app/base/RecordModel.h"

namespace orv {

/// Rows that say more than their records hold: `Model::cells()` is a table of what, with a name and a function for
/// each.
template <class Model, class Record>
class TableModel : public RecordModel<Record> {
 public:
  struct Cell {
    const char* name;
    QVariant (*value)(const Model& model, const Record& record);
  };
  using Cells = std::vector<Cell>;

  using RecordModel<Record>::RecordModel;

 protected:
  void addExtraRoles(QHash<int, QByteArray>& roles) const final {
    int role = firstCell;
    for (const Cell& cell : Model::cells()) roles.insert(role++, cell.name);
  }

  QVariant extraData(const Record& record, int, int role) const final {
    const auto& cells = Model::cells();
    const int at = role - firstCell;
    if (at < 0 || at >= int(cells.size())) return {};
    return cells[size_t(at)].value(static_cast<const Model&>(*this), record);
  }

 private:
  /// Beyond the fields of any record.
  static constexpr int firstCell = RecordModel<Record>::firstRole + 1000;
};

}  // namespace orv
