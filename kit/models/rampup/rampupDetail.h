#pragma once

#include "kit/models/rampup/rampupItem.h"

namespace orv {

/// One day of a roadmap: what it plans and, as far as the day has come, what was sent.
struct RoadmapDay {
  /// A date.
  QString day;
  qint64 dayIndex = 0;
  QString stageKey;
  QString stageName;
  qint64 stageDay = 0;
  qint64 stageDays = 0;
  qint64 warmup = 0;
  qint64 campaign = 0;
  std::optional<qint64> warmupSent;
  std::optional<qint64> campaignSent;
  /// "past", "today" or "future".
  QString when;

  bool isToday() const { return when == QLatin1String("today"); }
  bool isFuture() const { return when == QLatin1String("future"); }
  bool operator==(const RoadmapDay&) const = default;
};
BOOST_DESCRIBE_STRUCT(RoadmapDay, (),
                      (day, dayIndex, stageKey, stageName, stageDay, stageDays, warmup, campaign, warmupSent,
                       campaignSent, when))

/// A RampupItem with the days of its roadmap.
struct RampupDetail {
  QString mailboxId;
  std::optional<qint64> mailboxNumber;
  QString address;
  QString displayName;
  QString provider;
  QString role;
  MailboxStatus status;
  QString today;
  std::optional<RoadmapPlan> plan;
  RampupSent sent;
  std::optional<double> inboxPct7d;
  WarmupSettings settings;
  MailboxHealth health;
  QList<RoadmapDay> days;

  RampupItem item() const;
  bool operator==(const RampupDetail&) const = default;
};
BOOST_DESCRIBE_STRUCT(RampupDetail, (),
                      (mailboxId, mailboxNumber, address, displayName, provider, role, status, today, plan, sent,
                       inboxPct7d, settings, health, days))

}  // namespace orv
