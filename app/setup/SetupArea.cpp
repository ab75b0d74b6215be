#include "app/setup/SetupArea.h"

#include "app/setup/SetupProjectStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Area setupArea() {
  const auto list = u"inboxSetup"_s;
  const AreaPage::Item project{.view = u"Orvella/Setup/SetupProjectPage.qml"_s,
                               .make = [list](WorkspaceStores& stores, const QString& id) -> Store* {
                                 auto* setup = static_cast<InboxSetupStore*>(stores.store(list));
                                 return new SetupProjectStore(id, *setup);
                               }};
  return {.stores = {areaStore<InboxSetupStore>(list)},
          .pages = {{.page = Page::inboxSetup, .view = u"Orvella/Setup/InboxSetupPage.qml"_s, .item = project}}};
}

}  // namespace orv
