#include "demo/MailboxDoor.h"

#include <algorithm>

#include "kit/models/labels.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// What the workspace calls replies; leads under the last one never hear from it again.
ReplyLabelList replyLabels() {
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

}  // namespace

std::optional<HTTPAnswer> MailboxDoor::answer(const DemoRequest& request, const QStringList& parts) const {
  const QString call = QString::fromLatin1(request.method) + u' ' + parts.join(u'/');
  if (call == "GET mailboxes"_L1) return list(request.query);
  if (call == "GET tags"_L1) return tags();
  if (call == "GET reply-labels"_L1) return jsonAnswer(toJSON(replyLabels()));
  return std::nullopt;
}

/// No mailbox is ever archived here, so the archive's pages are empty.
HTTPAnswer MailboxDoor::list(const QUrlQuery& query) const {
  MailboxPage page;
  page.archivedCount = 0;
  if (query.queryItemValue(u"archived"_s) == "1"_L1) return jsonAnswer(toJSON(page));
  const qsizetype limit = std::clamp<qsizetype>(query.queryItemValue(u"limit"_s).toInt(), 1, 200);
  const qsizetype from = std::max<qsizetype>(0, query.queryItemValue(u"cursor"_s).toInt());
  const qsizetype count = m_workspace.mailboxes.size();
  for (const DemoMailbox& listed : m_workspace.mailboxes.mid(from, limit)) page.items.append(mailboxOf(listed));
  if (from + limit < count) page.nextCursor = QString::number(from + limit);
  QMap<QString, qint64> byTag;
  page.counts.emplace();
  for (const DemoMailbox& mailbox : m_workspace.mailboxes) {
    ++(*page.counts)[mailbox.status];
    for (const QString& tag : mailbox.tags) ++byTag[tag];
  }
  page.tags.emplace();
  for (auto tag = byTag.cbegin(); tag != byTag.cend(); ++tag) page.tags->append({tag.key(), tag.value()});
  return jsonAnswer(toJSON(page));
}

HTTPAnswer MailboxDoor::tags() const {
  QStringList keys;
  for (const DemoCampaign& campaign : m_workspace.campaigns) keys += campaign.record.tags.value_or(QList<QString>());
  keys.removeDuplicates();
  keys.sort();
  TagList list;
  for (const QString& key : keys) list.items.append({key, key, {}});
  return jsonAnswer(toJSON(list));
}

Mailbox MailboxDoor::mailboxOf(const DemoMailbox& listed) const {
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
  mailbox.campaign = Mailbox::CampaignToday{listed.asSender().sentToday};
  mailbox.health = u"healthy"_s;
  mailbox.version = 1;
  mailbox.createdAt = formatPlatformDate(m_now.addDays(-60));
  return mailbox;
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

}  // namespace orv::demo
