#pragma once

#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// A sending inbox as the placement watcher sees it. Rates are fractions of one.
struct DeliverabilityInbox {
  /// The mailbox's.
  QString id;
  QString address;
  QString provider;
  std::optional<QString> stage;
  std::optional<QString> stageSince;
  /// The latest decision in words.
  std::optional<QString> verdict;
  std::optional<QString> reason;
  std::optional<QString> lastScanAt;
  std::optional<double> inboxRate;
  /// At seeds of the two providers.
  std::optional<double> google;
  std::optional<double> microsoft;
  std::optional<double> spamRate;
  std::optional<double> bounceRate;
  std::optional<double> replyRate;
  /// Checks in the last seven days.
  qint64 n = 0;
  /// How far its rate lies from the pool's.
  std::optional<double> z;
  bool operator==(const DeliverabilityInbox&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeliverabilityInbox, (),
                      (id, address, provider, stage, stageSince, verdict, reason, lastScanAt, inboxRate, google,
                       microsoft, spamRate, bounceRate, replyRate, n, z))

}  // namespace orv
