#pragma once

#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/JSONCoding.h"

namespace orv::bench {

/// The largest record that comes by the thousand: a mailbox with everything the service says of one.
struct Mailbox {
  struct Connection {
    QString kind;
    QString status;
    std::optional<QString> lastError;
    std::optional<QString> lastVerifiedAt;
    std::optional<QString> host;
    bool operator==(const Connection&) const = default;
  };
  struct Warmup {
    std::optional<qint64> rampDay;
    qint64 sentToday = 0;
    std::optional<qint64> plannedToday;
    std::optional<qint64> receivedToday;
    qint64 replies7d = 0;
    qint64 placed7d = 0;
    std::optional<double> inboxPct7d;
    qint64 spam7d = 0;
    bool operator==(const Warmup&) const = default;
  };
  struct SendReady {
    bool ready = false;
    QString mode;
    std::optional<QString> reason;
    qint64 warmDays = 0;
    qint64 minWarmDays = 0;
    bool operator==(const SendReady&) const = default;
  };
  QString id;
  std::optional<qint64> number;
  QString address;
  QString displayName;
  QString provider;
  QString role;
  QString status;
  std::optional<QString> pausedReason;
  qint64 dailyCap = 0;
  std::optional<Connection> connection;
  Warmup warmup;
  std::optional<SendReady> sendReady;
  std::optional<qint64> sendLimit;
  std::optional<QString> signature;
  std::optional<QList<QString>> tags;
  std::optional<QString> health;
  std::optional<qint64> version;
  QString createdAt;
  std::optional<QString> archivedAt;
  bool operator==(const Mailbox&) const = default;
};
BOOST_DESCRIBE_STRUCT(Mailbox::Connection, (), (kind, status, lastError, lastVerifiedAt, host))
BOOST_DESCRIBE_STRUCT(Mailbox::Warmup, (),
                      (rampDay, sentToday, plannedToday, receivedToday, replies7d, placed7d, inboxPct7d, spam7d))
BOOST_DESCRIBE_STRUCT(Mailbox::SendReady, (), (ready, mode, reason, warmDays, minWarmDays))
BOOST_DESCRIBE_STRUCT(Mailbox, (),
                      (id, number, address, displayName, provider, role, status, pausedReason, dailyCap, connection,
                       warmup, sendReady, sendLimit, signature, tags, health, version, createdAt, archivedAt))

struct MailboxPage {
  QList<Mailbox> items;
  std::optional<QString> nextCursor;
  bool operator==(const MailboxPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(MailboxPage, (), (items, nextCursor))

}  // namespace orv::bench
