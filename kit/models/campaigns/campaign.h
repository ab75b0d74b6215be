#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/models/campaigns/campaignOptions.h"
#include "kit/models/campaigns/campaignSchedule.h"
#include "kit/models/campaigns/campaignSender.h"
#include "kit/models/campaigns/campaignStats.h"
#include "kit/models/campaigns/campaignStatus.h"
#include "kit/models/campaigns/launchCheck.h"
#include "kit/models/campaigns/sequence.h"
#include "kit/models/campaigns/subsequence.h"

namespace orv {

struct Campaign {
  using Record = Campaign;

  /// The last booking run.
  struct Plan {
    QString at;
    qint64 planned = 0;
    std::optional<QString> note;
    bool operator==(const Plan&) const = default;
  };
  /// Set on a subsequence.
  struct Parent {
    QString id;
    std::optional<qint64> number;
    QString name;
    bool operator==(const Parent&) const = default;
  };

  QString id;
  std::optional<qint64> number;
  QString name;
  CampaignStatus status;
  std::optional<CampaignSchedule> schedule;
  /// Sends per sender mailbox per day.
  std::optional<qint64> dailyCapPerInbox;
  /// Least gap between two sends of one mailbox.
  std::optional<qint64> gapSeconds;
  std::optional<bool> stopOnReply;
  std::optional<CampaignOptions> settings;
  std::optional<QList<QString>> tags;
  std::optional<QList<CampaignSender>> senders;
  std::optional<QList<CampaignStep>> steps;
  std::optional<CampaignStats> stats;
  std::optional<Qc> qc;
  std::optional<Plan> lastPlan;
  std::optional<QString> launchedAt;
  std::optional<QString> pausedAt;
  std::optional<QString> completedAt;
  std::optional<QString> createdAt;
  std::optional<qint64> version;
  std::optional<Parent> parent;
  std::optional<CampaignTrigger> trigger;
  bool operator==(const Campaign&) const = default;
};
BOOST_DESCRIBE_STRUCT(Campaign::Plan, (), (at, planned, note))
BOOST_DESCRIBE_STRUCT(Campaign::Parent, (), (id, number, name))
BOOST_DESCRIBE_STRUCT(Campaign, (),
                      (id, number, name, status, schedule, dailyCapPerInbox, gapSeconds, stopOnReply, settings, tags,
                       senders, steps, stats, qc, lastPlan, launchedAt, pausedAt, completedAt, createdAt, version,
                       parent, trigger))

struct CreateCampaignBody {
  QString name;
  bool operator==(const CreateCampaignBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(CreateCampaignBody, (), (name))

/// Carries only what is set.
struct CampaignPatch {
  std::optional<QString> name;
  std::optional<CampaignSchedule> schedule;
  std::optional<qint64> dailyCapPerInbox;
  std::optional<qint64> gapSeconds;
  std::optional<bool> stopOnReply;
  std::optional<QList<QString>> senderMailboxIds;
  std::optional<CampaignOptions> settings;
  std::optional<QList<QString>> tags;
  std::optional<CampaignTrigger> trigger;
  bool operator==(const CampaignPatch&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignPatch, (),
                      (name, schedule, dailyCapPerInbox, gapSeconds, stopOnReply, senderMailboxIds, settings, tags,
                       trigger))

}  // namespace orv
