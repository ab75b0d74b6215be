#include "app/campaigns/CampaignsArea.h"

#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/CampaignsStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Has the sequence saved that somebody is writing on the campaign's page; gives why that failed, or nothing.
Task<QString> saveSequence(Store* opened) {
  auto* const campaign = qobject_cast<CampaignStore*>(opened);
  if (!campaign) co_return QString();
  co_return co_await campaign->sequence()->autosave()->saveFirst();
}

}  // namespace

Area campaignsArea() {
  const AreaStore list{
      u"campaigns"_s, &CampaignsStore::staticMetaObject, [](WorkspaceStores& stores) -> Store* {
        return new CampaignsStore(
            stores.context(),
            [&stores](const QString& id) { return saveSequence(stores.keptItem(Page::campaigns, id)); },
            [&stores](const QString& id, const QString& action) {
              stores.context().openItem(Page::campaigns, id);
              if (Store* campaign = stores.keptItem(Page::campaigns, id)) campaign->act(action);
            });
      }};
  const AreaPage::Item campaign{.view = u"Orvella/Campaigns/CampaignPage.qml"_s,
                                .make = [](WorkspaceStores& stores, const QString& id) -> Store* {
                                  return new CampaignStore(id, stores.context());
                                },
                                .needsRoom = true};
  return {.stores = {list},
          .pages = {{.page = Page::campaigns, .view = u"Orvella/Campaigns/CampaignsPage.qml"_s, .item = campaign}}};
}

}  // namespace orv
