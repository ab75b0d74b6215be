#include <QJsonDocument>
#include <algorithm>

#include "demo/DailyFigures.h"
#include "demo/Mailboxes.h"
#include "demo/WarmupFigures.h"
#include "kit/models/labels.h"
#include "kit/models/mailboxes/mailboxHistory.h"
#include "kit/models/mailboxes/mailboxPage.h"
#include "kit/models/mailboxes/mailboxPatch.h"
#include "kit/models/mailboxes/trackingDomainCheck.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qint64 mostPerPage = 200, mostDays = 365, mostTags = 20;

/// What is said of all mailboxes stands on the first page. The counts take in the pool.
void tellCounts(MailboxPage& page, const DemoWorkspace& workspace) {
  page.counts.emplace();
  page.tags.emplace();
  page.archivedCount = workspace.archivedMailboxes.size();
  QMap<QString, qint64> byTag;
  for (const auto* all : {&workspace.mailboxes, &workspace.pool})
    for (const DemoMailbox& mailbox : *all) ++(*page.counts)[mailbox.record.status.rawValue];
  for (const DemoMailbox& mailbox : workspace.mailboxes)
    for (const QString& tag : mailbox.tags()) ++byTag[tag];
  for (auto tag = byTag.cbegin(); tag != byTag.cend(); ++tag) page.tags->append({tag.key(), tag.value()});
}

/// The cursor is the place of the last one shown: whoever leaves meanwhile makes no gap.
HTTPAnswer list(Call& call) {
  const bool archived = call.request.isSet(u"archived"_s);
  const QList<DemoMailbox> all =
      archived ? call.workspace->archivedMailboxes : call.workspace->mailboxes + call.workspace->pool;
  const QString cursor = call.request.value(u"cursor"_s);
  MailboxPage page;
  if (cursor.isEmpty()) tellCounts(page, *call.workspace);
  auto next = all.cbegin();
  if (archived && !cursor.isEmpty())
    next += std::min<qsizetype>(cursor.toInt(), all.size());
  else if (!cursor.isEmpty())
    next = std::ranges::upper_bound(all, cursor.toLongLong(), {}, &DemoMailbox::order);
  const ShownMailboxes shown(*call.workspace, call.now);
  for (qint64 room = call.request.limit(mostPerPage); room > 0 && next != all.cend(); --room, ++next)
    page.items.append(shown.of(*next));
  if (next != all.cend())
    page.nextCursor = QString::number(archived ? qint64(next - all.cbegin()) : std::prev(next)->order);
  return jsonAnswer(toJSON(page));
}

HTTPAnswer get(Call& call, DemoMailbox& mailbox) { return mailboxAnswer(call, mailbox); }

HTTPAnswer history(Call& call, DemoMailbox& mailbox) {
  const QDateTime local = localTimeIn(*call.workspace, call.now);
  const qint64 days = std::clamp<qint64>(call.request.value(u"days"_s).toLongLong(), 1, mostDays);
  const QDate first = local.date().addDays(1 - days);
  const auto sent = figuresOf(*call.workspace, first, local.date(), {{}, mailbox.id(), {}}, call.now);
  MailboxHistory history{call.workspace->timeZone, {}};
  for (qint64 index = 0; index < days; ++index) {
    history.days.append(warmupDayOf(mailbox, first.addDays(index), local));
    history.days.last().campaignSent = std::min(mostSentADay, sent.days.at(index).sent);
  }
  return jsonAnswer(toJSON(history));
}

std::optional<HTTPAnswer> refusalOf(const MailboxPatch& patch) {
  if (patch.displayName && patch.displayName->trimmed().isEmpty())
    return invalid(u"A sender name is required."_s, u"displayName"_s);
  if (patch.sendLimit && (*patch.sendLimit < 0 || *patch.sendLimit > 2000))
    return invalid(u"The daily limit is a number from 0 to 2000."_s, u"sendLimit"_s);
  if (patch.sendingGapMinutes && (*patch.sendingGapMinutes < 0 || *patch.sendingGapMinutes > 1440))
    return invalid(u"The wait is a number from 0 to 1440."_s, u"sendingGapMinutes"_s);
  if (patch.tags && patch.tags->size() > mostTags) return invalid(u"20 tags is the most."_s, u"tags"_s);
  return std::nullopt;
}

HTTPAnswer patch(Call& call, DemoMailbox& mailbox) {
  const QByteArray match = call.request.headers.value("if-match");
  if (!match.isEmpty() && match != '"' + QByteArray::number(mailbox.record.version.value_or(0)) + '"')
    return problemAnswer(409, u"version_conflict"_s, u"Someone changed this account meanwhile"_s,
                         u"What is shown now is the latest; make your change again."_s);
  const auto patch = call.request.bodyAs<MailboxPatch>();
  if (!patch) return invalid(u"This change can’t be read."_s, {});
  if (auto refusal = refusalOf(*patch)) return *std::move(refusal);
  Mailbox& record = mailbox.record;
  if (const auto mode = call.request.bodyAs<ReadyModeBody>(); mode && record.sendReady)
    record.sendReady->mode = mode->readyMode;
  if (patch->displayName) record.displayName = patch->displayName->trimmed();
  if (patch->dailyCap) record.dailyCap = *patch->dailyCap;
  if (patch->sendLimit) record.sendLimit = patch->sendLimit;
  if (patch->sendingGapMinutes) record.sendingGapMinutes = patch->sendingGapMinutes;
  if (patch->signature) record.signature = patch->signature;
  if (patch->tags) record.tags = patch->tags;
  if (patch->trackingDomain.isPresent() && patch->trackingDomain.value() != record.trackingDomain) {
    record.trackingDomain = patch->trackingDomain.value();
    // Known once it is checked.
    record.trackingDomainVerifiedAt.reset();
  }
  return changedAnswer(call, mailbox);
}

