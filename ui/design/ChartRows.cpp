#include "ui/design/ChartRows.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

void ChartRows::setDays(const QStringList& days) {
  if (m_days == days) return;
  beginResetModel();
  m_days = days;
  m_data.setDays(days);
  endResetModel();
  Q_EMIT changed();
}

void ChartRows::setSeries(const QVariantList& series) {
  m_series = series;
  if (m_data.setSeries(series)) textsChanged();
}

void ChartRows::setUnit(const QString& unit) {
  m_unit = unit;
  m_data.setUnit(unit);
  textsChanged();
}

void ChartRows::setDayNotes(const QStringList& notes) {
  if (std::exchange(m_dayNotes, notes) == notes) return;
  m_data.setDayNotes(notes);
  textsChanged();
}

void ChartRows::textsChanged() {
  if (rowCount() > 0) Q_EMIT dataChanged(index(0), index(rowCount() - 1), {TextsRole});
  Q_EMIT changed();
}

QVariantList ChartRows::legend() const {
  QVariantList list;
  for (const ChartSeries& series : m_data.series())
    list.append(QVariantMap{{u"key"_s, series.key}, {u"label"_s, series.label}, {u"shown"_s, series.shown}});
  if (m_data.hasDayNotes())
    list.append(QVariantMap{{u"key"_s, u"note"_s}, {u"label"_s, m_noteTitle}, {u"shown"_s, true}});
  return list;
}

QVariant ChartRows::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  if (role == IdRole) return m_data.dayKey(index.row());
  if (role == DayRole) return m_data.dayText(index.row());
  if (role != TextsRole) return {};
  QStringList texts;
  for (int i = 0; i < m_data.series().size(); ++i) texts.append(m_data.readingText(i, index.row()));
  if (m_data.hasDayNotes()) texts.append(m_data.dayNote(index.row()));
  return texts;
}

QHash<int, QByteArray> ChartRows::roleNames() const { return {{IdRole, "id"}, {DayRole, "day"}, {TextsRole, "texts"}}; }

}  // namespace orv
