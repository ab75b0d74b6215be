#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace orv {

/// The order in which Tab goes through a list's rows.
class RowOrder : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  using QObject::QObject;

  /// The list makes rows as they come into view and takes them away behind it: going back, the first is made last.
  Q_INVOKABLE static void settle(QQuickItem* rows);
};

}  // namespace orv
