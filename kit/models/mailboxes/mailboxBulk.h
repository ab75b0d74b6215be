#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// One action on many mailboxes, with what the action needs.
struct MailboxBulkBody {
  QString action;
  QList<QString> ids;
  std::optional<qint64> sendLimit;
  std::optional<qint64> sendingGapMinutes;
  std::optional<QList<QString>> tags;
  /// Empty takes it away.
  std::optional<QString> trackingDomain;
  bool operator==(const MailboxBulkBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(MailboxBulkBody, (), (action, ids, sendLimit, sendingGapMinutes, tags, trackingDomain))

struct MailboxBulkResult {
  struct Failed {
    QString id;
    QString message;
    bool operator==(const Failed&) const = default;
  };
  qint64 ok = 0;
  QList<Failed> failed;
  /// Hosts that were set and point at the service already.
  std::optional<qint64> verified;
  bool operator==(const MailboxBulkResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(MailboxBulkResult::Failed, (), (id, message))
BOOST_DESCRIBE_STRUCT(MailboxBulkResult, (), (ok, failed, verified))

}  // namespace orv
