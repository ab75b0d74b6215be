#pragma once

#include "demo/DemoState.h"
#include "kit/models/analytics/warmupHealth.h"
#include "kit/models/mailboxes/mailboxHistory.h"

namespace orv::demo {

/// Campaigns may send from a mailbox that has been warming up for longer than that.
constexpr qint64 daysUntilReady = 14;

/// The day of its warm-up that the mailbox is on; the first is 1.
qint64 warmupDayNumber(const DemoMailbox& mailbox, const QDate& day);

/// Why campaigns may not send from the mailbox that day; nothing when they may.
std::optional<QString> notReadyBecause(const DemoMailbox& mailbox, const QDate& day);

/// Where the mailbox stands on its roadmap, which it must have. Times are those of its workspace.
Mailbox::RampupToday rampupOf(const DemoMailbox& mailbox, const QDateTime& localNow);

/// One day of its warm-up, as far as the day has gone. Whatever page adds days up comes to the same figures.
MailboxHistory::Day warmupDayOf(const DemoMailbox& mailbox, const QDate& day, const QDateTime& localNow);

/// The last seven days.
WarmupHealth::Account warmupOf(const DemoMailbox& mailbox, const QDateTime& localNow);

/// The percentage of those days' emails found in an inbox, cut off after its tenths; nothing without any.
std::optional<double> inboxShareOf(const WarmupHealth::Account& week);

/// All mailboxes of the workspace; the summary counts them.
WarmupHealth warmupHealthOf(const DemoWorkspace& workspace, const QDateTime& now);

}  // namespace orv::demo
