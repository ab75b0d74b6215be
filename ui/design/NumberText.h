#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QVariant>

#include "kit/api/wholeNumber.h"

/// What the number field knows of numbers.
class NumberText : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  using QObject::QObject;

  /// The number, or undefined.
  Q_INVOKABLE QVariant parse(const QString& text, int from, int to) const {
    const auto number = orv::wholeNumber(text, from, to);
    return number ? QVariant(*number) : QVariant();
  }
};
