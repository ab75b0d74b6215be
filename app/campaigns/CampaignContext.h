#pragma once

#include <QString>
#include <functional>

#include "app/base/Resource.h"
#include "app/base/Services.h"
#include "kit/api/APITransport.h"
#include "kit/models/campaigns/campaign.h"

namespace orv {

/// What the parts of one campaign's page share. The campaign's store owns it and them.
struct CampaignContext {
  QString id;
  APITransport& api;
  Services& services;
  Resource<Campaign>& campaign;
  /// Shows the campaign that the service answered an action with.
  std::function<void(const Campaign&)> take;
  /// Reads the campaign again, without clearing what is shown.
  std::function<void()> refresh;
};

}  // namespace orv
