#include "app/accounts/AccountsArea.h"

#include "app/accounts/AccountActions.h"
#include "app/accounts/AccountDetail.h"
#include "app/accounts/AccountsStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto listName = u"accounts"_s, actionsName = u"accountActions"_s;

AccountActions& actionsOf(WorkspaceStores& stores) { return *qobject_cast<AccountActions*>(stores.store(actionsName)); }

AccountsStore& listOf(WorkspaceStores& stores) { return *qobject_cast<AccountsStore*>(stores.store(listName)); }

}  // namespace

Area accountsArea() {
  const AreaStore list{listName, &AccountsStore::staticMetaObject, [](WorkspaceStores& stores) -> Store* {
                         return new AccountsStore(stores.context(), actionsOf(stores));
                       }};
  const AreaPage::Item account{.view = u"Orvella/Accounts/AccountPage.qml"_s,
                               .make = [](WorkspaceStores& stores, const QString& id) -> Store* {
                                 return new AccountDetail(id, stores.context(), actionsOf(stores),
                                                          [&stores] { return listOf(stores).knownTags(); });
                               }};
  return {.stores = {areaStore<AccountActions>(actionsName), list},
          .pages = {{.page = Page::accounts, .view = u"Orvella/Accounts/AccountsPage.qml"_s, .item = account}}};
}

}  // namespace orv
