#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/models/campaigns/campaignStatus.h"

namespace orv {

struct Campaign;

/// Reply labels that enrol a lead into a subsequence.
struct CampaignTrigger {
  QList<QString> labels;
  bool operator==(const CampaignTrigger&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignTrigger, (), (labels))

struct Subsequence {
  using Record = Campaign;

  QString id;
  std::optional<qint64> number;
  QString name;
  CampaignStatus status;
  std::optional<CampaignTrigger> trigger;
  std::optional<qint64> steps;
  std::optional<qint64> leads;
  std::optional<qint64> sent;
  std::optional<qint64> replied;
  std::optional<QString> createdAt;
  std::optional<qint64> version;
  bool operator==(const Subsequence&) const = default;
};
BOOST_DESCRIBE_STRUCT(Subsequence, (),
                      (id, number, name, status, trigger, steps, leads, sent, replied, createdAt, version))

struct SubsequenceList {
  QList<Subsequence> items;
  bool operator==(const SubsequenceList&) const = default;
};
BOOST_DESCRIBE_STRUCT(SubsequenceList, (), (items))

struct SubsequenceBody {
  QString name;
  CampaignTrigger trigger;
  bool operator==(const SubsequenceBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(SubsequenceBody, (), (name, trigger))

}  // namespace orv
