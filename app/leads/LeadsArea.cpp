#include "app/leads/LeadsArea.h"

#include "app/leads/LeadListStore.h"
#include "app/leads/LeadsStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto pageName = u"leads"_s, actionsName = u"leadActions"_s;

LeadActions& actionsOf(WorkspaceStores& stores) { return *qobject_cast<LeadActions*>(stores.store(actionsName)); }

LeadLists& listsOf(WorkspaceStores& stores) { return *qobject_cast<LeadsStore*>(stores.store(pageName))->lists(); }

}  // namespace

Area leadsArea() {
  const AreaStore page{pageName, &LeadsStore::staticMetaObject, [](WorkspaceStores& stores) -> Store* {
                         return new LeadsStore(stores.context(), actionsOf(stores));
                       }};
  const AreaPage::Item list{.view = u"Orvella/Leads/LeadListPage.qml"_s,
                            .make = [](WorkspaceStores& stores, const QString& id) -> Store* {
                              return new LeadListStore(id, stores.context(), actionsOf(stores), listsOf(stores));
                            },
                            .needsRoom = true};
  return {.stores = {areaStore<LeadActions>(actionsName), page},
          .pages = {{.page = Page::leads, .view = u"Orvella/Leads/LeadsPage.qml"_s, .item = list, .needsRoom = true}}};
}

}  // namespace orv
