#pragma once

#include <QList>

#include "kit/models/deliverability/deliverabilityDecision.h"
#include "kit/models/deliverability/deliverabilityInbox.h"

namespace orv {

struct DeliverabilityReport {
  /// All sending inboxes together.
  struct Pool {
    std::optional<double> inboxRate;
    /// Checks behind it.
    qint64 n = 0;
    bool operator==(const Pool&) const = default;
  };
  /// The watcher acts; otherwise it only logs.
  bool automatic = false;
  std::optional<QString> lastScanAt;
  Pool pool;
  QList<DeliverabilityInbox> inboxes;
  QList<DeliverabilityDecision> decisions;
  bool operator==(const DeliverabilityReport&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeliverabilityReport::Pool, (), (inboxRate, n))
BOOST_DESCRIBE_STRUCT(DeliverabilityReport, (), (automatic, lastScanAt, pool, inboxes, decisions))

struct DeliverabilityInboxDetail {
  struct Day {
    /// A date.
    QString day;
    double inboxRate = 0;
    bool operator==(const Day&) const = default;
  };
  DeliverabilityInbox inbox;
  QList<Day> trend;
  QList<DeliverabilityDecision> decisions;
  bool operator==(const DeliverabilityInboxDetail&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeliverabilityInboxDetail::Day, (), (day, inboxRate))
BOOST_DESCRIBE_STRUCT(DeliverabilityInboxDetail, (), (inbox, trend, decisions))

}  // namespace orv
