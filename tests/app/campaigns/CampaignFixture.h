#pragma once

#include "app/campaigns/CampaignContext.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "tests/support/AppFixture.h"

namespace orv::test {

/// What a part of the page of campaign "c1" is given, the campaign not loaded.
struct CampaignFixture {
  AppFixture f;
  /// How often the part had the campaign read again.
  int refreshes = 0;
  Resource<Campaign> campaign{f.clock, [this] { return f.api.send(Requests::getCampaign(context.id)); },
                              [](const Campaign&) { return false; }};
  CampaignContext context{QStringLiteral("c1"),   f.api, f.services, campaign, [](const Campaign&) {},
                          [this] { ++refreshes; }};
};

}  // namespace orv::test
