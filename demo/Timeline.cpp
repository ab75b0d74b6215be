#include "demo/Timeline.h"

#include "demo/Enrolment.h"
#include "demo/Rendering.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// As much as it takes to put events in order; what they say is made for those that are shown.
struct Event {
  enum class Kind { sent, replied, bounced, noted };

  Kind kind;
  QString at;
  const CampaignLead* lead = nullptr;
  /// Of the email sent, or of the one that was answered or came back.
  qint64 step = 0;
  const FeedItem* noted = nullptr;
};

/// How far from the first email to the one of each position the waits between them are, as parts of `whole`.
qint64 waited(const DemoCampaign& campaign, qint64 position, qint64 count, qint64 whole) {
  const auto& steps = campaign.steps();
  qint64 before = 0, all = 0;
  for (qint64 step = 2; step <= count; ++step) {
    const qint64 wait = step <= steps.size() ? std::max<qint64>(1, steps[step - 1].delayMinutes) : 1;
    all += wait;
    if (step <= position) before += wait;
  }
  return all > 0 ? whole * before / all : 0;
}

/// The emails that a lead was sent, between the first and the last as their waits are, and what came back, oldest
/// first.
void appendCorrespondence(QList<Event>& events, const DemoCampaign& campaign, const SendingHours& hours,
                          const CampaignLead& lead) {
  const auto first = parsePlatformDate(lead.firstSentAt.value_or(QString()));
  const auto last = parsePlatformDate(lead.lastSentAt.value_or(QString()));
  if (!first || !last) return;
  const qint64 count = lead.currentStep.value_or(0);
  const qint64 begun = hours.until(*first), worked = hours.until(*last) - begun;
  for (qint64 step = 1; step < count; ++step) {
    const QDateTime at = hours.at(begun + waited(campaign, step, count, worked));
    events.append({Event::Kind::sent, formatPlatformDate(std::clamp(at, *first, *last)), &lead, step});
  }
  if (count > 0) events.append({Event::Kind::sent, *lead.lastSentAt, &lead, count});
  if (lead.repliedAt) events.append({Event::Kind::replied, *lead.repliedAt, &lead, count});
  if (lead.status.isBounced()) events.append({Event::Kind::bounced, *lead.lastSentAt, &lead, count});
}

void sortNewestFirst(QList<Event>& events) {
  std::ranges::reverse(events);
  // Timestamps of one form sort as text.
  std::ranges::stable_sort(events, std::ranges::greater(), &Event::at);
}

QList<Event> everything(const DemoCampaign& campaign) {
  QList<Event> events;
  const SendingHours hours = hoursOf(campaign);
  for (const CampaignLead& lead : campaign.leads) appendCorrespondence(events, campaign, hours, lead);
  for (const FeedItem& item : campaign.events) events.append({Event::Kind::noted, item.at, nullptr, 0, &item});
  sortNewestFirst(events);
  return events;
}

FeedItem::Who whoIs(const CampaignLead& lead) {
  const QString name = (lead.firstName.value_or(QString()) + u' ' + lead.lastName.value_or(QString())).trimmed();
  return {lead.id, lead.email, name.isEmpty() ? std::nullopt : std::optional(name)};
}

QString messageId(const CampaignLead& lead, qint64 step) { return lead.id + u"-m"_s + QString::number(step); }

FeedItem itemOf(const DemoCampaign& campaign, const Event& event) {
  if (event.kind == Event::Kind::noted) return *event.noted;
  const EmailHead head = headOf(campaign, *event.lead, event.step);
  FeedItem item;
  item.at = event.at;
  item.lead = whoIs(*event.lead);
  item.account = event.lead->senderAddress;
  item.subject = head.subject;
  switch (event.kind) {
    case Event::Kind::sent:
      item.kind = u"sent"_s;
      item.step = event.step;
      item.variant = head.variant;
      item.messageId = messageId(*event.lead, event.step);
      break;
    case Event::Kind::replied:
      item.kind = u"replied"_s;
      if (head.subject) item.subject = asReply(*head.subject);
      break;
    case Event::Kind::bounced:
      item.kind = u"bounced"_s;
      break;
    case Event::Kind::noted:
      Q_UNREACHABLE();
  }
  return item;
}

