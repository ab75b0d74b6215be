#pragma once

#include "kit/models/mailboxes/mailboxHealth.h"
#include "kit/models/mailboxes/mailboxStatus.h"
#include "kit/models/rampup/roadmapPlan.h"
#include "kit/models/rampup/warmupSettings.h"

namespace orv {

/// Emails that an account has sent today.
struct RampupSent {
  qint64 warmup = 0;
  std::optional<qint64> warmupPlanned;
  qint64 campaign = 0;
  bool operator==(const RampupSent&) const = default;
};
BOOST_DESCRIBE_STRUCT(RampupSent, (), (warmup, warmupPlanned, campaign))

/// An account with the roadmap that it follows.
struct RampupItem {
  QString mailboxId;
  std::optional<qint64> mailboxNumber;
  QString address;
  QString displayName;
  QString provider;
  QString role;
  MailboxStatus status;
  /// The date that the account has now.
  QString today;
  std::optional<RoadmapPlan> plan;
  RampupSent sent;
  /// Per cent.
  std::optional<double> inboxPct7d;
  WarmupSettings settings;
  MailboxHealth health;

  /// One that only warms up the others.
  bool isPool() const { return role == QLatin1String("pool"); }
  bool operator==(const RampupItem&) const = default;
};
BOOST_DESCRIBE_STRUCT(RampupItem, (),
                      (mailboxId, mailboxNumber, address, displayName, provider, role, status, today, plan, sent,
                       inboxPct7d, settings, health))

struct RampupList {
  QList<RampupItem> items;
  bool operator==(const RampupList&) const = default;
};
BOOST_DESCRIBE_STRUCT(RampupList, (), (items))

}  // namespace orv
