#pragma once

#include <QtGlobal>

namespace orv {

struct AddLeadsResult;

/// What came of adding leads to a campaign, all requests together.
struct CampaignAddSum {
  qint64 added = 0;
  qint64 alreadyInCampaign = 0;
  qint64 inOtherCampaign = 0;
  qint64 inList = 0;
  qint64 suppressed = 0;
  qint64 invalid = 0;
  qint64 total = 0;
  CampaignAddSum& operator+=(const AddLeadsResult& more);
  bool operator==(const CampaignAddSum&) const = default;
};

}  // namespace orv
