#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/Clearable.h"

namespace orv {

/// Carries only what is set. Of all its fields the tracking domain alone can be taken away.
struct MailboxPatch {
  std::optional<QString> displayName;
  std::optional<qint64> dailyCap;
  std::optional<qint64> sendLimit;
  std::optional<qint64> sendingGapMinutes;
  std::optional<QString> signature;
  std::optional<QList<QString>> tags;
  Clearable<QString> trackingDomain;
  bool operator==(const MailboxPatch&) const = default;
};
BOOST_DESCRIBE_STRUCT(MailboxPatch, (),
                      (displayName, dailyCap, sendLimit, sendingGapMinutes, signature, tags, trackingDomain))

/// When campaigns may use a mailbox: a word of the service's own.
struct ReadyModeBody {
  QString readyMode;
  bool operator==(const ReadyModeBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(ReadyModeBody, (), (readyMode))

}  // namespace orv
