#include "demo/AnalyticsDoor.h"

#include "demo/WarmupFigures.h"
#include "kit/models/analytics/dashboard.h"
#include "kit/models/analytics/warmupHealth.h"
#include "kit/models/campaigns/campaignSummary.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// Some three years: a range of all days that a date can name would take the service with it.
constexpr qint64 daysAtMost = 1100;

struct Range {
  QDate from, to;
};

std::optional<Range> rangeOf(const QUrlQuery& query) {
  const Range range{QDate::fromString(query.queryItemValue(u"from"_s), Qt::ISODate),
                    QDate::fromString(query.queryItemValue(u"to"_s), Qt::ISODate)};
  const bool good = range.from.isValid() && range.to.isValid() && range.from <= range.to;
  return good && range.from.daysTo(range.to) < daysAtMost ? std::optional(range) : std::nullopt;
}

HTTPAnswer noRange() { return invalid(u"Choose a range of at most three years."_s, u"from"_s); }

ActivityCounts activityOf(const Figures& figures) {
  return {figures.sent, figures.replies, figures.interested, figures.bounces, figures.unsubscribes};
}

/// Health as the campaigns' tables have it.
std::optional<QString> healthWord(const WarmupHealth::Account& account) {
  if (account.health == "off"_L1) return std::nullopt;
  return account.health == "watch"_L1 ? u"warning"_s : account.health;
}

}  // namespace

std::optional<HTTPAnswer> AnalyticsDoor::answer(const DemoRequest& request, const QStringList& parts) const {
  const QString call = QString::fromLatin1(request.method) + u' ' + parts.join(u'/');
  if (call == "GET analytics/summary"_L1) return summary(request.query);
  if (call == "GET analytics/overview"_L1) return overview(request.query);
  if (call == "GET analytics/warmup"_L1) return jsonAnswer(toJSON(warmupHealthOf(m_workspace, m_now)));
  if (call == "GET dashboard"_L1) return dashboard();
  return std::nullopt;
}

HTTPAnswer AnalyticsDoor::summary(const QUrlQuery& query) const {
  const auto range = rangeOf(query);
  if (!range) return noRange();
  const auto value = [&query](const QString& name) { return query.queryItemValue(name, QUrl::FullyDecoded); };
  const auto figures = figuresOf(m_workspace, range->from, range->to,
                                 {value(u"campaigns"_s), value(u"mailboxes"_s), value(u"tags"_s)}, m_now);
  AnalyticsSummary summary;
  summary.from = range->from.toString(Qt::ISODate);
  summary.to = range->to.toString(Qt::ISODate);
  summary.timeZone = m_workspace.timeZone;
  summary.opportunityValueEach = opportunityValue;
  summary.tracking = tracking;
  summary.totals = metricsOf(figures.totals);
  summary.days = metricDaysOf(figures);
  summary.campaigns = campaignRows(figures);
  summary.accounts = accountRows(figures);
  summary.options = options();
  return jsonAnswer(toJSON(summary));
}

QList<AnalyticsSummary::CampaignRow> AnalyticsDoor::campaignRows(const RangeFigures& figures) const {
  QList<AnalyticsSummary::CampaignRow> rows;
  for (const auto& [campaign, all] : figures.campaigns) {
    const CampaignSummary listed = campaign->summary();
    AnalyticsSummary::CampaignRow row;
    row.id = listed.id;
    row.number = listed.number;
    row.name = listed.name;
    row.status = listed.status.rawValue;
    row.leads = listed.leads;
    row.sent = all.sent;
    row.contacted = all.contacted;
    row.opens = all.opens;
    row.replies = all.replies;
    row.bounces = all.bounces;
    row.interested = row.opportunities = all.interested;
    row.opportunityValue = double(all.interested) * opportunityValue;
    rows.append(row);
  }
  return rows;
}

QList<AnalyticsSummary::AccountRow> AnalyticsDoor::accountRows(const RangeFigures& figures) const {
  const QTime time = localTimeIn(m_workspace, m_now).time();
  QList<AnalyticsSummary::AccountRow> rows;
  for (const DemoMailbox& mailbox : m_workspace.mailboxes) {
    const auto all = figures.accounts.constFind(mailbox.id);
    if (all == figures.accounts.cend()) continue;
    const auto warmup = warmupOf(mailbox, time);
    AnalyticsSummary::AccountRow row;
    row.id = mailbox.id;
    row.address = mailbox.address;
    row.status = mailbox.status;
    row.health = healthWord(warmup);
    row.inboxPct7d = warmup.inboxPct7d;
    row.sent = all->sent;
    row.contacted = all->contacted;
    row.opens = all->opens;
    row.replies = all->replies;
    row.bounces = all->bounces;
    row.interested = all->interested;
    rows.append(row);
  }
  return rows;
}

