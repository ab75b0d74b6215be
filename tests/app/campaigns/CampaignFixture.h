#pragma once

#include "app/campaigns/CampaignContext.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "tests/support/AppFixture.h"

namespace orv::test {

/// What a part of the page of campaign "c1" is given, the campaign not loaded.
struct CampaignFixture {
  AppFixture f;
  /// How often the part had the campaign read again, or said that it changed.
  int refreshes = 0;
  Store whole{*f.context};
  Resource<Campaign> campaign{whole, [this] { return f.api.send(Requests::getCampaign(context.id)); }};
  CampaignContext context{
      .id = QStringLiteral("c1"), .workspace = *f.context, .whole = whole, .campaign = campaign, .refresh = [this] {
        ++refreshes;
      }};
  CampaignFixture() {
    f.context->changes().watch<Campaign>(&whole, [this](const Change<Campaign>& change) {
      if (change.kind == Change<Campaign>::Kind::stale) ++refreshes;
    });
  }
};

}  // namespace orv::test
