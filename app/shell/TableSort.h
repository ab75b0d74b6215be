#pragma once

#include <QString>
#include <optional>

namespace orv {

/// Column and direction of a table.
struct OrvSort {
  QString key;
  bool descending = true;
  bool operator==(const OrvSort&) const = default;
};

/// What a click on a column's head leads to: highest first, lowest first, then the service's own order again.
inline std::optional<OrvSort> nextSort(const std::optional<OrvSort>& sort, const QString& key) {
  if (!sort || sort->key != key) return OrvSort{key, true};
  if (sort->descending) return OrvSort{key, false};
  return std::nullopt;
}

}  // namespace orv
