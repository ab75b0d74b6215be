#pragma once

#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// What the placement watcher decided about an inbox.
struct DeliverabilityDecision {
  QString id;
  QString mailboxId;
  QString address;
  QString at;
  std::optional<QString> fromStage;
  std::optional<QString> toStage;
  QString action;
  QString rule;
  QString why;
  /// False when it was only logged.
  bool executed = false;
  bool operator==(const DeliverabilityDecision&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeliverabilityDecision, (),
                      (id, mailboxId, address, at, fromStage, toStage, action, rule, why, executed))

}  // namespace orv
