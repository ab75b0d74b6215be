#pragma once

#include <QtGlobal>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// Where the warm-up emails of the last 30 days were found.
struct MailboxHealth {
  std::optional<qint64> score;
  bool low = false;
  qint64 checked = 0;
  qint64 inbox = 0;
  qint64 spam = 0;
  qint64 saved = 0;
  qint64 missing = 0;
  bool operator==(const MailboxHealth&) const = default;
};
BOOST_DESCRIBE_STRUCT(MailboxHealth, (), (score, low, checked, inbox, spam, saved, missing))

}  // namespace orv
