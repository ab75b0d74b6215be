#include "app/base/CsvColumns.h"

#include "app/base/shownName.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

void CsvColumns::show(const CsvPreview& preview) {
  beginResetModel();
  m_preview = preview;
  endResetModel();
}

int CsvColumns::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(m_preview.headers.size());
}

QVariant CsvColumns::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  if (role == NameRole) return shownName(m_preview.headers[index.row()]);
  if (role != SamplesRole) return {};
  QStringList samples;
  for (const QStringList& row : m_preview.samples)
    if (const QString cell = row.value(index.row()); !cell.isEmpty()) samples.append(shownName(cell.simplified()));
  return samples.join(u" · "_s);
}

QHash<int, QByteArray> CsvColumns::roleNames() const { return {{NameRole, "name"}, {SamplesRole, "samples"}}; }

}  // namespace orv
