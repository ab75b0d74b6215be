#include "app/rampup/RampupArea.h"

#include "app/rampup/RampupAccountStore.h"
#include "app/rampup/RampupStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Area rampupArea() {
  const auto list = u"rampup"_s;
  const AreaPage::Item account{.view = u"Orvella/Rampup/RampupAccountPage.qml"_s,
                               .make = [list](WorkspaceStores& stores, const QString& id) -> Store* {
                                 auto* rampup = static_cast<RampupStore*>(stores.store(list));
                                 return new RampupAccountStore(id, *rampup);
                               }};
  return {.stores = {areaStore<RampupStore>(list)},
          .pages = {{.page = Page::rampup, .view = u"Orvella/Rampup/RampupPage.qml"_s, .item = account}}};
}

}  // namespace orv
