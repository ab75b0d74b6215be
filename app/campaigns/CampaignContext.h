#pragma once

#include <QString>
#include <functional>

#include "app/base/Actions.h"
#include "app/base/Resource.h"
#include "app/campaigns/FailedSaves.h"
#include "kit/models/campaigns/campaign.h"

namespace orv {

/// What the parts of one campaign's page share. The campaign's store owns it and them.
struct CampaignContext {
  QString id;
  WorkspaceContext& workspace;
  /// The campaign's store, whose parts they are.
  Store& whole;
  Resource<Campaign>& campaign;
  /// Reads the campaign again, without clearing what is shown.
  std::function<void()> refresh;
  APITransport& api = workspace.api();
  Services& services = workspace.services();
  FailedSaves failedSaves{workspace, campaign, id};
};

}  // namespace orv
