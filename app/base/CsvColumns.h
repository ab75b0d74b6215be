#pragma once

#include "app/base/CsvFile.h"
#include "app/base/ListModel.h"

namespace orv {

/// The columns of a chosen file, a row each, with what the file's first rows hold in them. However many there are, a
/// view makes those that it shows.
class CsvColumns : public ListModel {
  Q_OBJECT

 public:
  enum Role { NameRole = Qt::UserRole, SamplesRole };

  using ListModel::ListModel;

  /// Of no file, they are none.
  void show(const CsvPreview& preview);
  const QStringList& names() const { return m_preview.headers; }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 private:
  CsvPreview m_preview;
};

}  // namespace orv
