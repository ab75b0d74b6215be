#pragma once

#include <QAbstractListModel>

namespace orv {

/// A list model whose length QML can bind to.
class ListModel : public QAbstractListModel {
  Q_OBJECT
  Q_PROPERTY(int count READ count NOTIFY countChanged)

 public:
  explicit ListModel(QObject* parent = nullptr);
  int count() const { return rowCount(); }

 Q_SIGNALS:
  void countChanged();

 protected:
  /// A value as a row shows it: texts as shownName() has them, whoever wrote them.
  static QVariant inRow(const QVariant& value);
};

}  // namespace orv
