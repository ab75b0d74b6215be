#include "app/base/ListModel.h"

#include "app/base/shownName.h"

namespace orv {

ListModel::ListModel(QObject* parent) : QAbstractListModel(parent) {
  connect(this, &QAbstractItemModel::rowsInserted, this, &ListModel::countChanged);
  connect(this, &QAbstractItemModel::rowsRemoved, this, &ListModel::countChanged);
  connect(this, &QAbstractItemModel::modelReset, this, &ListModel::countChanged);
}

QVariant ListModel::inRow(const QVariant& value) {
  return value.typeId() == QMetaType::QString ? QVariant(shownName(value.toString())) : value;
}

}  // namespace orv
