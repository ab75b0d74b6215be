#include "app/inbox/InboxArea.h"

#include "app/inbox/AgentSettingsStore.h"
#include "app/inbox/DraftsStore.h"
#include "app/inbox/InboxStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Area inboxArea() {
  const auto writings = areaStore<Writings>(u"writings"_s);
  const AreaStore drafts{u"drafts"_s, &DraftsStore::staticMetaObject, [](WorkspaceStores& stores) -> Store* {
                           return new DraftsStore(stores.context(),
                                                  *qobject_cast<Writings*>(stores.store(u"writings"_s)));
                         }};
  const AreaStore inbox{u"inbox"_s, &InboxStore::staticMetaObject, [](WorkspaceStores& stores) -> Store* {
                          return new InboxStore(stores.context(), *qobject_cast<Writings*>(stores.store(u"writings"_s)),
                                                stores.store(u"drafts"_s), stores.store(u"agent"_s));
                        }};
  return {.stores = {writings, drafts, areaStore<AgentSettingsStore>(u"agent"_s), inbox},
          .pages = {{.page = Page::inbox, .view = u"Orvella/Inbox/InboxPage.qml"_s, .needsRoom = true}}};
}

}  // namespace orv
