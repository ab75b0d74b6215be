#include "app/settings/SettingsStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

SettingsStore& openTab(Stage& stage, SettingsTab tab) {
  stage.app().router()->openSettings(tab);
  stage.settle();
  return *stage.app().session()->store<SettingsStore>();
}

Scene tab(const QString& name, SettingsTab shown) {
  return {u"settings-"_s + name, [shown](Stage& s) { openTab(s, shown); }};
}

}  // namespace

QList<Scene> settingsScenes() {
  return {
      page(u"settings"_s, [](Stage& s) { openTab(s, SettingsTab::members); }),
      tab(u"account"_s, SettingsTab::account),
      tab(u"workspace"_s, SettingsTab::workspace),
      tab(u"company"_s, SettingsTab::company),
      tab(u"credits"_s, SettingsTab::credits),
      tab(u"clients"_s, SettingsTab::clients),
      tab(u"notifications"_s, SettingsTab::notifications),
      tab(u"blocklist"_s, SettingsTab::blocklist),
      tab(u"tags"_s, SettingsTab::tags),
      tab(u"reply-labels"_s, SettingsTab::replyLabels),
      tab(u"integrations"_s, SettingsTab::integrations),
      tab(u"mcp"_s, SettingsTab::mcp),
      tab(u"features"_s, SettingsTab::features),
      tab(u"migration"_s, SettingsTab::migration),
      {u"settings-workspace-changed"_s,
       [](Stage& s) {
         WorkspaceForm& form = *openTab(s, SettingsTab::workspace).workspaceForm();
         form.set(u"name"_s, u""_s);
         form.set(u"timeZone"_s, u"lond"_s);
         form.save();
       }},
      {u"settings-delete"_s, [](Stage& s) { openTab(s, SettingsTab::workspace).deleteWorkspace(); }},
      {u"settings-deleted"_s,
       [](Stage& s) {
         openTab(s, SettingsTab::workspace).deleteWorkspace();
         s.app().overlays()->answer(s.app().overlays()->token(), true);
       }},
      {u"settings-viewer"_s,
       [](Stage& s) {
         s.app().openWorkspace(u"harbour"_s);
         openTab(s, SettingsTab::workspace);
       }},
      {u"settings-members-viewer"_s,
       [](Stage& s) {
         s.app().openWorkspace(u"harbour"_s);
         openTab(s, SettingsTab::members);
       }},
      {u"settings-invite"_s,
       [](Stage& s) {
         SettingsStore& settings = openTab(s, SettingsTab::members);
         settings.invite();
         settings.invites()->form()->set(u"email"_s, u"noel@caldera"_s);
         settings.invites()->form()->submit();
       }},
      {u"settings-remove-member"_s, [](Stage& s) { openTab(s, SettingsTab::members).members()->remove(u"u_ellen"_s); }},
      {u"settings-new-client"_s, [](Stage& s) { openTab(s, SettingsTab::clients).createClient(); }},
      {u"settings-loading"_s,
       [](Stage& s) {
         s.transport().mode = Mode::holding;
         s.app().router()->openSettings(SettingsTab::members);
       }},
      {u"settings-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openTab(s, SettingsTab::members);
       }},
      {u"settings-empty"_s,
       [](Stage& s) {
         s.transport().mode = Mode::empty;
         openTab(s, SettingsTab::members);
       }},
      {u"settings-offline"_s,
       [](Stage& s) {
         SettingsStore& settings = openTab(s, SettingsTab::members);
         s.transport().mode = Mode::offline;
         settings.refresh();
       }},
      {u"changelog"_s, [](Stage& s) { s.app().program()->showChangelog(); }},
      {u"log"_s, [](Stage& s) { s.app().program()->showLog(); }},
  };
}

}  // namespace orv
