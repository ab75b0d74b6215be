#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>
#include <QVariantMap>

namespace orv {

/// What a page looks like at the moment: which row of each table is current, how far everything is scrolled. It can be
/// shown the same again after it was made anew, as soon as its rows are there.
class PageView : public QObject {
  Q_OBJECT
  QML_ELEMENT

 public:
  using QObject::QObject;

  Q_INVOKABLE static QVariantMap viewOf(QQuickItem* page);
  Q_INVOKABLE static void goBackTo(QQuickItem* page, const QVariantMap& view);
};

}  // namespace orv
