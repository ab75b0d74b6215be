#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// What a mailbox sent and got, day by day.
struct MailboxHistory {
  struct Day {
    /// A date in the history's time zone.
    QString day;
    /// Warm-up emails to be sent, and sent; replies among these.
    qint64 planned = 0;
    qint64 sent = 0;
    qint64 repliesSent = 0;
    qint64 received = 0;
    qint64 replies = 0;
    qint64 failed = 0;
    /// Warm-up emails that were looked for and found; in the inbox, among spam, and taken out of it.
    qint64 placed = 0;
    qint64 inbox = 0;
    qint64 spam = 0;
    qint64 rescued = 0;
    /// Per cent.
    std::optional<double> inboxPct;
    qint64 campaignSent = 0;
    bool operator==(const Day&) const = default;
  };
  QString timeZone;
  /// Oldest first.
  QList<Day> days;
  bool operator==(const MailboxHistory&) const = default;
};
BOOST_DESCRIBE_STRUCT(MailboxHistory::Day, (),
                      (day, planned, sent, repliesSent, received, replies, failed, placed, inbox, spam, rescued,
                       inboxPct, campaignSent))
BOOST_DESCRIBE_STRUCT(MailboxHistory, (), (timeZone, days))

}  // namespace orv
