#include "kit/models/campaigns/campaignStatus.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString CampaignStatus::label() const {
  if (rawValue == "draft"_L1) return u"Draft"_s;
  if (rawValue == "running"_L1) return u"Running"_s;
  if (rawValue == "paused"_L1) return u"Paused"_s;
  if (rawValue == "completed"_L1) return u"Completed"_s;
  if (rawValue == "archived"_L1) return u"Archived"_s;
  return rawValue;
}

}  // namespace orv
