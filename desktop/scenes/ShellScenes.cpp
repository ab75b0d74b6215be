#include "app/settings/SettingsStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// The menu of more workspaces than are found at a glance.
void openWorkspaces(Stage& stage) {
  stage.app().router()->openSettings(SettingsTab::clients);
  stage.settle();
  auto& settings = *stage.app().session()->store<SettingsStore>();
  for (const auto& name : {u"Ardmore Clinics"_s, u"Bremen Tooling"_s, u"Kestrel Freight"_s, u"Lumen Studios"_s,
                           u"Porto Ceramics"_s, u"Saltmarsh Foods"_s, u"Tarn Valley Water"_s}) {
    settings.createClient();
    settings.clientForm()->set(u"workspace"_s, name);
    settings.clientForm()->set(u"name"_s, u"Ida Berg"_s);
    settings.clientForm()->set(u"email"_s, u"ida@ardmore.example"_s);
    settings.clientForm()->submit();
    stage.settle();
  }
  while (!stage.app().toasts()->toasts().isEmpty())
    stage.app().toasts()->dismiss(stage.app().toasts()->toasts().last().id);
  stage.press(u"Workspace Northgate"_s);
  stage.settle();
}

}  // namespace

QList<Scene> shellScenes() {
  return {
      {u"palette"_s, [](Stage& s) { s.press(u"Search or go to…"_s); }},
      {u"palette-search"_s,
       [](Stage& s) {
         s.app().router()->setPaletteOpen(true);
         s.settle();
         s.type(u"cam"_s);
       }},
      {u"palette-nothing"_s,
       [](Stage& s) {
         s.app().router()->setPaletteOpen(true);
         s.settle();
         s.type(u"zzz"_s);
       }},
      {u"workspaces"_s, openWorkspaces},
      {u"workspaces-search"_s,
       [](Stage& s) {
         openWorkspaces(s);
         s.type(u"ar"_s);
       }},
      {u"shortcuts"_s, [](Stage& s) { s.app().router()->setShortcutsOpen(true); }},
      {u"sidebar-folded"_s, [](Stage& s) { s.app().router()->setCollapsed(true); }},
      {u"not-built"_s, [](Stage& s) { s.app().router()->open(Page::inboxSetup); }},
      {u"feature-off"_s,
       [](Stage& s) {
         s.app().router()->setFeaturesOff({u"inboxSetup"_s});
         s.app().router()->open(Page::inboxSetup);
       }},
  };
}

}  // namespace orv
