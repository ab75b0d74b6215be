#pragma once

#include <QStringView>
#include <algorithm>
#include <limits>
#include <optional>

namespace orv {

/// The whole number that a person typed: blanks around it and a "+" before it do not matter. Nothing when it is none or
/// outside the bounds, both of which belong to it.
inline std::optional<int> wholeNumber(QStringView text, int from, int to) {
  bool isNumber = false;
  const int number = text.trimmed().toInt(&isNumber);
  return isNumber && number >= from && number <= to ? std::optional(number) : std::nullopt;
}

/// A number of the service where there is room for an `int` only.
inline int saturated(qint64 number) {
  return int(std::clamp<qint64>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

}  // namespace orv
