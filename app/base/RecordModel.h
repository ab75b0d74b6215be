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
  using Row = Record;
  static constexpr int firstRole = Qt::UserRole;

  using ListModel::ListModel;

  const std::vector<Record>& records() const { return m_records; }

  /// To views it is a change of order between rows that come and go at the end. After a reset they would make every
  /// row on the screen anew, which costs a keystroke in a filter its frame.
  void replace(std::vector<Record> records) {
    const int before = rowCount(), after = int(records.size());
    const int kept = std::min(before, after);
    forgetPlaces();
    if (after > before) insert(before, records, size_t(kept), size_t(after));
    if (kept > 0) {
      records.resize(size_t(kept));
      reorder(records);
    }
    if (after < before) {
      beginRemoveRows({}, after, before - 1);
      forgetPlaces();
      m_records.resize(size_t(after));
      endRemoveRows();
    }
  }

  void update(std::vector<Record> records) {
    if (m_records.empty()) return append(records);
    removeGone(records);
    QSet<QString> known;
    const auto isKnown = [this, &known](const QString& id) {
      if (known.isEmpty())
        for (const Record& record : m_records) known.insert(record.id);
      return known.contains(id);
    };
    std::vector<int> changed;
    int placed = 0;
    for (size_t row = 0; row < records.size(); ++row) {
      if (isAt(row, records[row].id)) {
        if (set(int(row), records[row])) changed.push_back(int(row));
        continue;
      }
      if (++placed > placedAtMost) {
        // Row by row, a whole list in another order costs its length squared.
        tellChanged(changed);
        return replace(std::move(records));
      }
      tellChanged(changed);
      if (isKnown(records[row].id)) {
        place(row, records[row]);
        continue;
      }
      size_t end = row + 1;
      while (end < records.size() && !isKnown(records[end].id)) ++end;
      insert(int(row), records, row, end);
      row = end - 1;
    }
    tellChanged(changed);
  }

  /// A further page of a list that is read bit by bit; costs its own length only. None of the ids may be there already.
  void append(const std::vector<Record>& records) {
    if (!records.empty()) insert(rowCount(), records, 0, records.size());
  }

  /// New values of rows that stay where they are; ids without a row are left out.
  void put(const std::vector<Record>& records) {
    std::vector<int> changed;
    for (const Record& record : records)
      if (const int row = rowOf(record.id); row >= 0 && set(row, record)) changed.push_back(row);
    tellChanged(changed);
  }

  /// Tells views to read the row again: something beside the record changed (a busy mark).
  void touch(const QString& id) {
    if (const int row = rowOf(id); row >= 0) tellChanged(row, row);
  }

  /// -1 when no row has the id.
  int rowOf(const QString& id) const {
    if (m_places.isEmpty()) {
      m_places.reserve(rowCount());
      for (int row = rowCount() - 1; row >= 0; --row) m_places.insert(m_records[size_t(row)].id, row);
    }
    return m_places.value(id, -1);
  }

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : int(m_records.size()); }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Record& record = m_records[size_t(index.row())];
    const int field = role - firstRole;
    if (field < 0 || field >= fieldNames<Record>().size()) return inRow(extraData(record, index.row(), role));
    return isKey(field) ? fieldVariant(record, field) : inRow(fieldVariant(record, field));
  }

  /// A view that looks for an id finds it without every row being asked for it.
  QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                        Qt::MatchFlags flags) const override {
    static const qsizetype idField = fieldNames<Record>().indexOf("id");
    const bool looksForId = hits == 1 && start.row() == 0 && role == firstRole + int(idField);
    if (!looksForId || flags != (Qt::MatchFixedString | Qt::MatchCaseSensitive))
      return ListModel::match(start, role, value, hits, flags);
    const auto found = std::ranges::find(m_records, value.toString(), &Record::id);
    return found == m_records.end() ? QModelIndexList() : QModelIndexList{index(int(found - m_records.begin()))};
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
      forgetPlaces();
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
    forgetPlaces();
    std::ranges::move(records, m_records.begin());
    const QHash<QString, int> rows = rowsOf(ids);
    QModelIndexList moved;
    for (const QString& id : ids) moved.append(index(rows.value(id, -1)));
    changePersistentIndexList(held, moved);
    Q_EMIT layoutChanged({}, VerticalSortHint);
  }

  /// Where few of them are now. An index of all rows, or a hash of each, would cost a keystroke in a filter its frame.
  QHash<QString, int> rowsOf(QStringList ids) const {
    ids.removeDuplicates();
    QHash<QString, int> rows;
    for (int row = 0; row < rowCount() && rows.size() < ids.size(); ++row)
      if (const QString& id = m_records[size_t(row)].id; ids.contains(id) && !rows.contains(id)) rows.insert(id, row);
    return rows;
  }

  static constexpr int placedAtMost = 200;

  bool isAt(size_t row, const QString& id) const { return row < m_records.size() && m_records[row].id == id; }

  /// Takes the value without telling; true when it is another one.
  bool set(int row, const Record& record) {
    Record& known = m_records[size_t(row)];
    if (known == record) return false;
    known = record;
    return true;
  }

  void tellChanged(int first, int last) {
    // A row stands for the same record as before: views that tell rows apart by id need not look again.
    if (m_valueRoles.isEmpty()) {
      m_valueRoles = roleNames().keys();
      m_valueRoles.removeOne(roleNames().key("id", -1));
    }
    Q_EMIT dataChanged(index(first), index(last), m_valueRoles);
  }

  /// At once where most of the rows between them have changed: views look at every telling.
  void tellChanged(std::vector<int>& rows) {
    if (rows.empty()) return;
    std::ranges::sort(rows);
    if (2 * int(rows.size()) > rows.back() - rows.front()) {
      tellChanged(rows.front(), rows.back());
    } else {
      for (const int row : rows) tellChanged(row, row);
    }
    rows.clear();
  }

  void insert(int row, const std::vector<Record>& from, size_t first, size_t end) {
    beginInsertRows({}, row, row + int(end - first) - 1);
    const bool isAtEnd = row == rowCount();
    if (isAtEnd && !m_places.isEmpty())
      for (size_t at = first; at < end; ++at) m_places.insert(from[at].id, row + int(at - first));
    else
      forgetPlaces();
    m_records.insert(m_records.begin() + row, from.begin() + qsizetype(first), from.begin() + qsizetype(end));
    endInsertRows();
  }

  /// Brings the record to the row from where it stands further down.
  void place(size_t row, const Record& record) {
    const auto at = m_records.begin() + qsizetype(row);
    const auto found = std::ranges::find(at, m_records.end(), record.id, &Record::id);
    const int target = int(row), current = int(found - m_records.begin());
    beginMoveRows({}, current, current, {}, target);
    forgetPlaces();
    std::rotate(at, found, found + 1);
    endMoveRows();
    if (set(target, record)) tellChanged(target, target);
  }

  void forgetPlaces() { m_places.clear(); }

  /// What actions are called by, and so goes back as it came.
  static bool isKey(int field) {
    const QByteArray& name = fieldNames<Record>()[field];
    return name == "id" || name.endsWith("Id");
  }

  std::vector<Record> m_records;
  /// The row of every id, from when it is first asked for until rows move.
  mutable QHash<QString, int> m_places;
  QList<int> m_valueRoles;
};

}  // namespace orv
