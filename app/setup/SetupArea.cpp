#include "app/setup/SetupArea.h"

#include <QPointer>

#include "app/setup/SetupProjectStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Has saved what somebody is typing on the project's page; gives why that failed, or nothing.
Task<QString> saveForm(Store* opened) {
  const QPointer project = qobject_cast<SetupProjectStore*>(opened);
  if (!project) co_return QString();
  project->domains()->addTyped();
  if (!project->form()->dirty() || co_await project->form()->saveAll() || !project) co_return QString();
  const QString problem = project->form()->problem();
  co_return problem.isEmpty() ? u"Some fields of the project need another look."_s : problem;
}

}  // namespace

Area setupArea() {
  const auto list = u"inboxSetup"_s;
  const AreaStore projects{list, &InboxSetupStore::staticMetaObject, [](WorkspaceStores& stores) -> Store* {
                             return new InboxSetupStore(stores.context(), [&stores](const QString& id) {
                               return saveForm(stores.keptItem(Page::inboxSetup, id));
                             });
                           }};
  const AreaPage::Item project{.view = u"Orvella/Setup/SetupProjectPage.qml"_s,
                               .make = [list](WorkspaceStores& stores, const QString& id) -> Store* {
                                 auto* setup = static_cast<InboxSetupStore*>(stores.store(list));
                                 return new SetupProjectStore(id, *setup);
                               }};
  return {.stores = {projects},
          .pages = {{.page = Page::inboxSetup, .view = u"Orvella/Setup/InboxSetupPage.qml"_s, .item = project}}};
}

}  // namespace orv
