#pragma once

#include "demo/DemoState.h"
#include "kit/models/analytics/analyticsSummary.h"
#include "kit/models/analytics/metrics.h"

namespace orv::demo {

/// Which emails are counted; an empty word counts all.
struct FigureFilter {
  QString campaign;
  QString mailbox;
  /// Of the mailbox.
  QString tag;
};

/// What was sent and what came of it.
struct Figures {
  qint64 sent = 0, contacted = 0, opens = 0, replies = 0, autoReplies = 0, bounces = 0, unsubscribes = 0,
         interested = 0, meetingsBooked = 0, meetingsCompleted = 0, won = 0;

  Figures& operator+=(const Figures& other);
  Figures operator-(const Figures& other) const;
};

/// Figures from one day to another. Days, campaigns and accounts each add up to the totals, and a range that covers a
/// campaign's whole life gives the campaign's own figures.
struct RangeFigures {
  QDate from, to;
  Figures totals;
  QList<Figures> days;
  /// The campaigns that sent in the range.
  QList<QPair<const DemoCampaign*, Figures>> campaigns;
  /// By mailbox.
  QHash<QString, Figures> accounts;
};

RangeFigures figuresOf(const DemoWorkspace& workspace, const QDate& from, const QDate& to, const FigureFilter& filter,
                       const QDateTime& now);

/// Campaigns made up by the hundred may want more of a mailbox than it gives.
constexpr qint64 mostSentADay = 40;

/// Today's emails by mailbox.
QHash<QString, qint64> sentTodayBy(const DemoWorkspace& workspace, const QDateTime& now);

/// The instant in the workspace's time zone, and its day there.
QDateTime localTimeIn(const DemoWorkspace& workspace, const QDateTime& instant);
QDate dayIn(const DemoWorkspace& workspace, const QDateTime& instant);

Metrics metricsOf(const Figures& figures);
/// One for each day of the range.
QList<MetricDay> metricDaysOf(const RangeFigures& figures);

/// Opens are tracked in the sample, clicks are not.
constexpr AnalyticsSummary::Tracking tracking{true, false};
/// In US dollars.
constexpr double opportunityValue = 500;

}  // namespace orv::demo
