#pragma once

#include <QCollator>
#include <QString>
#include <algorithm>
#include <optional>
#include <vector>

namespace orv {

/// Column and direction of a table.
struct OrvSort {
  QString key;
  bool descending = true;
  bool operator==(const OrvSort&) const = default;
};

/// None is the service's own order.
inline std::optional<OrvSort> sortBy(const QString& key, bool descending) {
  return key.isEmpty() ? std::nullopt : std::optional(OrvSort{key, descending});
}

/// Sorts row numbers by one key each, highest or lowest first; rows without a key stay last.
template <class Key>
void sortByKey(std::vector<qsizetype>& rows, const std::vector<std::optional<Key>>& keys, bool descending) {
  std::ranges::stable_sort(rows, [&](qsizetype a, qsizetype b) {
    const auto &left = keys[size_t(a)], &right = keys[size_t(b)];
    if (!left || !right) return left.has_value() && !right.has_value();
    return descending ? *right < *left : *left < *right;
  });
}

/// The user's alphabetical order of names, numbers in them by their value.
QCollator nameCollator();

}  // namespace orv
