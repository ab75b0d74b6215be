#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/models/analytics/metrics.h"

namespace orv {

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

}  // namespace orv
