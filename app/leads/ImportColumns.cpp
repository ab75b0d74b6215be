#include "app/leads/ImportColumns.h"

#include <algorithm>

#include "app/leads/LeadImportFields.h"

namespace orv {
namespace {

QString labelOf(const QString& target) {
  const auto& choices = LeadImportFields::choices();
  const auto found = std::ranges::find(choices, target, &Choice::key);
  return found == choices.cend() ? target : found->label;
}

}  // namespace

void ImportColumns::propose(const CsvPreview& preview) {
  m_mapping = LeadImportFields::proposedFor(preview.headers);
  show(preview);
}

bool ImportColumns::set(int column, const QString& target) {
  if (column < 0 || column >= m_mapping.size() || m_mapping[column] == target) return false;
  const auto& known = LeadImportFields::choices();
  if (std::ranges::find(known, target, &Choice::key) == known.cend()) return false;
  const auto tell = [this](int row) { Q_EMIT dataChanged(index(row), index(row)); };
  if (const qsizetype before = m_mapping.indexOf(target); LeadImportFields::isField(target) && before >= 0) {
    m_mapping[before] = LeadImportFields::kept;
    tell(int(before));
  }
  m_mapping[column] = target;
  tell(column);
  return true;
}

int ImportColumns::matched() const { return int(std::ranges::count_if(m_mapping, LeadImportFields::isField)); }

bool ImportColumns::hasEmail() const { return m_mapping.contains(LeadImportFields::email); }

QVariant ImportColumns::data(const QModelIndex& index, int role) const {
  if (role < TargetRole) return CsvColumns::data(index, role);
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const QString& target = m_mapping[index.row()];
  if (role == TargetRole) return target;
  return role == TargetLabelRole ? QVariant(labelOf(target)) : QVariant(LeadImportFields::isField(target));
}

QHash<int, QByteArray> ImportColumns::roleNames() const {
  QHash<int, QByteArray> names = CsvColumns::roleNames();
  names.insert({{TargetRole, "target"}, {TargetLabelRole, "targetLabel"}, {FieldRole, "isField"}});
  return names;
}

}  // namespace orv
