#include "app/leads/LeadsArea.h"

#include "app/leads/LeadsStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto pageName = u"leads"_s, actionsName = u"leadActions"_s;

LeadActions& actionsOf(WorkspaceStores& stores) { return *qobject_cast<LeadActions*>(stores.store(actionsName)); }

}  // namespace

Area leadsArea() {
  const AreaStore page{pageName, &LeadsStore::staticMetaObject, [](WorkspaceStores& stores) -> Store* {
                         return new LeadsStore(stores.context(), actionsOf(stores));
                       }};
  return {.stores = {areaStore<LeadActions>(actionsName), page},
          .pages = {{.page = Page::leads, .view = u"Orvella/Leads/LeadsPage.qml"_s, .needsRoom = true}}};
}

}  // namespace orv
