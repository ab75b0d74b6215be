#include "demo/Mailboxes.h"
#include "kit/models/mailboxes/mailboxBulk.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

using Refusal = std::optional<QString>;

struct Bulk {
  const MailboxBulkBody& body;
  const Call& call;
  MailboxBulkResult result;
};

Refusal pauseEach(Bulk& bulk, DemoMailbox& mailbox) {
  pause(mailbox, u"Paused by hand"_s, bulk.call.now);
  mailbox.check.reset();
  return {};
}

Refusal resumeEach(Bulk&, DemoMailbox& mailbox) { return resume(mailbox); }

Refusal verifyEach(Bulk& bulk, DemoMailbox& mailbox) {
  beginCheck(mailbox, bulk.call);
  return {};
}

Refusal limitEach(Bulk& bulk, DemoMailbox& mailbox) {
  mailbox.record.sendLimit = bulk.body.sendLimit;
  return {};
}

Refusal gapEach(Bulk& bulk, DemoMailbox& mailbox) {
  mailbox.record.sendingGapMinutes = bulk.body.sendingGapMinutes;
  return {};
}

Refusal tagEach(Bulk& bulk, DemoMailbox& mailbox) {
  constexpr qsizetype most = 20;
  QList<QString> tags = mailbox.tags();
  for (const QString& tag : *bulk.body.tags)
    if (!tags.contains(tag)) tags.append(tag);
  if (tags.size() > most) return mailbox.record.address + u" has 20 tags, which is the most."_s;
  mailbox.record.tags = tags;
  return {};
}

Refusal untagEach(Bulk& bulk, DemoMailbox& mailbox) {
  QList<QString> tags = mailbox.tags();
  tags.removeIf([&bulk](const QString& tag) { return bulk.body.tags->contains(tag); });
  mailbox.record.tags = tags;
  return {};
}

Refusal trackEach(Bulk& bulk, DemoMailbox& mailbox) {
  QString host = bulk.body.trackingDomain.value_or(QString());
  host.replace(u"{domain}"_s, mailbox.record.address.section(u'@', -1));
  const bool points = setTrackingDomain(mailbox, host.isEmpty() ? std::nullopt : std::optional(host), bulk.call);
  bulk.result.verified = bulk.result.verified.value_or(0) + points;
  return {};
}

Refusal handOver(Bulk&, DemoMailbox& mailbox) {
  if (!mailbox.isActive()) return mailbox.record.address + u" is not active."_s;
  QList<QString> tags = mailbox.tags();
  if (!tags.contains(u"Bison"_s)) tags.append(u"Bison"_s);
  mailbox.record.tags = tags;
  return {};
}

/// An action's own way with each mailbox, and whether the body has what it needs.
struct Action {
  Refusal (*apply)(Bulk&, DemoMailbox&);
  bool complete;
};

std::optional<Action> actionOf(const MailboxBulkBody& body) {
  const auto within = [](std::optional<qint64> value, qint64 most) { return value && *value >= 0 && *value <= most; };
  const bool tagged = body.tags && !body.tags->isEmpty();
  const QHash<QString, Action> actions{{u"pause"_s, {pauseEach, true}},
                                       {u"resume"_s, {resumeEach, true}},
                                       {u"verify"_s, {verifyEach, true}},
                                       {u"set_limit"_s, {limitEach, within(body.sendLimit, 2000)}},
                                       {u"set_sending_gap"_s, {gapEach, within(body.sendingGapMinutes, 1440)}},
                                       {u"add_tags"_s, {tagEach, tagged}},
                                       {u"remove_tags"_s, {untagEach, tagged}},
                                       {u"set_tracking_domain"_s, {trackEach, true}},
                                       {u"add_to_bison"_s, {handOver, true}}};
  const auto found = actions.constFind(body.action);
  return found == actions.cend() ? std::nullopt : std::optional(*found);
}

void removeAll(const MailboxBulkBody& body, const Call& call, MailboxBulkResult& result) {
  const QSet<QString> wanted(body.ids.cbegin(), body.ids.cend());
  for (const QString& id : body.ids) {
    const qsizetype before = call.workspace->mailboxes.size();
    archiveMailbox(*call.workspace, id, call);
    if (call.workspace->mailboxes.size() < before)
      ++result.ok;
    else
      result.failed.append({id, u"This account is no longer here."_s});
  }
}

void applyToAll(const Action& action, Bulk& bulk) {
  QHash<QString, DemoMailbox*> live;
  for (DemoMailbox& mailbox : bulk.call.workspace->mailboxes) live.insert(mailbox.id(), &mailbox);
  for (const QString& id : bulk.body.ids) {
    DemoMailbox* mailbox = live.value(id);
    const Refusal refusal = mailbox ? action.apply(bulk, *mailbox) : u"This account is no longer here."_s;
    if (refusal) {
      bulk.result.failed.append({id, *refusal});
      continue;
    }
    mailbox->record.version = mailbox->record.version.value_or(0) + 1;
    ++bulk.result.ok;
  }
}

HTTPAnswer bulk(Call& call) {
  const auto body = call.request.bodyAs<MailboxBulkBody>();
  if (!body || body->ids.isEmpty()) return invalid(u"Choose at least one account."_s, u"ids"_s);
  Bulk bulk{*body, call, {}};
  if (body->action == "delete"_L1) {
    removeAll(*body, call, bulk.result);
  } else {
    const auto action = actionOf(*body);
    if (!action) return invalid(u"There is no such action."_s, u"action"_s);
    if (!action->complete) return invalid(u"This action needs more."_s, u"action"_s);
    applyToAll(*action, bulk);
  }
  retellSenders(*call.workspace, call.now);
  return jsonAnswer(toJSON(bulk.result));
}

}  // namespace

const QList<Route>& mailboxBulkRoutes() {
  static const QList<Route> routes{{"POST", u"/mailboxes/bulk"_s, Access::members, bulk}};
  return routes;
}

}  // namespace orv::demo
