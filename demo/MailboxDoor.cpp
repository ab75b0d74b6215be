#include "demo/MailboxDoor.h"

#include <algorithm>

#include "demo/DailyFigures.h"
#include "demo/Routes.h"
#include "kit/models/labels.h"
#include "kit/models/mailboxes/mailboxPage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qint64 mostPerPage = 200;

/// What the workspace calls replies; leads under the last one never hear from it again.
ReplyLabelList allReplyLabels() {
  return {{{u"interested"_s, u"Interested"_s, u"positive"_s},
           {u"meeting_booked"_s, u"Meeting booked"_s, u"positive"_s},
           {u"later"_s, u"Not now"_s, u"neutral"_s},
           {u"not_interested"_s, u"Not interested"_s, u"negative"_s},
           {u"wrong_person"_s, u"Wrong person"_s, u"neutral"_s},
           {u"out_of_office"_s, u"Out of office"_s, u"neutral"_s},
           {u"unsubscribe"_s, u"Unsubscribe"_s, u"negative"_s}}};
}

bool sharesOne(const QStringList& tags, const QList<QString>& others) {
  return std::ranges::any_of(tags, [&others](const QString& tag) { return others.contains(tag); });
}

Mailbox mailboxOf(const DemoMailbox& listed, qint64 sentToday, const QDateTime& now) {
  Mailbox mailbox;
  mailbox.id = listed.id;
  mailbox.address = listed.address;
  mailbox.displayName = listed.displayName;
  mailbox.provider = u"google"_s;
  mailbox.role = u"sender"_s;
  mailbox.status = MailboxStatus(listed.status);
  mailbox.dailyCap = listed.dailyCap;
  mailbox.connection = Mailbox::Connection{u"google_dwd"_s, u"connected"_s, {}, {}, {}};
  mailbox.sendReady = Mailbox::SendReady{listed.status == "active"_L1, u"automatic"_s, {}, 21, 14};
  mailbox.sendLimit = listed.dailyCap;
  mailbox.tags = listed.tags;
  mailbox.campaign = Mailbox::CampaignToday{sentToday};
  mailbox.health = u"healthy"_s;
  mailbox.version = 1;
  mailbox.createdAt = formatPlatformDate(now.addDays(-60));
  return mailbox;
}

/// No mailbox is ever archived here, so the archive's pages are empty.
HTTPAnswer list(Call& call) {
  MailboxPage page;
  page.archivedCount = 0;
  if (call.request.isSet(u"archived"_s)) return jsonAnswer(toJSON(page));
  const auto& mailboxes = call.workspace->mailboxes;
  const qsizetype limit = call.request.limit(mostPerPage), count = mailboxes.size();
  const qsizetype from = std::max<qsizetype>(0, call.request.value(u"cursor"_s).toInt());
  const auto sent = sentTodayBy(*call.workspace, call.now);
  for (const DemoMailbox& listed : mailboxes.mid(from, limit))
    page.items.append(mailboxOf(listed, sent.value(listed.id), call.now));
  if (from + limit < count) page.nextCursor = QString::number(from + limit);
  QMap<QString, qint64> byTag;
  page.counts.emplace();
  for (const DemoMailbox& mailbox : mailboxes) {
    ++(*page.counts)[mailbox.status];
    for (const QString& tag : mailbox.tags) ++byTag[tag];
  }
  page.tags.emplace();
  for (auto tag = byTag.cbegin(); tag != byTag.cend(); ++tag) page.tags->append({tag.key(), tag.value()});
  return jsonAnswer(toJSON(page));
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

HTTPAnswer replyLabels(Call&) { return jsonAnswer(toJSON(allReplyLabels())); }

}  // namespace

const QList<Route>& mailboxRoutes() {
  static const QList<Route> routes{
      {"GET", u"/mailboxes"_s, Access::readers, list},
      {"GET", u"/tags"_s, Access::readers, tags},
      {"GET", u"/reply-labels"_s, Access::readers, replyLabels},
  };
  return routes;
}

std::optional<QList<CampaignSender>> sendersOf(const DemoWorkspace& workspace, const QList<QString>& pickedIds,
                                               const QList<QString>& tags) {
  QList<CampaignSender> senders;
  for (const QString& id : pickedIds) {
    const auto mailbox = std::ranges::find(workspace.mailboxes, id, &DemoMailbox::id);
    if (mailbox == workspace.mailboxes.cend()) return std::nullopt;
    senders.append(mailbox->asSender());
  }
  for (const DemoMailbox& mailbox : workspace.mailboxes) {
    if (pickedIds.contains(mailbox.id) || !sharesOne(mailbox.tags, tags)) continue;
    senders.append(mailbox.asSender());
    senders.last().viaTag = true;
  }
  return senders;
}

void tellTodaysSends(QList<CampaignSender>& senders, const DemoWorkspace& workspace, const QDateTime& now) {
  const auto sent = sentTodayBy(workspace, now);
  for (CampaignSender& sender : senders) sender.sentToday = sent.value(sender.mailboxId);
}

}  // namespace orv::demo
