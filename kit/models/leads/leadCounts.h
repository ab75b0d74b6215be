#pragma once

#include <QMap>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// How many leads match.
struct LeadCount {
  qint64 value = 0;
  /// False where the service has estimated it.
  bool exact = false;
  std::optional<QString> by;
  bool operator==(const LeadCount&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadCount, (), (value, exact, by))

/// How the matches of a search part into leads that the workspace does not have yet and those it has.
struct LeadPools {
  LeadCount all;
  std::optional<qint64> new_;
  std::optional<qint64> used;
  bool operator==(const LeadPools&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadPools, (), (all, new_, used))

/// The size of the whole database.
struct LeadTotals {
  qint64 all = 0;
  QMap<QString, qint64> bySource;
  std::optional<QString> refreshedAt;
  bool operator==(const LeadTotals&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadTotals, (), (all, bySource, refreshedAt))

}  // namespace orv
