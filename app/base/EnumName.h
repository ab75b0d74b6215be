#pragma once

#include <QMetaEnum>
#include <QString>
#include <optional>

namespace orv {

/// The enumerator's own name. QML reads these: it cannot see enumerators that begin with a small letter.
template <class Enum>
QString enumName(Enum value) {
  return QString::fromLatin1(QMetaEnum::fromType<Enum>().valueToKey(int(value)));
}

/// The enumerator of that name; nothing when there is none.
template <class Enum>
std::optional<Enum> enumNamed(const QString& name) {
  bool found = false;
  const int value = QMetaEnum::fromType<Enum>().keyToValue(name.toLatin1().constData(), &found);
  return found ? std::optional(Enum(value)) : std::nullopt;
}

}  // namespace orv
