#include "demo/WarmupFigures.h"

#include <QTimeZone>
#include <array>

#include "demo/DailyFigures.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qint64 millisecondsADay = 86400000;

/// Volumes go evenly from the first day's to the last day's.
struct Stage {
  QLatin1String key, name;
  qint64 days, warmupFrom, warmupTo, campaignFrom, campaignTo;
};
constexpr std::array stages{Stage{"warmup"_L1, "Warm-up only"_L1, 14, 4, 20, 0, 0},
                            Stage{"slow_ramp"_L1, "Slow ramp"_L1, 21, 20, 30, 5, 30},
                            Stage{"full"_L1, "Full schedule"_L1, 7, 18, 18, 40, 40}};

struct Standing {
  const Stage* stage;
  /// 1 is its first; past the last one after the roadmap's end.
  qint64 day;
  bool ended = false;

  qint64 between(qint64 from, qint64 to) const {
    return stage->days < 2 ? to : from + (to - from) * (std::min(day, stage->days) - 1) / (stage->days - 1);
  }
  qint64 warmup() const { return between(stage->warmupFrom, stage->warmupTo); }
  qint64 campaign() const { return between(stage->campaignFrom, stage->campaignTo); }
};

Standing standingOn(qint64 dayNumber) {
  qint64 before = 0;
  for (const Stage& stage : stages) {
    if (dayNumber <= before + stage.days) return {&stage, dayNumber - before};
    before += stage.days;
  }
  return {&stages.back(), stages.back().days, true};
}

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
  const qint64 day = warmupDayNumber(mailbox, localNow.date());
  const Standing standing = standingOn(std::max<qint64>(1, day));
  Mailbox::RampupToday today;
  today.state = mailbox.idleSince ? u"paused"_s : day < 1 ? u"scheduled"_s : standing.ended ? u"done"_s : u"running"_s;
  today.dayIndex = day;
  today.stageKey = QString(standing.stage->key);
  today.stageName = QString(standing.stage->name);
  today.stageDay = standing.day;
  today.stageDays = standing.stage->days;
  today.warmupToday = standing.warmup();
  today.campaignCapToday = standing.campaign();
  return today;
}

MailboxHistory::Day warmupDayOf(const DemoMailbox& mailbox, const QDate& day, const QDateTime& localNow) {
  MailboxHistory::Day figures;
  figures.day = day.toString(Qt::ISODate);
  const qint64 number = warmupDayNumber(mailbox, day), worked = workedOn(mailbox, day, localNow);
  if (number < 1 || worked == 0) return figures;
  DemoRandom random = DemoRandom::of(mailbox.id() + figures.day);
  figures.planned = std::min(mailbox.record.dailyCap, standingOn(number).warmup());
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
