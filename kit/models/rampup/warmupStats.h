#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>

namespace orv {

/// What an account's warm-up came to, day by day.
struct WarmupStatsDay {
  /// A date.
  QString day;
  qint64 sent = 0;
  qint64 inbox = 0;
  qint64 spam = 0;
  qint64 saved = 0;
  qint64 received = 0;
  qint64 replies = 0;
  bool operator==(const WarmupStatsDay&) const = default;
};
BOOST_DESCRIBE_STRUCT(WarmupStatsDay, (), (day, sent, inbox, spam, saved, received, replies))

struct WarmupStats {
  struct Totals {
    qint64 sent = 0;
    qint64 inbox = 0;
    qint64 spam = 0;
    qint64 saved = 0;
    qint64 received = 0;
    qint64 replies = 0;
    bool operator==(const Totals&) const = default;
  };
  QList<WarmupStatsDay> days;
  Totals totals;
  bool operator==(const WarmupStats&) const = default;
};
BOOST_DESCRIBE_STRUCT(WarmupStats::Totals, (), (sent, inbox, spam, saved, received, replies))
BOOST_DESCRIBE_STRUCT(WarmupStats, (), (days, totals))

}  // namespace orv
