#pragma once

#include <QString>
#include <boost/describe/class.hpp>

namespace orv {

struct LeadCounts {
  qint64 total = 0;
  qint64 queued = 0;
  qint64 active = 0;
  qint64 paused = 0;
  qint64 completed = 0;
  qint64 replied = 0;
  qint64 bounced = 0;
  qint64 unsubscribed = 0;
  qint64 stopped = 0;
  bool operator==(const LeadCounts&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadCounts, (),
                      (total, queued, active, paused, completed, replied, bounced, unsubscribed, stopped))

struct CampaignStats {
  LeadCounts leads;
  qint64 sent = 0;
  qint64 delivered = 0;
  qint64 bounced = 0;
  qint64 replied = 0;
  qint64 positive = 0;
  /// Booked and not yet made.
  qint64 scheduled = 0;
  qint64 failed = 0;
  bool operator==(const CampaignStats&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignStats, (), (leads, sent, delivered, bounced, replied, positive, scheduled, failed))

}  // namespace orv
