#pragma once

#include <QAbstractItemModel>

namespace orv::test {

/// What a model's row says under the name that a delegate reads it by.
inline QVariant cell(const QAbstractItemModel& model, int row, const QByteArray& name) {
  return model.index(row, 0).data(model.roleNames().key(name, -1));
}

}  // namespace orv::test