HTTPAnswer pauseOne(Call& call, DemoMailbox& mailbox) {
  pause(mailbox, u"Paused by hand"_s, call.now);
  mailbox.check.reset();
  return changedAnswer(call, mailbox);
}

HTTPAnswer resumeOne(Call& call, DemoMailbox& mailbox) {
  if (const auto refusal = resume(mailbox))
    return problemAnswer(409, u"not_connected"_s, u"This account can’t go on"_s, *refusal);
  return changedAnswer(call, mailbox);
}

HTTPAnswer verify(Call& call, DemoMailbox& mailbox) {
  if (mailbox.record.archivedAt) return problemAnswer(409, u"archived"_s, u"Restore this account first"_s);
  beginCheck(mailbox, call);
  return changedAnswer(call, mailbox);
}

HTTPAnswer checkTracking(Call& call, DemoMailbox& mailbox) {
  const auto host = mailbox.record.trackingDomain;
  if (!host) return problemAnswer(422, u"no_tracking_domain"_s, u"This account has no tracking domain"_s);
  const bool ok = setTrackingDomain(mailbox, host, call);
  mailbox.record.version = mailbox.record.version.value_or(0) + 1;
  TrackingDomainCheck::Check check{ok, trackingTarget, {}, {}};
  if (ok) check.found = trackingTarget;
  // A name that points somewhere else.
  if (host->startsWith("go."_L1)) check.found = u"parked.example"_s;
  if (!ok) check.message = check.found ? u"It points somewhere else."_s : u"No such record."_s;
  return jsonAnswer(toJSON(TrackingDomainCheck{ShownMailboxes(*call.workspace, call.now).of(mailbox), check}));
}

HTTPAnswer remove(Call& call, DemoMailbox& mailbox) {
  const QString id = mailbox.id();
  if (mailbox.record.isPool()) return problemAnswer(409, u"pool"_s, u"Accounts of the pool stay"_s);
  if (!mailbox.record.archivedAt) archiveMailbox(*call.workspace, id, call);
  if (call.request.isSet(u"permanent"_s))
    call.workspace->archivedMailboxes.removeIf([&id](const DemoMailbox& other) { return other.id() == id; });
  retellSenders(*call.workspace, call.now);
  return emptyAnswer();
}

HTTPAnswer restore(Call& call, DemoMailbox& mailbox) {
  if (!mailbox.record.archivedAt) return problemAnswer(409, u"not_archived"_s, u"This account isn’t archived"_s);
  const QString id = mailbox.id();
  restoreMailbox(*call.workspace, id, call.now);
  retellSenders(*call.workspace, call.now);
  return mailboxAnswer(call, *call.workspace->findMailbox(id));
}

HTTPAnswer tags(Call& call) {
  QStringList keys;
  for (const DemoCampaign& campaign : call.workspace->campaigns)
    keys += campaign.record.tags.value_or(QList<QString>());
  keys.removeDuplicates();
  keys.sort();
  TagList list;
  for (const QString& key : keys) list.items.append({key, key, {}});
  return jsonAnswer(toJSON(list));
}

}  // namespace

const QList<Route>& mailboxRoutes() {
  static const QList<Route> routes{
      {"GET", u"/mailboxes"_s, Access::readers, list},
      {"GET", u"/mailboxes/{id}"_s, Access::readers, onMailbox<get>},
      {"GET", u"/mailboxes/{id}/history"_s, Access::readers, onMailbox<history>},
      {"PATCH", u"/mailboxes/{id}"_s, Access::members, onMailbox<patch>},
      {"POST", u"/mailboxes/{id}/pause"_s, Access::members, onMailbox<pauseOne>},
      {"POST", u"/mailboxes/{id}/resume"_s, Access::members, onMailbox<resumeOne>},
      {"POST", u"/mailboxes/{id}/verify"_s, Access::members, onMailbox<verify>},
      {"POST", u"/mailboxes/{id}/tracking-domain/check"_s, Access::members, onMailbox<checkTracking>},
      {"DELETE", u"/mailboxes/{id}"_s, Access::members, onMailbox<remove>},
      {"POST", u"/mailboxes/{id}/restore"_s, Access::members, onMailbox<restore>},
      {"GET", u"/tags"_s, Access::readers, tags},
  };
  return routes;
}

}  // namespace orv::demo
