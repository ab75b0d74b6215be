#include "ui/design/TableLayout.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVariant>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto columnsName = "columns"_L1, widthName = "width"_L1, shownName = "shown"_L1, orderName = "order"_L1,
           sortName = "sort"_L1, keyName = "key"_L1, descendingName = "descending"_L1;

}  // namespace

void TableLayout::setTable(const QString& table) {
  if (table == m_table) return;
  m_table = table;
  load();
}

void TableLayout::setMemory(TableMemory* memory) {
  if (memory == m_memory) return;
  m_memory = memory;
  load();
}

void TableLayout::setWidth(const QString& column, int width) {
  if (m_widths.value(column) == width) return;
  m_widths.insert(column, width);
  save();
}

QVariant TableLayout::shown(const QString& column) const {
  const auto said = m_shown.constFind(column);
  return said == m_shown.cend() ? QVariant() : QVariant(*said);
}

void TableLayout::setShown(const QString& column, bool shown) {
  if (const auto said = m_shown.constFind(column); said != m_shown.cend() && *said == shown) return;
  m_shown.insert(column, shown);
  save();
}

QStringList TableLayout::arranged(const QStringList& declared) const {
  QStringList keys;
  for (const QString& key : m_order)
    if (declared.contains(key)) keys.append(key);
  for (qsizetype i = 0; i < declared.size(); ++i) {
    if (keys.contains(declared[i])) continue;
    keys.insert(i == 0 ? 0 : keys.indexOf(declared[i - 1]) + 1, declared[i]);
  }
  return keys;
}

void TableLayout::move(const QStringList& declared, const QString& column, const QString& before) {
  if (column == before || !declared.contains(column)) return;
  QStringList keys = arranged(declared);
  keys.removeOne(column);
  const qsizetype place = keys.indexOf(before);
  keys.insert(place < 0 ? keys.size() : place, column);
  if (keys == arranged(declared)) return;
  m_order = keys;
  save();
}

void TableLayout::setSort(const QString& column, bool descending) {
  if (column == m_sortKey && descending == m_sortDescending) return;
  m_sortKey = column;
  m_sortDescending = descending;
  save();
}

void TableLayout::reset() {
  m_widths.clear();
  m_shown.clear();
  m_order.clear();
  save();
}

void TableLayout::load() {
  if (m_table.isEmpty() || !m_memory) return;
  // The file is the person's: what is no layout counts as none.
  const QJsonObject kept = QJsonDocument::fromJson(m_memory->read(m_table)).object();
  const QJsonObject columns = kept[columnsName].toObject();
  m_widths.clear();
  m_shown.clear();
  for (auto column = columns.begin(); column != columns.end(); ++column) {
    const QJsonObject of = column->toObject();
    if (const int width = of[widthName].toInt(); width > 0) m_widths.insert(column.key(), width);
    if (of[shownName].isBool()) m_shown.insert(column.key(), of[shownName].toBool());
  }
  m_order.clear();
  for (const auto& key : kept[orderName].toArray())
    if (key.isString() && !m_order.contains(key.toString())) m_order.append(key.toString());
  const QJsonObject sort = kept[sortName].toObject();
  m_sortKey = sort[keyName].toString();
  m_sortDescending = sort[descendingName].toBool(true);
  Q_EMIT changed();
}

void TableLayout::save() {
  if (!m_table.isEmpty() && m_memory) {
    QJsonObject columns;
    const auto put = [&columns](const QString& key, QLatin1StringView name, const QJsonValue& value) {
      QJsonObject of = columns[key].toObject();
      of.insert(name, value);
      columns.insert(key, of);
    };
    for (auto width = m_widths.cbegin(); width != m_widths.cend(); ++width) put(width.key(), widthName, width.value());
    for (auto said = m_shown.cbegin(); said != m_shown.cend(); ++said) put(said.key(), shownName, said.value());
    QJsonObject kept;
    if (!columns.isEmpty()) kept.insert(columnsName, columns);
    if (!m_order.isEmpty()) kept.insert(orderName, QJsonArray::fromStringList(m_order));
    if (!m_sortKey.isEmpty())
      kept.insert(sortName, QJsonObject{{keyName, m_sortKey}, {descendingName, m_sortDescending}});
    m_memory->write(m_table, kept.isEmpty() ? QByteArray() : QJsonDocument(kept).toJson(QJsonDocument::Compact));
  }
  Q_EMIT changed();
}

}  // namespace orv
