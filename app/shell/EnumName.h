#pragma once

#include <QMetaEnum>
#include <QString>

namespace orv {

/// The enumerator's own name. QML reads these: it cannot see enumerators that begin with a small letter.
template <class Enum>
QString enumName(Enum value) {
  return QString::fromLatin1(QMetaEnum::fromType<Enum>().valueToKey(int(value)));
}

}  // namespace orv
