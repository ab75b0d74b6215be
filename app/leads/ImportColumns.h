#pragma once

#include "app/base/CsvColumns.h"

namespace orv {

/// The columns of a file that is to be imported, with what each becomes.
class ImportColumns final : public CsvColumns {
  Q_OBJECT

 public:
  enum Role { TargetRole = Qt::UserRole + 100, TargetLabelRole, FieldRole };

  using CsvColumns::CsvColumns;

  /// With what they become by their names.
  void propose(const CsvPreview& preview);
  /// A target for each column, in their order.
  const QStringList& mapping() const { return m_mapping; }
  /// False when nothing changes. A field that another column had leaves it, which is then kept with the lead.
  bool set(int column, const QString& target);
  /// How many become a field.
  int matched() const;
  bool hasEmail() const;

  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 private:
  QStringList m_mapping;
};

}  // namespace orv
