#include "demo/MailboxSample.h"

#include "demo/DailyFigures.h"
#include "demo/Roadmaps.h"
#include "demo/Words.h"
#include "kit/api/PlatformDate.h"
#include "kit/api/isoDay.h"
#include "kit/models/mailboxes/mailboxBrand.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// The first ones have been sending for the running campaigns all along; those after them are newer.
constexpr qint64 sendingForLong = 46, allKinds = 54;

QDateTime at(const QDate& today, qint64 daysAgo, int hour) {
  return QDateTime(today.addDays(-daysAgo), QTime(hour, 12), Qt::UTC);
}

qint64 ageOf(qint64 index, DemoRandom& random) {
  if (index < sendingForLong) return random.between(40, 150);
  return random.between(0, index < allKinds ? 33 : 150);
}

Mailbox::Connection connectionOf(Mailbox& record, const QString& domain, DemoRandom& random, const QDate& today) {
  const QString checkedAt = formatPlatformDate(at(today, random.below(2), 7));
  const qint64 way = random.below(10);
  record.provider = way < 5 ? u"google"_s : way < 8 ? u"microsoft"_s : u"smtp"_s;
  if (way < 4) return {u"google_dwd"_s, u"connected"_s, {}, checkedAt, {}};
  if (way == 4) return {u"smtp_imap"_s, u"connected"_s, {}, checkedAt, QString(mailHosts::gmailSmtp)};
  if (way < 7) return {u"ms_graph_app"_s, u"connected"_s, {}, checkedAt, {}};
  if (way == 7) return {u"ms_oauth"_s, u"connected"_s, {}, checkedAt, {}};
  return {u"smtp_imap"_s, u"connected"_s, {}, checkedAt, u"smtp."_s + domain};
}

/// Of those that do not work, some were paused and some refuse the sign-in.
void stop(DemoMailbox& mailbox, DemoRandom& random, const QDate& today) {
  mailbox.idleSince = at(today, random.below(3), 6);
  if (random.chance(0.6)) {
    mailbox.record.status = MailboxStatus(u"paused"_s);
    mailbox.record.pausedReason = u"Paused by hand"_s;
    return;
  }
  const bool isMicrosoft = mailbox.record.provider == "microsoft"_L1;
  mailbox.fault = isMicrosoft ? u"The app’s client secret has expired"_s : u"IMAP sign-in refused"_s;
  mailbox.record.status = MailboxStatus(u"failed"_s);
  mailbox.record.connection->status = u"failed"_s;
  mailbox.record.connection->lastError = mailbox.fault;
}

/// What the one generator of the sample decides is few, so that everything else in the sample stays what it was.
DemoMailbox makeMailbox(DemoWorkspace& workspace, qint64 index, DemoRandom& sample, const QDate& today) {
  DemoMailbox mailbox;
  Mailbox& record = mailbox.record;
  const QString first = sample.pick(words::firstNames()), last = sample.pick(words::lastNames());
  const QString domain = workspace.slug + u"-mail.example"_s;
  record.id = sample.id(u"mb"_s);
  record.number = mailbox.order = ++workspace.lastMailboxNumber;
  record.address = first.toLower() + u'.' + last.toLower() + QString::number(index) + u'@' + domain;
  record.displayName = first + u' ' + last;
  record.role = u"sender"_s;
  record.dailyCap = mostSentADay;
  record.version = 1;
  record.status = MailboxStatus(u"active"_s);
  record.tags = index % 3 == 0 ? QList{u"new domains"_s} : index % 3 == 1 ? QList{u"dach"_s} : QList<QString>();

  DemoRandom random = DemoRandom::of(record.id);
  record.createdAt = formatPlatformDate(at(today, ageOf(index, random), 9));
  record.sendReady = Mailbox::SendReady{false, u"automatic"_s, {}, 0, 0};
  record.sendLimit = mostSentADay;
  if (random.chance(0.3)) record.sendingGapMinutes = random.between(1, 4) * 5;
  if (random.chance(0.4)) record.signature = u"Best,\n"_s + first;
  record.connection = connectionOf(record, domain, random, today);
  if (random.chance(0.25)) record.trackingDomain = (random.chance(0.8) ? u"track."_s : u"go."_s) + domain;
  if (record.trackingDomain && record.trackingDomain->startsWith("track."_L1))
    record.trackingDomainVerifiedAt = formatPlatformDate(at(today, 20, 10));
  if (!sample.chance(0.9)) stop(mailbox, random, today);
  mailbox.warmup = firstWarmup(record.id);
  putOnRoadmap(mailbox, defaultTemplate(workspace), isoDay(record.createdAt.first(10)));
  return mailbox;
}

}  // namespace

void addMailboxes(DemoWorkspace& workspace, qint64 count, DemoRandom& random, const QDate& today) {
  for (qint64 i = 0; i < count; ++i) workspace.mailboxes.append(makeMailbox(workspace, i, random, today));
  varyRoadmaps(workspace, today);
  constexpr qint64 poolSize = 3, behindAllOthers = 1'000'000'000;
  for (qint64 i = 0; i < poolSize; ++i) {
    DemoMailbox mailbox;
    mailbox.order = behindAllOthers + i;
    Mailbox& record = mailbox.record;
    record.id = u"mb_pool_%1_%2"_s.arg(workspace.slug).arg(i);
    record.address = u"warm%1@pool.orvella.example"_s.arg(i + 1);
    record.displayName = u"Warm-up pool"_s;
    record.provider = u"google"_s;
    record.role = u"pool"_s;
    record.status = MailboxStatus(u"active"_s);
    record.dailyCap = mostSentADay;
    record.connection = Mailbox::Connection{u"google_dwd"_s, u"connected"_s, {}, {}, {}};
    record.version = 1;
    record.createdAt = formatPlatformDate(at(today, 300, 9));
    mailbox.warmup = firstWarmup(record.id);
    putOnRoadmap(mailbox, defaultTemplate(workspace), today.addDays(-300));
    workspace.pool.append(mailbox);
  }
}

void addArchivedMailboxes(DemoWorkspace& workspace, qint64 count, DemoRandom& random, const QDate& today) {
  for (qint64 i = 0; i < count; ++i) {
    DemoMailbox mailbox = makeMailbox(workspace, i, random, today);
    mailbox.record.address = u"retired%1@"_s.arg(i + 1) + workspace.slug + u"-old.example"_s;
    mailbox.record.archivedAt = formatPlatformDate(at(today, 3 + i * 5, 15));
    mailbox.idleSince = at(today, 3 + i * 5, 15);
    workspace.archivedMailboxes.append(mailbox);
  }
}

}  // namespace orv::demo
