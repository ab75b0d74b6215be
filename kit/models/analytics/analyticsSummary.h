#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/models/analytics/metrics.h"

namespace orv {

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

}  // namespace orv
