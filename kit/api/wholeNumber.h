#pragma once

#include <QStringView>
#include <optional>

namespace orv {

/// The whole number that a person typed: blanks around it and a "+" before it do not matter. Nothing when it is none or
/// outside the bounds, both of which belong to it.
inline std::optional<int> wholeNumber(QStringView text, int from, int to) {
  bool isNumber = false;
  const int number = text.trimmed().toInt(&isNumber);
  return isNumber && number >= from && number <= to ? std::optional(number) : std::nullopt;
}

}  // namespace orv
