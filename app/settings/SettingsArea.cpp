#include "app/settings/SettingsArea.h"

#include "app/settings/SettingsStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Area settingsArea() {
  return {.stores = {areaStore<SettingsStore>(u"settings"_s)},
          .pages = {{.page = Page::settings, .view = u"Orvella/Settings/SettingsPage.qml"_s}}};
}

}  // namespace orv
