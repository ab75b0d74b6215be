#include "app/base/ListModel.h"

namespace orv {

ListModel::ListModel(QObject* parent) : QAbstractListModel(parent) {
  connect(this, &QAbstractItemModel::rowsInserted, this, &ListModel::countChanged);
  connect(this, &QAbstractItemModel::rowsRemoved, this, &ListModel::countChanged);
  connect(this, &QAbstractItemModel::modelReset, this, &ListModel::countChanged);
}

}  // namespace orv
