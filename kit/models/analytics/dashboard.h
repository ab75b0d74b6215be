#pragma once

#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// Today's figures of one workspace.
struct Dashboard {
  struct Sends {
    qint64 warmup = 0;
    qint64 campaigns = 0;
    bool operator==(const Sends&) const = default;
  };
  /// Mailboxes by their state.
  struct InboxHealth {
    qint64 total = 0;
    qint64 active = 0;
    qint64 paused = 0;
    qint64 failed = 0;
    qint64 verifying = 0;
    std::optional<qint64> ready;
    bool operator==(const InboxHealth&) const = default;
  };
  struct Leads {
    qint64 total = 0;
    qint64 lists = 0;
    bool operator==(const Leads&) const = default;
  };
  /// Today, a date in the workspace's time zone.
  QString day;
  QString timeZone;
  std::optional<Sends> sends;
  std::optional<qint64> replies;
  std::optional<InboxHealth> inbox;
  std::optional<Leads> leads;
  bool operator==(const Dashboard&) const = default;
};
BOOST_DESCRIBE_STRUCT(Dashboard::Sends, (), (warmup, campaigns))
BOOST_DESCRIBE_STRUCT(Dashboard::InboxHealth, (), (total, active, paused, failed, verifying, ready))
BOOST_DESCRIBE_STRUCT(Dashboard::Leads, (), (total, lists))
BOOST_DESCRIBE_STRUCT(Dashboard, (), (day, timeZone, sends, replies, inbox, leads))

}  // namespace orv