AnalyticsSummary::Options AnalyticsDoor::options() const {
  QList<AnalyticsSummary::Option> campaigns, mailboxes;
  QSet<QString> tags;
  for (const DemoCampaign& campaign : m_workspace.campaigns)
    if (campaign.record.launchedAt && !campaign.archivedAt)
      campaigns.append({campaign.record.id, campaign.record.name});
  for (const DemoMailbox& mailbox : m_workspace.mailboxes) {
    mailboxes.append({mailbox.id, mailbox.address});
    for (const QString& tag : mailbox.tags) tags.insert(tag);
  }
  QList<QString> sorted(tags.begin(), tags.end());
  std::ranges::sort(sorted);
  return {campaigns, mailboxes, sorted};
}

HTTPAnswer AnalyticsDoor::overview(const QUrlQuery& query) const {
  if (query.queryItemValue(u"scope"_s) != "this"_L1) return invalid(u"Ask for this workspace."_s, u"scope"_s);
  const auto range = rangeOf(query);
  if (!range) return noRange();
  const auto figures = figuresOf(m_workspace, range->from, range->to, {}, m_now);
  AnalyticsOverview overview;
  overview.scope = u"this"_s;
  overview.from = range->from.toString(Qt::ISODate);
  overview.to = range->to.toString(Qt::ISODate);
  overview.day = dayIn(m_workspace, m_now).toString(Qt::ISODate);
  overview.timeZone = m_workspace.timeZone;
  auto& combined = overview.combined;
  combined.today = today();
  combined.month = month();
  combined.totals = activityOf(figures.totals);
  combined.metrics = metricsOf(figures.totals);
  combined.metricDays = metricDaysOf(figures);
  combined.days.emplace();
  for (qsizetype index = 0; index < figures.days.size(); ++index) {
    const auto [sends, replies, positive, bounces, unsubscribes] = activityOf(figures.days[index]);
    combined.days->append({combined.metricDays->at(index).day, sends, replies, positive, bounces, unsubscribes});
  }
  overview.workspaces.append({m_workspace.id, m_workspace.slug, m_workspace.name, true, combined.today, combined.month,
                              combined.totals, combined.metrics});
  return jsonAnswer(toJSON(overview));
}

AnalyticsOverview::Today AnalyticsDoor::today() const {
  const QDate day = dayIn(m_workspace, m_now);
  const Figures figures = figuresOf(m_workspace, day, day, {}, m_now).totals;
  const WarmupHealth warmup = warmupHealthOf(m_workspace, m_now);
  AnalyticsOverview::Today today;
  today.sendsCampaigns = figures.sent;
  today.replies = figures.replies;
  for (const auto& account : warmup.items) {
    today.sendsWarmup += account.sentToday;
    today.active += account.status == "active"_L1;
  }
  today.mailboxes = warmup.items.size();
  today.ready = warmup.summary.ready;
  for (const DemoCampaign& campaign : m_workspace.campaigns)
    if (!campaign.archivedAt) today.leads += campaign.stats().leads.total;
  for (const DemoLeadList& list : m_workspace.lists) today.leads += list.people.size();
  today.lists = m_workspace.lists.size();
  return today;
}

AnalyticsOverview::Month AnalyticsDoor::month() const {
  const QDate day = dayIn(m_workspace, m_now);
  const Figures figures = figuresOf(m_workspace, {day.year(), day.month(), 1}, day, {}, m_now).totals;
  return {figures.sent, figures.replies};
}

HTTPAnswer AnalyticsDoor::dashboard() const {
  const auto now = today();
  Dashboard::InboxHealth inbox;
  inbox.total = now.mailboxes;
  inbox.active = now.active;
  inbox.ready = now.ready;
  for (const DemoMailbox& mailbox : m_workspace.mailboxes) {
    inbox.paused += mailbox.status == "paused"_L1;
    inbox.failed += mailbox.status == "failed"_L1;
    inbox.verifying += mailbox.status == "verifying"_L1;
  }
  return jsonAnswer(toJSON(Dashboard{dayIn(m_workspace, m_now).toString(Qt::ISODate), m_workspace.timeZone,
                                     Dashboard::Sends{now.sendsWarmup, now.sendsCampaigns}, now.replies, inbox,
                                     Dashboard::Leads{now.leads, now.lists}}));
}

}  // namespace orv::demo
