#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct Metrics {
  qint64 sent = 0;
  qint64 contacted = 0;
  qint64 newContacted = 0;
  /// Absent while tracking is off, here and below.
  std::optional<qint64> opens;
  std::optional<qint64> clicks;
  qint64 replies = 0;
  qint64 autoReplies = 0;
  qint64 bounces = 0;
  qint64 unsubscribes = 0;
  qint64 opportunities = 0;
  /// In US dollars.
  double opportunityValue = 0;
  qint64 interested = 0;
  qint64 meetingsBooked = 0;
  qint64 meetingsCompleted = 0;
  qint64 won = 0;
  bool operator==(const Metrics&) const = default;
};
BOOST_DESCRIBE_STRUCT(Metrics, (),
                      (sent, contacted, newContacted, opens, clicks, replies, autoReplies, bounces, unsubscribes,
                       opportunities, opportunityValue, interested, meetingsBooked, meetingsCompleted, won))

struct MetricDay {
  /// A date.
  QString day;
  qint64 sent = 0;
  std::optional<qint64> contacted;
  std::optional<qint64> opens;
  std::optional<qint64> clicks;
  qint64 replies = 0;
  std::optional<qint64> bounces;
  bool operator==(const MetricDay&) const = default;
};
BOOST_DESCRIBE_STRUCT(MetricDay, (), (day, sent, contacted, opens, clicks, replies, bounces))

/// Sending results of a workspace over a range of days.
struct AnalyticsSummary {
  struct Tracking {
    bool opens = false;
    bool clicks = false;
    bool operator==(const Tracking&) const = default;
  };
  struct CampaignRow {
    QString id;
    std::optional<qint64> number;
    QString name;
    QString status;
    qint64 leads = 0;
    qint64 sent = 0;
    qint64 contacted = 0;
    std::optional<qint64> opens;
    std::optional<qint64> clicks;
    qint64 replies = 0;
    qint64 bounces = 0;
    qint64 interested = 0;
    qint64 opportunities = 0;
    std::optional<double> opportunityValue;
    bool operator==(const CampaignRow&) const = default;
  };
  struct AccountRow {
    QString id;
    QString address;
    QString status;
    std::optional<QString> health;
    /// Share of warm-up mail that landed in the inbox over 7 days.
    std::optional<qint64> inboxPct7d;
    qint64 sent = 0;
    qint64 contacted = 0;
    std::optional<qint64> opens;
    std::optional<qint64> clicks;
    qint64 replies = 0;
    qint64 bounces = 0;
    qint64 interested = 0;
    bool operator==(const AccountRow&) const = default;
  };
  struct Option {
    QString id;
    std::optional<QString> name;
    bool operator==(const Option&) const = default;
  };
  /// Filter choices.
  struct Options {
    std::optional<QList<Option>> campaigns;
    std::optional<QList<Option>> mailboxes;
    std::optional<QList<QString>> tags;
    bool operator==(const Options&) const = default;
  };

  /// The range, as dates.
  QString from;
  QString to;
  /// The workspace's time zone, in which days are counted.
  QString timeZone;
  std::optional<double> opportunityValueEach;
  Tracking tracking;
  Metrics totals;
  /// One for each day of the range.
  QList<MetricDay> days;
  QList<CampaignRow> campaigns;
  QList<AccountRow> accounts;
  std::optional<Options> options;
  /// The figures are sample data.
  std::optional<bool> sample;
  bool operator==(const AnalyticsSummary&) const = default;
};
BOOST_DESCRIBE_STRUCT(AnalyticsSummary::Tracking, (), (opens, clicks))
BOOST_DESCRIBE_STRUCT(AnalyticsSummary::CampaignRow, (),
                      (id, number, name, status, leads, sent, contacted, opens, clicks, replies, bounces, interested,
                       opportunities, opportunityValue))
BOOST_DESCRIBE_STRUCT(AnalyticsSummary::AccountRow, (),
                      (id, address, status, health, inboxPct7d, sent, contacted, opens, clicks, replies, bounces,
                       interested))
BOOST_DESCRIBE_STRUCT(AnalyticsSummary::Option, (), (id, name))
BOOST_DESCRIBE_STRUCT(AnalyticsSummary::Options, (), (campaigns, mailboxes, tags))
BOOST_DESCRIBE_STRUCT(AnalyticsSummary, (),
                      (from, to, timeZone, opportunityValueEach, tracking, totals, days, campaigns, accounts, options,
                       sample))

struct ActivityCounts {
  qint64 sends = 0;
  qint64 replies = 0;
  qint64 positive = 0;
  qint64 bounces = 0;
  qint64 unsubscribes = 0;
  bool operator==(const ActivityCounts&) const = default;
};
BOOST_DESCRIBE_STRUCT(ActivityCounts, (), (sends, replies, positive, bounces, unsubscribes))

struct ActivityDay {
  /// A date.
  QString day;
  qint64 sends = 0;
  qint64 replies = 0;
  qint64 positive = 0;
  qint64 bounces = 0;
  qint64 unsubscribes = 0;
  bool operator==(const ActivityDay&) const = default;
};
BOOST_DESCRIBE_STRUCT(ActivityDay, (), (day, sends, replies, positive, bounces, unsubscribes))

