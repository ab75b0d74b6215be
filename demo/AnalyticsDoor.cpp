#include "demo/DailyFigures.h"
#include "demo/Routes.h"
#include "demo/WarmupFigures.h"
#include "kit/models/analytics/analyticsOverview.h"
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

std::optional<Range> rangeOf(const DemoRequest& request) {
  const Range range{QDate::fromString(request.value(u"from"_s), Qt::ISODate),
                    QDate::fromString(request.value(u"to"_s), Qt::ISODate)};
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

QList<AnalyticsSummary::CampaignRow> campaignRows(const RangeFigures& figures) {
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

QList<AnalyticsSummary::AccountRow> accountRows(const Call& call, const RangeFigures& figures) {
  const QDateTime now = localTimeIn(*call.workspace, call.now);
  QList<AnalyticsSummary::AccountRow> rows;
  for (const DemoMailbox& mailbox : call.workspace->mailboxes) {
    const auto all = figures.accounts.constFind(mailbox.id());
    if (all == figures.accounts.cend()) continue;
    const auto warmup = warmupOf(mailbox, now);
    AnalyticsSummary::AccountRow row;
    row.id = mailbox.id();
    row.address = mailbox.record.address;
    row.status = mailbox.record.status.rawValue;
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

AnalyticsSummary::Options optionsOf(const DemoWorkspace& workspace) {
  QList<AnalyticsSummary::Option> campaigns, mailboxes;
  QSet<QString> tags;
  for (const DemoCampaign& campaign : workspace.campaigns)
    if (campaign.record.launchedAt && !campaign.archivedAt)
      campaigns.append({campaign.record.id, campaign.record.name});
  for (const DemoMailbox& mailbox : workspace.mailboxes) {
    mailboxes.append({mailbox.id(), mailbox.record.address});
    for (const QString& tag : mailbox.tags()) tags.insert(tag);
  }
  QList<QString> sorted(tags.begin(), tags.end());
  std::ranges::sort(sorted);
  return {campaigns, mailboxes, sorted};
}

AnalyticsOverview::Today todayOf(const Call& call) {
  const QDate day = dayIn(*call.workspace, call.now);
  const Figures figures = figuresOf(*call.workspace, day, day, {}, call.now).totals;
  const WarmupHealth warmup = warmupHealthOf(*call.workspace, call.now);
  AnalyticsOverview::Today today;
  today.sendsCampaigns = figures.sent;
  today.replies = figures.replies;
  for (const auto& account : warmup.items) {
    today.sendsWarmup += account.sentToday;
    today.active += account.status == "active"_L1;
  }
  today.mailboxes = warmup.items.size();
  today.ready = warmup.summary.ready;
  for (const DemoCampaign& campaign : call.workspace->campaigns)
    if (!campaign.archivedAt) today.leads += campaign.stats().leads.total;
  today.leads += call.workspace->leads.ownedCount();
  today.lists = std::ranges::count_if(call.workspace->lists, [](const auto& list) { return !list.record.archivedAt; });
  return today;
}

AnalyticsOverview::Month monthOf(const Call& call) {
  const QDate day = dayIn(*call.workspace, call.now);
  const Figures figures = figuresOf(*call.workspace, {day.year(), day.month(), 1}, day, {}, call.now).totals;
  return {figures.sent, figures.replies};
}

HTTPAnswer summary(Call& call) {
  const auto range = rangeOf(call.request);
  if (!range) return noRange();
  const DemoRequest& request = call.request;
  const auto figures =
      figuresOf(*call.workspace, range->from, range->to,
                {request.value(u"campaigns"_s), request.value(u"mailboxes"_s), request.value(u"tags"_s)}, call.now);
  AnalyticsSummary summary;
  summary.from = range->from.toString(Qt::ISODate);
  summary.to = range->to.toString(Qt::ISODate);
  summary.timeZone = call.workspace->timeZone;
  summary.opportunityValueEach = opportunityValue;
  summary.tracking = tracking;
  summary.totals = metricsOf(figures.totals);
  summary.days = metricDaysOf(figures);
  summary.campaigns = campaignRows(figures);
  summary.accounts = accountRows(call, figures);
  summary.options = optionsOf(*call.workspace);
  return jsonAnswer(toJSON(summary));
}

HTTPAnswer overview(Call& call) {
  if (call.request.value(u"scope"_s) != "this"_L1) return invalid(u"Ask for this workspace."_s, u"scope"_s);
  const auto range = rangeOf(call.request);
  if (!range) return noRange();
  const auto figures = figuresOf(*call.workspace, range->from, range->to, {}, call.now);
  AnalyticsOverview overview;
  overview.scope = u"this"_s;
  overview.from = range->from.toString(Qt::ISODate);
  overview.to = range->to.toString(Qt::ISODate);
  overview.day = dayIn(*call.workspace, call.now).toString(Qt::ISODate);
  overview.timeZone = call.workspace->timeZone;
  auto& combined = overview.combined;
  combined.today = todayOf(call);
  combined.month = monthOf(call);
  combined.totals = activityOf(figures.totals);
  combined.metrics = metricsOf(figures.totals);
  combined.metricDays = metricDaysOf(figures);
  combined.days.emplace();
  for (qsizetype index = 0; index < figures.days.size(); ++index) {
    const auto [sends, replies, positive, bounces, unsubscribes] = activityOf(figures.days[index]);
    combined.days->append({combined.metricDays->at(index).day, sends, replies, positive, bounces, unsubscribes});
  }
  overview.workspaces.append({call.workspace->id, call.workspace->slug, call.workspace->name, true, combined.today,
                              combined.month, combined.totals, combined.metrics});
  return jsonAnswer(toJSON(overview));
}

HTTPAnswer warmup(Call& call) { return jsonAnswer(toJSON(warmupHealthOf(*call.workspace, call.now))); }

HTTPAnswer dashboard(Call& call) {
  const auto now = todayOf(call);
  Dashboard::InboxHealth inbox;
  inbox.total = now.mailboxes;
  inbox.active = now.active;
  inbox.ready = now.ready;
  for (const DemoMailbox& mailbox : call.workspace->mailboxes) {
    inbox.paused += mailbox.record.status.isPaused();
    inbox.failed += mailbox.record.status.isFailed();
    inbox.verifying += mailbox.record.status.isVerifying();
  }
  return jsonAnswer(toJSON(Dashboard{dayIn(*call.workspace, call.now).toString(Qt::ISODate), call.workspace->timeZone,
                                     Dashboard::Sends{now.sendsWarmup, now.sendsCampaigns}, now.replies, inbox,
                                     Dashboard::Leads{now.leads, now.lists}}));
}

}  // namespace

const QList<Route>& analyticsRoutes() {
  static const QList<Route> routes{
      {"GET", u"/analytics/summary"_s, Access::readers, summary},
      {"GET", u"/analytics/overview"_s, Access::readers, overview},
      {"GET", u"/analytics/warmup"_s, Access::readers, warmup},
      {"GET", u"/dashboard"_s, Access::readers, dashboard},
  };
  return routes;
}

}  // namespace orv::demo
