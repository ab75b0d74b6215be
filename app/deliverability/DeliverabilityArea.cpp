#include "app/deliverability/DeliverabilityArea.h"

#include "app/deliverability/DeliverabilityStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Area deliverabilityArea() {
  return {.stores = {areaStore<DeliverabilityStore>(u"deliverability"_s)},
          .pages = {{.page = Page::deliverability, .view = u"Orvella/Deliverability/DeliverabilityPage.qml"_s}}};
}

}  // namespace orv
