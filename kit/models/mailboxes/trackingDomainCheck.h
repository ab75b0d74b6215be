#pragma once

#include "kit/models/mailboxes/mailbox.h"

namespace orv {

/// Whether a mailbox's own tracking host points at the service.
struct TrackingDomainCheck {
  struct Check {
    bool ok = false;
    /// What its CNAME must name, and what it does.
    QString expected;
    std::optional<QString> found;
    std::optional<QString> message;
    bool operator==(const Check&) const = default;
  };
  Mailbox mailbox;
  Check check;
  bool operator==(const TrackingDomainCheck&) const = default;
};
BOOST_DESCRIBE_STRUCT(TrackingDomainCheck::Check, (), (ok, expected, found, message))
BOOST_DESCRIBE_STRUCT(TrackingDomainCheck, (), (mailbox, check))

}  // namespace orv
