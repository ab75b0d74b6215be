#pragma once

#include <QHash>
#include <QSet>
#include <algorithm>
#include <vector>

#include "app/base/ListModel.h"
#include "kit/api/RecordFields.h"

namespace orv {

/// A list of records for views: one role per field of the record's description, rows told apart by `id`.
///
/// update() changes as few rows as possible, so that scroll position, current row and selection survive a reload;
/// replace() is for a new question (another filter, another order), where a row's place means nothing.
template <class Record>
class RecordModel : public ListModel {
 public:
  static constexpr int firstRole = Qt::UserRole;

  using ListModel::ListModel;

  const std::vector<Record>& records() const { return m_records; }

  /// To views it is a change of order between rows that come and go at the end. After a reset they would make every
  /// row on the screen anew, which costs a keystroke in a filter its frame.
  void replace(std::vector<Record> records) {
    const int before = rowCount(), after = int(records.size());
    const int kept = std::min(before, after);
    if (after > before) {
      beginInsertRows({}, before, after - 1);
      m_records.insert(m_records.end(), std::make_move_iterator(records.begin() + kept),
                       std::make_move_iterator(records.end()));
      endInsertRows();
    }
    if (kept > 0) {
      records.resize(size_t(kept));
      reorder(records);
    }
    if (after < before) {
      beginRemoveRows({}, after, before - 1);
      m_records.resize(size_t(after));
      endRemoveRows();
    }
  }

  void update(std::vector<Record> records) {
    removeGone(records);
    int placed = 0;
    for (size_t row = 0; row < records.size(); ++row) {
      if (isAt(row, records[row].id)) {
        put(row, records[row]);
      } else if (++placed <= placedAtMost) {
        place(row, records[row]);
      } else {
        // Row by row, a whole list in another order costs its length squared.
        return replace(std::move(records));
      }
    }
  }

  /// A further page of a list that is read bit by bit; costs its own length only. None of the ids may be there already.
  void append(std::vector<Record> records) {
    if (records.empty()) return;
    beginInsertRows({}, rowCount(), rowCount() + int(records.size()) - 1);
    m_records.insert(m_records.end(), std::make_move_iterator(records.begin()), std::make_move_iterator(records.end()));
    endInsertRows();
  }

  /// Tells views to read the row again: something beside the record changed (a busy mark).
  void touch(const QString& id) {
    if (const int row = rowOf(id); row >= 0) Q_EMIT dataChanged(index(row), index(row));
  }

  /// -1 when no row has the id.
  int rowOf(const QString& id) const {
    const auto found = std::ranges::find(m_records, id, &Record::id);
    return found == m_records.end() ? -1 : int(found - m_records.begin());
  }

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : int(m_records.size()); }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Record& record = m_records[size_t(index.row())];
    const int field = role - firstRole;
    if (field >= 0 && field < fieldNames<Record>().size()) return fieldVariant(record, field);
    return extraData(record, index.row(), role);
  }

  QHash<int, QByteArray> roleNames() const override {
    QHash<int, QByteArray> roles;
    const auto& names = fieldNames<Record>();
    for (int field = 0; field < names.size(); ++field) roles.insert(firstRole + field, names[field]);
    addExtraRoles(roles);
    return roles;
  }

 protected:
  /// Roles that a list has beside the record's own fields.
  virtual void addExtraRoles(QHash<int, QByteArray>&) const {}
  virtual QVariant extraData(const Record&, int /*row*/, int /*role*/) const { return {}; }

 private:
  void removeGone(const std::vector<Record>& records) {
    QSet<QString> kept;
    kept.reserve(qsizetype(records.size()));
    for (const Record& record : records) kept.insert(record.id);
    for (int last = int(m_records.size()) - 1; last >= 0;) {
      if (kept.contains(m_records[size_t(last)].id)) {
        --last;
        continue;
      }
      int first = last;
      while (first > 0 && !kept.contains(m_records[size_t(first - 1)].id)) --first;
      beginRemoveRows({}, first, last);
      m_records.erase(m_records.begin() + first, m_records.begin() + last + 1);
      endRemoveRows();
      last = first - 1;
    }
  }

  /// The first rows become `records`; whoever holds on to a row of one of them is told where it went.
  void reorder(std::vector<Record>& records) {
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList held = persistentIndexList();
    QStringList ids;
    for (const QModelIndex& index : held) ids.append(m_records[size_t(index.row())].id);
    std::ranges::move(records, m_records.begin());
    QModelIndexList moved;
    for (const QString& id : ids) moved.append(index(rowOf(id)));
    changePersistentIndexList(held, moved);
    Q_EMIT layoutChanged({}, VerticalSortHint);
  }

  static constexpr int placedAtMost = 200;

  bool isAt(size_t row, const QString& id) const { return row < m_records.size() && m_records[row].id == id; }

  void put(size_t row, const Record& record) {
    if (m_records[row] == record) return;
    m_records[row] = record;
    Q_EMIT dataChanged(index(int(row)), index(int(row)));
  }

  /// Brings the record, known or new, to the row.
  void place(size_t row, const Record& record) {
    const auto at = m_records.begin() + qsizetype(row);
    const auto found = std::ranges::find(at, m_records.end(), record.id, &Record::id);
    const int target = int(row);
    if (found == m_records.end()) {
      beginInsertRows({}, target, target);
      m_records.insert(at, record);
      return endInsertRows();
    }
    const int current = int(found - m_records.begin());
    beginMoveRows({}, current, current, {}, target);
    std::rotate(at, found, found + 1);
    endMoveRows();
    put(row, record);
  }

  std::vector<Record> m_records;
};

}  // namespace orv
