#include "demo/DailyFigures.h"

#include <QTimeZone>
#include <algorithm>
#include <array>

#include "kit/api/PlatformDate.h"
#include "kit/models/campaigns/campaignSender.h"
#include "kit/models/campaigns/campaignStats.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr std::array fields{
    &Figures::sent,           &Figures::contacted,         &Figures::opens,        &Figures::replies,
    &Figures::autoReplies,    &Figures::bounces,           &Figures::unsubscribes, &Figures::interested,
    &Figures::meetingsBooked, &Figures::meetingsCompleted, &Figures::won};

qint64 share(qint64 whole, qint64 part, qint64 of) { return of > 0 ? whole * part / of : 0; }

/// What the first `sent` emails of a campaign led to. Every email has its number and what came of it follows from that,
/// so that the parts add up however the emails are sorted into days and mailboxes.
Figures after(qint64 sent, const CampaignStats& stats) {
  Figures figures;
  figures.sent = sent;
  figures.contacted = share(std::min(stats.sent, stats.leads.total), sent, stats.sent);
  figures.opens = sent * 35 / 100;
  figures.bounces = share(stats.bounced, sent, stats.sent);
  figures.replies = share(stats.replied, sent, stats.sent);
  figures.autoReplies = figures.replies / 12;
  figures.unsubscribes = figures.contacted / 160;
  figures.interested = share(stats.positive, figures.replies, stats.replied);
  figures.meetingsBooked = figures.interested / 4;
  figures.meetingsCompleted = figures.meetingsBooked * 7 / 10;
  figures.won = figures.meetingsCompleted / 5;
  return figures;
}

/// Whether the campaign can have sent anything since that day: asked of very many, so that dates are told by their
/// text.
bool maySendSince(const DemoCampaign& campaign, const QDate& day) {
  if (!campaign.record.launchedAt) return false;
  // Elsewhere on earth that day may begin a day sooner.
  const QString since = day.addDays(-1).toString(Qt::ISODate);
  const auto& paused = campaign.record.pausedAt;
  const auto& completed = campaign.record.completedAt;
  return (!paused || *paused >= since) && (!completed || *completed >= since);
}

/// How the emails of a campaign fall on the days since its launch: on some more than on others, on weekends few.
class SendingDays {
 public:
  SendingDays(const DemoWorkspace& workspace, const DemoCampaign& campaign, const QDate& today)
      : m_stats(campaign.stats()) {
    const auto launched = parsePlatformDate(campaign.record.launchedAt);
    if (!launched) return;
    m_start = dayIn(workspace, *launched);
    QDate end = today;
    for (const auto& stopped :
         {parsePlatformDate(campaign.record.pausedAt), parsePlatformDate(campaign.record.completedAt)})
      if (stopped) end = std::min(end, dayIn(workspace, *stopped));
    DemoRandom random(campaign.seed);
    qint64 weight = 0;
    for (QDate day = m_start; day <= std::max(m_start, end); day = day.addDays(1)) {
      const qint64 varied = random.between(8, 12);
      m_weights.append(weight += day.dayOfWeek() > Qt::Friday ? 1 : varied);
    }
  }

  /// Emails sent up to the end of the day.
  qint64 sentBy(const QDate& day) const {
    if (m_weights.isEmpty() || day < m_start) return 0;
    const qint64 index = std::min<qint64>(m_start.daysTo(day), m_weights.size() - 1);
    return share(m_stats.sent, m_weights[index], m_weights.last());
  }

 private:
  const CampaignStats& m_stats;
  QDate m_start;
  /// Of all days up to each.
  QList<qint64> m_weights;
};

/// The campaign's mailboxes by days. What a campaign without any has sent came from the first that there is.
class SendingMailboxes {
 public:
  SendingMailboxes(const DemoWorkspace& workspace, const DemoCampaign& campaign)
      : m_workspace(workspace), m_earlier(campaign.earlierSenders), m_now(orTheFirst(campaign.senderIds())) {}

  QStringList on(const QDate& day) const {
    const auto earlier = std::ranges::lower_bound(m_earlier, day, {}, &DemoCampaign::EarlierSenders::until);
    return earlier == m_earlier.end() ? m_now : orTheFirst(earlier->mailboxes);
  }

 private:
  QStringList orTheFirst(const QStringList& ids) const {
    if (!ids.isEmpty()) return ids;
    return {m_workspace.mailboxes.isEmpty() ? QString() : m_workspace.mailboxes.first().id()};
  }

  const DemoWorkspace& m_workspace;
  const QList<DemoCampaign::EarlierSenders>& m_earlier;
  QStringList m_now;
};

