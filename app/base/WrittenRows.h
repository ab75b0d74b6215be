#pragma once

#include "app/base/RecordModel.h"

namespace orv {

/// Rows with texts that stand as they came, whatever their length and their lines: what is read there in full, and what
/// is edited there, for a field gives back what it was given. All else is as in any row.
template <class Record>
class WrittenRows : public RecordModel<Record> {
 public:
  QVariant data(const QModelIndex& index, int role) const override {
    const int field = role - RecordModel<Record>::firstRole;
    if (!m_written.contains(field) || !this->checkIndex(index, QAbstractItemModel::CheckIndexOption::IndexIsValid))
      return RecordModel<Record>::data(index, role);
    return fieldVariant(this->records()[size_t(index.row())], field);
  }

 protected:
  /// By the names of the fields.
  explicit WrittenRows(const QByteArrayList& written, QObject* parent = nullptr) : RecordModel<Record>(parent) {
    for (const QByteArray& name : written) m_written.append(int(fieldNames<Record>().indexOf(name)));
  }

 private:
  QList<int> m_written;
};

}  // namespace orv
