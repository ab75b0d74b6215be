#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// How the mailboxes' warm-up mail fares.
struct WarmupHealth {
  struct Account {
    QString id;
    QString address;
    QString displayName;
    QString provider;
    QString role;
    QString status;
    /// Warm-up emails a day.
    qint64 dailyCap = 0;
    qint64 rampDay = 0;
    std::optional<qint64> plannedToday;
    qint64 sentToday = 0;
    qint64 sent7d = 0;
    qint64 received7d = 0;
    qint64 failed7d = 0;
    /// Found in a mailbox, wherever in it; in the inbox; among spam; of these, taken out of it.
    qint64 placed7d = 0;
    qint64 inbox7d = 0;
    qint64 spam7d = 0;
    qint64 rescued7d = 0;
    std::optional<qint64> inboxPct7d;
    bool ready = false;
    std::optional<QString> readyReason;
    QString health;
    bool operator==(const Account&) const = default;
  };
  /// Accounts of each kind.
  struct Summary {
    qint64 healthy = 0;
    qint64 watch = 0;
    qint64 atRisk = 0;
    qint64 off = 0;
    qint64 ready = 0;
    bool operator==(const Summary&) const = default;
  };
  QList<Account> items;
  Summary summary;
  /// The figures are sample data.
  std::optional<bool> sample;
  bool operator==(const WarmupHealth&) const = default;
};
BOOST_DESCRIBE_STRUCT(WarmupHealth::Account, (),
                      (id, address, displayName, provider, role, status, dailyCap, rampDay, plannedToday, sentToday,
                       sent7d, received7d, failed7d, placed7d, inbox7d, spam7d, rescued7d, inboxPct7d, ready,
                       readyReason, health))
BOOST_DESCRIBE_STRUCT(WarmupHealth::Summary, (), (healthy, watch, atRisk, off, ready))
BOOST_DESCRIBE_STRUCT(WarmupHealth, (), (items, summary, sample))

}  // namespace orv