/// The mailboxes that the filter leaves.
QSet<QString> countedMailboxes(const DemoWorkspace& workspace, const FigureFilter& filter) {
  QSet<QString> ids;
  for (const DemoMailbox& mailbox : workspace.mailboxes) {
    if (!filter.mailbox.isEmpty() && mailbox.id() != filter.mailbox) continue;
    if (filter.tag.isEmpty() || mailbox.tags().contains(filter.tag)) ids.insert(mailbox.id());
  }
  return ids;
}

Figures addCampaign(RangeFigures& into, const DemoWorkspace& workspace, const DemoCampaign& campaign,
                    const std::optional<QSet<QString>>& counted, const QDate& today) {
  const SendingDays days(workspace, campaign, today);
  const SendingMailboxes sending(workspace, campaign);
  Figures all;
  qint64 before = days.sentBy(into.from.addDays(-1));
  for (qsizetype index = 0; index < into.days.size(); ++index) {
    const QDate day = into.from.addDays(index);
    const QStringList mailboxes = sending.on(day);
    const qint64 sent = days.sentBy(day) - before, count = mailboxes.size();
    for (qint64 part = 0; sent > 0 && part < count; ++part) {
      // Another mailbox is first each day, or the last would have all the remainders; on one day the same, whatever the
      // range that is asked for.
      const QString& mailbox = mailboxes[(part + into.from.toJulianDay() + index) % count];
      if (counted && !counted->contains(mailbox)) continue;
      const Figures figures = after(before + sent * (part + 1) / count, campaign.stats()) -
                              after(before + sent * part / count, campaign.stats());
      into.days[index] += figures;
      into.accounts[mailbox] += figures;
      all += figures;
    }
    before += sent;
  }
  return all;
}

}  // namespace

Figures& Figures::operator+=(const Figures& other) {
  for (const auto field : fields) this->*field += other.*field;
  return *this;
}

Figures Figures::operator-(const Figures& other) const {
  Figures difference = *this;
  for (const auto field : fields) difference.*field -= other.*field;
  return difference;
}

RangeFigures figuresOf(const DemoWorkspace& workspace, const QDate& from, const QDate& to, const FigureFilter& filter,
                       const QDateTime& now) {
  RangeFigures figures{from, to, {}, QList<Figures>(from.daysTo(to) + 1), {}, {}};
  std::optional<QSet<QString>> counted;
  if (!filter.mailbox.isEmpty() || !filter.tag.isEmpty()) counted = countedMailboxes(workspace, filter);
  const QDate today = dayIn(workspace, now);
  for (const DemoCampaign& campaign : workspace.campaigns) {
    if (!maySendSince(campaign, from) || isOverdue(campaign.archivedAt, now)) continue;
    if (!filter.campaign.isEmpty() && campaign.record.id != filter.campaign) continue;
    const Figures all = addCampaign(figures, workspace, campaign, counted, today);
    if (all.sent == 0) continue;
    figures.campaigns.append({&campaign, all});
    figures.totals += all;
  }
  return figures;
}

QHash<QString, qint64> sentTodayBy(const DemoWorkspace& workspace, const QDateTime& now) {
  const QDate day = dayIn(workspace, now);
  const auto accounts = figuresOf(workspace, day, day, {}, now).accounts;
  QHash<QString, qint64> sent;
  for (const DemoMailbox& mailbox : workspace.mailboxes)
    sent.insert(mailbox.id(), std::min(mostSentADay, accounts.value(mailbox.id()).sent));
  return sent;
}

QDateTime localTimeIn(const DemoWorkspace& workspace, const QDateTime& instant) {
  const QTimeZone zone(workspace.timeZone.toLatin1());
  return zone.isValid() ? instant.toTimeZone(zone) : instant.toUTC();
}

QDate dayIn(const DemoWorkspace& workspace, const QDateTime& instant) { return localTimeIn(workspace, instant).date(); }

Metrics metricsOf(const Figures& figures) {
  Metrics metrics;
  metrics.sent = figures.sent;
  metrics.contacted = metrics.newContacted = figures.contacted;
  metrics.opens = figures.opens;
  metrics.replies = figures.replies;
  metrics.autoReplies = figures.autoReplies;
  metrics.bounces = figures.bounces;
  metrics.unsubscribes = figures.unsubscribes;
  metrics.opportunities = metrics.interested = figures.interested;
  metrics.opportunityValue = double(figures.interested) * opportunityValue;
  metrics.meetingsBooked = figures.meetingsBooked;
  metrics.meetingsCompleted = figures.meetingsCompleted;
  metrics.won = figures.won;
  return metrics;
}

QList<MetricDay> metricDaysOf(const RangeFigures& figures) {
  QList<MetricDay> days;
  for (qsizetype index = 0; index < figures.days.size(); ++index) {
    const Figures& day = figures.days[index];
    days.append({figures.from.addDays(index).toString(Qt::ISODate),
                 day.sent,
                 day.contacted,
                 day.opens,
                 {},
                 day.replies,
                 day.bounces});
  }
  return days;
}

}  // namespace orv::demo
