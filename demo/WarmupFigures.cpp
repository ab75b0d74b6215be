#include "demo/WarmupFigures.h"

#include "demo/DailyFigures.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// Campaigns may send from a mailbox that has been warming up for so long.
constexpr qint64 daysUntilReady = 14;
constexpr qint64 millisecondsADay = 86400000;

QString healthOf(qint64 inboxPct) {
  if (inboxPct >= 92) return u"healthy"_s;
  return inboxPct >= 85 ? u"watch"_s : u"at_risk"_s;
}

}  // namespace

WarmupHealth::Account warmupOf(const DemoMailbox& mailbox, const QTime& time) {
  DemoRandom random = DemoRandom::of(mailbox.id);
  WarmupHealth::Account account;
  account.id = mailbox.id;
  account.address = mailbox.address;
  account.displayName = mailbox.displayName;
  account.provider = random.chance(0.5) ? u"google"_s : u"microsoft"_s;
  account.role = u"sender"_s;
  account.status = mailbox.status;
  account.dailyCap = mailbox.dailyCap;
  account.rampDay = random.between(5, 90);
  if (mailbox.status != "active"_L1) {
    account.readyReason = u"Paused"_s;
    account.health = u"off"_s;
    return account;
  }
  const qint64 planned = std::min(mailbox.dailyCap, 4 + account.rampDay);
  account.plannedToday = planned;
  account.sentToday = planned * time.msecsSinceStartOfDay() / millisecondsADay;
  account.sent7d = planned * 7 - random.below(planned);
  account.received7d = account.sent7d * 9 / 10;
  account.failed7d = std::min(random.below(3), account.sent7d);
  account.placed7d = account.sent7d - account.failed7d;
  account.spam7d = account.placed7d * random.pick(QList<qint64>{0, 1, 1, 2, 3, 4, 5, 6, 10, 18}) / 100;
  account.inbox7d = account.placed7d - account.spam7d;
  account.rescued7d = account.spam7d * 4 / 5;
  if (account.placed7d > 0) account.inboxPct7d = account.inbox7d * 100 / account.placed7d;
  account.ready = account.rampDay > daysUntilReady;
  if (!account.ready)
    account.readyReason =
        u"Warming up, day "_s + QString::number(account.rampDay) + u" of "_s + QString::number(daysUntilReady);
  account.health = healthOf(account.inboxPct7d.value_or(100));
  return account;
}

WarmupHealth warmupHealthOf(const DemoWorkspace& workspace, const QDateTime& now) {
  const QTime time = localTimeIn(workspace, now).time();
  WarmupHealth health;
  for (const DemoMailbox& mailbox : workspace.mailboxes) {
    const auto account = warmupOf(mailbox, time);
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