/// An email to the lead, sent or not.
SentMessage messageTo(const DemoCampaign& campaign, const CampaignLead& lead, qint64 step) {
  const EmailHead head = headOf(campaign, lead, step);
  SentMessage message;
  message.id = messageId(lead, step);
  message.leadId = lead.id;
  message.to = lead.email;
  message.from = lead.senderAddress.value_or(QString());
  message.step = step;
  message.variant = head.variant;
  message.subject = head.subject;
  return message;
}

SentMessage sentMessage(const DemoCampaign& campaign, const Event& event) {
  const CampaignLead& lead = *event.lead;
  SentMessage message = messageTo(campaign, lead, event.step);
  message.state = u"sent"_s;
  message.sentAt = event.at;
  const bool last = event.step == lead.currentStep;
  if (last) message.repliedAt = lead.repliedAt;
  if (last && lead.status.isBounced()) message.bouncedAt = event.at;
  return message;
}

SentMessage bookedMessage(const DemoCampaign& campaign, const CampaignLead& lead) {
  SentMessage message = messageTo(campaign, lead, lead.currentStep.value_or(0) + 1);
  message.state = u"scheduled"_s;
  message.scheduledAt = lead.nextSendAt;
  return message;
}

}  // namespace

void note(DemoCampaign& campaign, const QString& kind, const QDateTime& now, const CampaignLead* lead) {
  FeedItem item;
  item.kind = kind;
  item.at = formatPlatformDate(now);
  if (lead) item.lead = whoIs(*lead);
  campaign.events.append(item);
}

QList<LeadActivity> activityOf(const DemoCampaign& campaign, const CampaignLead& lead) {
  QList<Event> events;
  appendCorrespondence(events, campaign, hoursOf(campaign), lead);
  for (const FeedItem& item : campaign.events)
    if (item.lead && item.lead->id == lead.id) events.append({Event::Kind::noted, item.at, nullptr, 0, &item});
  sortNewestFirst(events);
  QList<LeadActivity> activity;
  for (const Event& event : std::as_const(events)) {
    const FeedItem item = itemOf(campaign, event);
    activity.append(
        {item.kind, item.at, item.step, item.variant, item.subject, item.detail, item.account, item.messageId});
  }
  return activity;
}

std::optional<FeedPage> feedOf(const DemoCampaign& campaign, qint64 limit, const QString& cursor) {
  const QList<Event> events = everything(campaign);
  bool isNumber = true;
  const qint64 older = cursor.isEmpty() ? events.size() : cursor.toLongLong(&isNumber);
  if (!isNumber || older < 0 || older > events.size()) return std::nullopt;
  FeedPage page;
  for (const Event& event : events.mid(events.size() - older, limit)) page.items.append(itemOf(campaign, event));
  if (page.items.size() < older) page.nextCursor = QString::number(older - page.items.size());
  return page;
}

MessagePage messagesOf(const DemoCampaign& campaign, qint64 limit) {
  QList<const CampaignLead*> booked;
  QList<Event> sent;
  const SendingHours hours = hoursOf(campaign);
  for (const CampaignLead& lead : campaign.leads) {
    if (isBooked(lead)) booked.append(&lead);
    appendCorrespondence(sent, campaign, hours, lead);
  }
  sent.removeIf([](const Event& event) { return event.kind != Event::Kind::sent; });
  sortNewestFirst(sent);
  std::ranges::sort(booked, {}, &CampaignLead::nextSendAt);
  // However much was sent, what comes next is to be seen as well.
  const qsizetype bookedCount = std::min(booked.size(), std::max(limit / 4, limit - sent.size()));
  MessagePage page;
  for (const Event& event : sent.first(std::min(sent.size(), limit - bookedCount)))
    page.items.append(sentMessage(campaign, event));
  for (const CampaignLead* lead : booked.first(bookedCount)) page.items.append(bookedMessage(campaign, *lead));
  return page;
}

}  // namespace orv::demo
