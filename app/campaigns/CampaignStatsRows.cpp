#include "app/campaigns/CampaignStatsRows.h"

#include "app/base/cellText.h"
#include "app/campaigns/LeadRows.h"
#include "app/figures/FigureRows.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(EmailFigures)
ORV_DEFINE_ROW(EventLine)

namespace {

const auto noSubject = u"(no subject)"_s;

QString subjectOr(const std::optional<QString>& subject) {
  const QString text = subject.value_or(QString()).trimmed();
  return text.isEmpty() ? noSubject : text;
}

/// A first step has no thread before it, whatever it says of itself.
QString subjectOf(const CampaignStep& step, qsizetype place, const CampaignVariant* variant) {
  if (step.sameThread && place > 0) return u"Reply in thread"_s;
  return subjectOr(variant ? std::optional(variant->subject) : std::nullopt);
}

EmailFigures withStats(EmailFigures row, const std::optional<Stats4>& stats) {
  const auto count = [&stats](qint64 Stats4::*field) { return stats ? Format::grouped(*stats.*field) : noValue; };
  const auto rate = [&stats](qint64 Stats4::*field) {
    return stats ? Format::rate(*stats.*field, stats->sent) : QString();
  };
  row.sent = count(&Stats4::sent);
  row.replied = count(&Stats4::replied);
  row.repliedRate = rate(&Stats4::replied);
  row.positive = count(&Stats4::positive);
  row.bounced = count(&Stats4::bounced);
  row.bouncedRate = rate(&Stats4::bounced);
  row.bouncesHigh = stats && bouncesAreHigh(stats->bounced, stats->sent);
  return row;
}

QString joined(const QStringList& parts) {
  QStringList said;
  for (const QString& part : parts)
    if (!part.isEmpty()) said.append(part);
  return said.join(u" · "_s);
}

QString emailOf(const std::optional<qint64>& step, const std::optional<QString>& variant) {
  if (!step) return {};
  return u"Email "_s + QString::number(*step) + variant.value_or(QString());
}

EventLine lineOf(const SentMessage& message) {
  EventLine line;
  line.id = message.id;
  line.title = subjectOr(message.subject);
  line.detail = joined({u"To "_s + message.to, message.from.isEmpty() ? QString() : u"from "_s + message.from,
                        emailOf(message.step, message.variant), message.error.value_or(QString())});
  const bool sent = message.state == "sent"_L1, failed = message.state == "failed"_L1;
  line.state = sent || failed ? message.state : u"unknown"_s;
  line.stateLabel = sent ? u"Sent"_s : failed ? u"Failed"_s : u"Unknown"_s;
  line.when = leadMoment(message.sentAt ? message.sentAt : message.scheduledAt);
  return line;
}

/// Words of the service's that are known read as a sentence begins; others stand as they are.
QString kindLabel(const QString& kind) {
  static const QHash<QString, QString> labels{
      {u"sent"_s, u"Sent"_s},     {u"replied"_s, u"Replied"_s},    {u"bounced"_s, u"Bounced"_s},
      {u"opened"_s, u"Opened"_s}, {u"clicked"_s, u"Clicked"_s},    {u"unsubscribed"_s, u"Unsubscribed"_s},
      {u"failed"_s, u"Failed"_s}, {u"launched"_s, u"Launched"_s},  {u"resumed"_s, u"Resumed"_s},
      {u"paused"_s, u"Paused"_s}, {u"completed"_s, u"Completed"_s}};
  return labels.value(kind, kind);
}

QString identityOf(const FeedItem& item) {
  QStringList parts{item.kind, item.at, item.lead ? item.lead->id : QString(), QString::number(item.step.value_or(0))};
  for (const auto* part : {&item.variant, &item.messageId, &item.subject, &item.detail, &item.account})
    parts.append(part->value_or(QString()));
  return parts.join(u'\n');
}

}  // namespace

std::vector<EmailFigures> emailFigures(const QList<CampaignStep>& steps) {
  std::vector<EmailFigures> rows;
  for (qsizetype place = 0; place < steps.size(); ++place) {
    const CampaignStep& step = steps[place];
    const bool split = step.variants.size() > 1;
    EmailFigures row;
    row.id = step.id;
    row.title = subjectOf(step, place, step.variants.isEmpty() ? nullptr : &step.variants.first());
    row.detail = u"Email "_s + QString::number(place + 1);
    if (split) row.detail += u" · "_s + QString::number(step.variants.size()) + u" variants"_s;
    rows.push_back(withStats(row, step.stats));
    if (!split) continue;
    for (const CampaignVariant& variant : step.variants) {
      EmailFigures part;
      part.id = variant.id;
      part.variant = true;
      part.title = subjectOf(step, place, &variant);
      part.detail = u"Variant "_s + variant.label + (variant.enabled ? QString() : u" · off"_s);
      rows.push_back(withStats(part, variant.stats));
    }
  }
  return rows;
}

std::vector<EventLine> messageLines(const QList<SentMessage>& messages) {
  std::vector<EventLine> lines;
  lines.reserve(size_t(messages.size()));
  for (const SentMessage& message : messages) lines.push_back(lineOf(message));
  return lines;
}

EventLine feedLine(const FeedItem& item) {
  EventLine line;
  line.id = identityOf(item);
  const bool many = item.count.value_or(1) > 1;
  line.title = kindLabel(item.kind) + (many ? u" × "_s + Format::grouped(*item.count) : QString());
  const auto who = item.lead ? item.lead->name.value_or(item.lead->email) : QString();
  line.detail = joined({who, emailOf(item.step, item.variant), item.subject.value_or(QString()).trimmed(),
                        item.detail.value_or(QString()), item.account ? u"from "_s + *item.account : QString()});
  line.when = leadMoment(item.at);
  return line;
}

}  // namespace orv