/// Today and a range of days, of one workspace or of all the person's workspaces.
struct AnalyticsOverview {
  struct Today {
    qint64 sendsWarmup = 0;
    qint64 sendsCampaigns = 0;
    qint64 replies = 0;
    qint64 mailboxes = 0;
    /// Of the mailboxes.
    qint64 active = 0;
    /// Of the mailboxes: campaigns may send from them.
    std::optional<qint64> ready;
    qint64 leads = 0;
    qint64 lists = 0;
    bool operator==(const Today&) const = default;
  };
  struct Month {
    qint64 sends = 0;
    qint64 replies = 0;
    bool operator==(const Month&) const = default;
  };
  struct Workspace {
    QString id;
    QString slug;
    QString name;
    /// Its figures could be read; without, there are none below.
    bool ok = false;
    std::optional<Today> today;
    std::optional<Month> month;
    std::optional<ActivityCounts> totals;
    std::optional<Metrics> metrics;
    bool operator==(const Workspace&) const = default;
  };
  /// All workspaces together.
  struct Combined {
    std::optional<Today> today;
    std::optional<Month> month;
    std::optional<ActivityCounts> totals;
    std::optional<QList<ActivityDay>> days;
    std::optional<Metrics> metrics;
    std::optional<QList<MetricDay>> metricDays;
    bool operator==(const Combined&) const = default;
  };

  QString scope;
  /// The range, as dates.
  QString from;
  QString to;
  /// Today, a date in the time zone.
  QString day;
  QString timeZone;
  QList<Workspace> workspaces;
  Combined combined;
  bool operator==(const AnalyticsOverview&) const = default;
};
BOOST_DESCRIBE_STRUCT(AnalyticsOverview::Today, (),
                      (sendsWarmup, sendsCampaigns, replies, mailboxes, active, ready, leads, lists))
BOOST_DESCRIBE_STRUCT(AnalyticsOverview::Month, (), (sends, replies))
BOOST_DESCRIBE_STRUCT(AnalyticsOverview::Workspace, (), (id, slug, name, ok, today, month, totals, metrics))
BOOST_DESCRIBE_STRUCT(AnalyticsOverview::Combined, (), (today, month, totals, days, metrics, metricDays))
BOOST_DESCRIBE_STRUCT(AnalyticsOverview, (), (scope, from, to, day, timeZone, workspaces, combined))

/// How the mailboxes' warm-up mail fares.
struct WarmupHealth {
  struct Account {
    QString id;
    QString address;
    QString displayName;
    QString provider;
    QString role;
    QString status;
    /// Warm-up emails a day.
    qint64 dailyCap = 0;
    qint64 rampDay = 0;
    std::optional<qint64> plannedToday;
    qint64 sentToday = 0;
    qint64 sent7d = 0;
    qint64 received7d = 0;
    qint64 failed7d = 0;
    /// Found in a mailbox, wherever in it; in the inbox; among spam; of these, taken out of it.
    qint64 placed7d = 0;
    qint64 inbox7d = 0;
    qint64 spam7d = 0;
    qint64 rescued7d = 0;
    std::optional<qint64> inboxPct7d;
    bool ready = false;
    std::optional<QString> readyReason;
    QString health;
    bool operator==(const Account&) const = default;
  };
  /// Accounts of each kind.
  struct Summary {
    qint64 healthy = 0;
    qint64 watch = 0;
    qint64 atRisk = 0;
    qint64 off = 0;
    qint64 ready = 0;
    bool operator==(const Summary&) const = default;
  };
  QList<Account> items;
  Summary summary;
  /// The figures are sample data.
  std::optional<bool> sample;
  bool operator==(const WarmupHealth&) const = default;
};
BOOST_DESCRIBE_STRUCT(WarmupHealth::Account, (),
                      (id, address, displayName, provider, role, status, dailyCap, rampDay, plannedToday, sentToday,
                       sent7d, received7d, failed7d, placed7d, inbox7d, spam7d, rescued7d, inboxPct7d, ready,
                       readyReason, health))
BOOST_DESCRIBE_STRUCT(WarmupHealth::Summary, (), (healthy, watch, atRisk, off, ready))
BOOST_DESCRIBE_STRUCT(WarmupHealth, (), (items, summary, sample))

/// Today's figures of one workspace.
struct Dashboard {
  struct Sends {
    qint64 warmup = 0;
    qint64 campaigns = 0;
    bool operator==(const Sends&) const = default;
  };
  /// Mailboxes by their state.
  struct InboxHealth {
    qint64 total = 0;
    qint64 active = 0;
    qint64 paused = 0;
    qint64 failed = 0;
    qint64 verifying = 0;
    std::optional<qint64> ready;
    bool operator==(const InboxHealth&) const = default;
  };
  struct Leads {
    qint64 total = 0;
    qint64 lists = 0;
    bool operator==(const Leads&) const = default;
  };
  /// Today, a date in the workspace's time zone.
  QString day;
  QString timeZone;
  std::optional<Sends> sends;
  std::optional<qint64> replies;
  std::optional<InboxHealth> inbox;
  std::optional<Leads> leads;
  bool operator==(const Dashboard&) const = default;
};
BOOST_DESCRIBE_STRUCT(Dashboard::Sends, (), (warmup, campaigns))
BOOST_DESCRIBE_STRUCT(Dashboard::InboxHealth, (), (total, active, paused, failed, verifying, ready))
BOOST_DESCRIBE_STRUCT(Dashboard::Leads, (), (total, lists))
BOOST_DESCRIBE_STRUCT(Dashboard, (), (day, timeZone, sends, replies, inbox, leads))

namespace Requests {

/// Figures from one date to another ("%04d-%02d-%02d"), of one campaign, mailbox or tag when it is given.
Request<AnalyticsSummary> analyticsSummary(const QString& from, const QString& to,
                                           const std::optional<QString>& campaign = {},
                                           const std::optional<QString>& mailbox = {},
                                           const std::optional<QString>& tag = {});
/// Today, and the figures from one date to another, of this workspace.
Request<AnalyticsOverview> analyticsOverview(const QString& from, const QString& to);
Request<WarmupHealth> warmupHealth();
Request<Dashboard> dashboard();

}  // namespace Requests
}  // namespace orv
