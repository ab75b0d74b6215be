#pragma once

#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

struct Metrics {
  qint64 sent = 0;
  qint64 contacted = 0;
  qint64 newContacted = 0;
  /// Absent while tracking is off, here and below.
  std::optional<qint64> opens;
  std::optional<qint64> clicks;
  qint64 replies = 0;
  qint64 autoReplies = 0;
  qint64 bounces = 0;
  qint64 unsubscribes = 0;
  qint64 opportunities = 0;
  /// In US dollars.
  double opportunityValue = 0;
  qint64 interested = 0;
  qint64 meetingsBooked = 0;
  qint64 meetingsCompleted = 0;
  qint64 won = 0;
  bool operator==(const Metrics&) const = default;
};
BOOST_DESCRIBE_STRUCT(Metrics, (),
                      (sent, contacted, newContacted, opens, clicks, replies, autoReplies, bounces, unsubscribes,
                       opportunities, opportunityValue, interested, meetingsBooked, meetingsCompleted, won))

struct MetricDay {
  /// A date.
  QString day;
  qint64 sent = 0;
  std::optional<qint64> contacted;
  std::optional<qint64> opens;
  std::optional<qint64> clicks;
  qint64 replies = 0;
  std::optional<qint64> bounces;
  bool operator==(const MetricDay&) const = default;
};
BOOST_DESCRIBE_STRUCT(MetricDay, (), (day, sent, contacted, opens, clicks, replies, bounces))

}  // namespace orv
