#include "demo/WarmupFigures.h"

#include <QTimeZone>

#include "demo/DailyFigures.h"
#include "demo/Roadmaps.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qint64 millisecondsADay = 86400000;

/// Of each hundred emails so many land in spam; a mailbox's own.
qint64 spamRateOf(const DemoMailbox& mailbox) {
  return DemoRandom::of(mailbox.id(), 7).pick(QList<qint64>{0, 1, 1, 2, 3, 4, 5, 6, 10, 18});
}

QString healthOf(qint64 inboxPct) {
  if (inboxPct >= 92) return u"healthy"_s;
  return inboxPct >= 85 ? u"watch"_s : u"at_risk"_s;
}

/// How much of the day the mailbox has worked, in milliseconds.
qint64 workedOn(const DemoMailbox& mailbox, const QDate& day, const QDateTime& localNow) {
  const QDateTime end =
      mailbox.idleSince ? std::min(localNow, mailbox.idleSince->toTimeZone(localNow.timeZone())) : localNow;
  if (day != end.date()) return day < end.date() ? millisecondsADay : 0;
  return end.time().msecsSinceStartOfDay();
}

}  // namespace

qint64 warmupDayNumber(const DemoMailbox& mailbox, const QDate& day) {
  return QDate::fromString(mailbox.record.createdAt.first(10), Qt::ISODate).daysTo(day) + 1;
}

std::optional<QString> notReadyBecause(const DemoMailbox& mailbox, const QDate& day) {
  if (!mailbox.isActive()) return mailbox.record.status.label();
  const QString mode = mailbox.record.sendReady ? mailbox.record.sendReady->mode : QString();
  if (mode == "never"_L1) return u"Kept out of campaigns"_s;
  const qint64 number = warmupDayNumber(mailbox, day);
  if (mode == "always"_L1 || number > daysUntilReady) return std::nullopt;
  return u"Warming up, day %1 of %2"_s.arg(number).arg(daysUntilReady);
}

Mailbox::RampupToday rampupOf(const DemoMailbox& mailbox, const QDateTime& localNow) {
  const RoadmapPlan plan = planOf(mailbox, localNow.date());
  Mailbox::RampupToday today;
  today.state = plan.state;
  today.dayIndex = plan.dayIndex;
  if (plan.stage) {
    today.stageKey = plan.stage->key;
    today.stageName = plan.stage->name;
    today.stageDay = plan.stage->day;
    today.stageDays = plan.stage->days;
  }
  today.warmupToday = plan.warmupToday;
  today.campaignCapToday = plan.campaignCapToday;
  return today;
}

MailboxHistory::Day warmupDayOf(const DemoMailbox& mailbox, const QDate& day, const QDateTime& localNow) {
  MailboxHistory::Day figures;
  figures.day = day.toString(Qt::ISODate);
  const qint64 number = warmupDayNumber(mailbox, day), worked = workedOn(mailbox, day, localNow);
  if (number < 1 || worked == 0) return figures;
  DemoRandom random = DemoRandom::of(mailbox.id() + figures.day);
  figures.planned = standingOn(mailbox, day).warmup;
  const qint64 held = random.chance(0.3) ? random.between(1, 2) : 0, refused = random.chance(0.1) ? 1 : 0;
  figures.sent = std::max<qint64>(0, figures.planned - held) * worked / millisecondsADay;
  figures.failed = std::min(refused, figures.sent);
  figures.repliesSent = figures.sent / 4;
  figures.received = figures.sent * 9 / 10;
  figures.replies = figures.received * 3 / 10;
  figures.placed = figures.sent * 7 / 10;
  const double spamRate = double(spamRateOf(mailbox)) / 100;
  for (qint64 email = 0; email < figures.placed; ++email) figures.spam += random.chance(spamRate);
  figures.inbox = figures.placed - figures.spam;
  figures.rescued = figures.spam * 4 / 5;
  if (figures.placed > 0) figures.inboxPct = double(figures.inbox * 1000 / figures.placed) / 10;
  return figures;
}

WarmupHealth::Account warmupOf(const DemoMailbox& mailbox, const QDateTime& localNow) {
  const QDate today = localNow.date();
  WarmupHealth::Account account;
  account.id = mailbox.id();
  account.address = mailbox.record.address;
  account.displayName = mailbox.record.displayName;
  account.provider = mailbox.record.provider;
  account.role = mailbox.record.role;
  account.status = mailbox.record.status.rawValue;
  account.dailyCap = mailbox.record.dailyCap;
  account.rampDay = warmupDayNumber(mailbox, today);
  for (int back = 6; back >= 0; --back) {
    const auto day = warmupDayOf(mailbox, today.addDays(-back), localNow);
    account.sent7d += day.sent;
    account.received7d += day.received;
    account.failed7d += day.failed;
    account.placed7d += day.placed;
    account.inbox7d += day.inbox;
    account.spam7d += day.spam;
    account.rescued7d += day.rescued;
    if (back > 0) continue;
    account.sentToday = day.sent;
    if (mailbox.isActive()) account.plannedToday = day.planned;
  }
  if (account.placed7d > 0) account.inboxPct7d = account.inbox7d * 100 / account.placed7d;
  account.readyReason = notReadyBecause(mailbox, today);
  account.ready = !account.readyReason;
  account.health = mailbox.isActive() ? healthOf(account.inboxPct7d.value_or(100)) : u"off"_s;
  return account;
}

std::optional<double> inboxShareOf(const WarmupHealth::Account& week) {
  if (week.placed7d == 0) return std::nullopt;
  const qint64 tenths = week.inbox7d * 1000 / week.placed7d;
  return double(tenths) / 10;
}

WarmupHealth warmupHealthOf(const DemoWorkspace& workspace, const QDateTime& now) {
  const QDateTime local = localTimeIn(workspace, now);
  WarmupHealth health;
  for (const DemoMailbox& mailbox : workspace.mailboxes) {
    const auto account = warmupOf(mailbox, local);
    health.summary.healthy += account.health == "healthy"_L1;
    health.summary.watch += account.health == "watch"_L1;
    health.summary.atRisk += account.health == "at_risk"_L1;
    health.summary.off += account.health == "off"_L1;
    health.summary.ready += account.ready;
    health.items.append(account);
  }
  return health;
}

}  // namespace orv::demo
