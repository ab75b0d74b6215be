#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/models/campaigns/campaignStatus.h"

namespace orv {

struct Campaign;

/// One row of the campaigns list.
struct CampaignSummary {
  using Record = Campaign;

  QString id;
  /// The workspace's running number of the campaign.
  std::optional<qint64> number;
  QString name;
  CampaignStatus status;
  qint64 senders = 0;
  qint64 steps = 0;
  qint64 leads = 0;
  /// Leads that have finished the sequence.
  std::optional<qint64> done;
  qint64 sent = 0;
  qint64 replied = 0;
  /// Replies labelled positive.
  qint64 positive = 0;
  qint64 bounced = 0;
  std::optional<QString> launchedAt;
  QString createdAt;
  std::optional<QList<QString>> tags;
  std::optional<qint64> version;
  std::optional<QString> archivedAt;
  bool operator==(const CampaignSummary&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignSummary, (),
                      (id, number, name, status, senders, steps, leads, done, sent, replied, positive, bounced,
                       launchedAt, createdAt, tags, version, archivedAt))

struct CampaignList {
  QList<CampaignSummary> items;
  /// How many archived campaigns there are.
  std::optional<qint64> archivedCount;
  bool operator==(const CampaignList&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignList, (), (items, archivedCount))

}  // namespace orv
