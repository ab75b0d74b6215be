#include "demo/Timeline.h"

#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

FeedItem itemOf(const QString& kind, const QString& at, const CampaignLead& lead) {
  FeedItem item;
  item.kind = kind;
  item.at = at;
  item.lead = whoIs(lead);
  item.account = lead.senderAddress;
  return item;
}

/// The emails that a lead was sent: so many, evenly between the first and the last.
struct Emails {
  qint64 count;
  QDateTime first, last;

  QString sentAt(qint64 step) const {
    return formatPlatformDate(step == count ? last : first.addMSecs(first.msecsTo(last) * (step - 1) / (count - 1)));
  }
};

std::optional<Emails> emailsTo(const CampaignLead& lead) {
  const auto first = parsePlatformDate(lead.firstSentAt.value_or(QString()));
  const auto last = parsePlatformDate(lead.lastSentAt.value_or(QString()));
  if (!first || !last) return std::nullopt;
  return Emails{lead.currentStep.value_or(0), *first, *last};
}

/// The emails to the lead and what came back, oldest first.
QList<FeedItem> correspondence(const DemoCampaign& campaign, const CampaignLead& lead) {
  QList<FeedItem> items;
  const auto emails = emailsTo(lead);
  if (!emails) return items;
  const auto& steps = campaign.steps();
  for (qint64 step = 1; step <= emails->count; ++step) {
    FeedItem item = itemOf(u"sent"_s, emails->sentAt(step), lead);
    item.step = step;
    item.messageId = lead.id + u"-m"_s + QString::number(step);
    // The sequence may have been cut since.
    if (step <= steps.size() && !steps[step - 1].variants.isEmpty()) {
      item.variant = steps[step - 1].variants.first().label;
      item.subject = steps[step - 1].variants.first().subject;
    }
    items.append(item);
  }
  if (lead.repliedAt) items.append(itemOf(u"replied"_s, *lead.repliedAt, lead));
  if (lead.status.isBounced()) items.append(itemOf(u"bounced"_s, emails->sentAt(emails->count), lead));
  return items;
}

void newestFirst(QList<FeedItem>& items) {
  std::ranges::reverse(items);
  // Timestamps of one form sort as text.
  std::ranges::stable_sort(items, std::ranges::greater(), &FeedItem::at);
}

QList<FeedItem> everything(const DemoCampaign& campaign) {
  QList<FeedItem> items;
  for (const CampaignLead& lead : campaign.leads) items += correspondence(campaign, lead);
  items += campaign.events;
  newestFirst(items);
  return items;
}

SentMessage messageOf(const FeedItem& item) {
  const auto lead = item.lead.value_or(FeedItem::Who());
  SentMessage message;
  message.id = item.messageId.value_or(QString());
  message.leadId = lead.id;
  message.to = lead.email;
  message.from = item.account.value_or(QString());
  message.step = item.step;
  message.variant = item.variant;
  message.subject = item.subject;
  message.state = u"sent"_s;
  message.sentAt = item.at;
  return message;
}

SentMessage bookingOf(const CampaignLead& lead) {
  SentMessage message;
  const qint64 step = lead.currentStep.value_or(0) + 1;
  message.step = step;
  message.id = lead.id + u"-m"_s + QString::number(step);
  message.leadId = lead.id;
  message.to = lead.email;
  message.from = lead.senderAddress.value_or(QString());
  message.state = u"scheduled"_s;
  message.scheduledAt = lead.nextSendAt;
  return message;
}

}  // namespace

FeedItem::Who whoIs(const CampaignLead& lead) {
  const QString name = (lead.firstName.value_or(QString()) + u' ' + lead.lastName.value_or(QString())).trimmed();
  return {lead.id, lead.email, name.isEmpty() ? std::nullopt : std::optional(name)};
}

QList<LeadActivity> activityOf(const DemoCampaign& campaign, const CampaignLead& lead) {
  QList<FeedItem> items = correspondence(campaign, lead);
  for (const FeedItem& event : campaign.events)
    if (event.lead && event.lead->id == lead.id) items.append(event);
  newestFirst(items);
  QList<LeadActivity> activity;
  for (const FeedItem& item : std::as_const(items))
    activity.append(
        {item.kind, item.at, item.step, item.variant, item.subject, item.detail, item.account, item.messageId});
  return activity;
}

std::optional<FeedPage> feedOf(const DemoCampaign& campaign, qint64 limit, const QString& cursor) {
  const QList<FeedItem> items = everything(campaign);
  bool isNumber = true;
  const qint64 older = cursor.isEmpty() ? items.size() : cursor.toLongLong(&isNumber);
  if (!isNumber || older < 0 || older > items.size()) return std::nullopt;
  FeedPage page;
  page.items = items.mid(items.size() - older, limit);
  if (page.items.size() < older) page.nextCursor = QString::number(older - page.items.size());
  return page;
}

MessagePage messagesOf(const DemoCampaign& campaign, qint64 limit) {
  MessagePage page;
  for (const CampaignLead& lead : campaign.leads)
    if (lead.nextSendAt && lead.status.isActive() && !lead.removedAt) page.items.append(bookingOf(lead));
  std::ranges::sort(page.items, std::ranges::greater(), &SentMessage::scheduledAt);
  // However much is booked, what was sent is to be seen as well.
  if (page.items.size() > limit / 2) page.items.remove(0, page.items.size() - limit / 2);
  for (const FeedItem& item : everything(campaign)) {
    if (page.items.size() >= limit) break;
    if (item.kind == "sent"_L1) page.items.append(messageOf(item));
  }
  return page;
}

}  // namespace orv::demo
