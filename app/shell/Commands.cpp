#include "app/shell/Commands.h"

#include "kit/models/campaigns/campaignSummary.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

void addPages(AppModel& app, QList<Command>& commands) {
  for (const auto& info : Pages::all()) {
    commands.append({u"page."_s + Pages::name(info.page),
                     u"Pages"_s,
                     info.title,
                     {},
                     info.icon,
                     u"G "_s + info.key.toUpper(),
                     [&app, page = info.page] { app.router()->open(page); }});
  }
}

void addActions(AppModel& app, QList<Command>& commands) {
  const auto inCampaigns = [&app](void (*act)(CampaignsStore&)) {
    return [&app, act] {
      app.router()->open(Page::campaigns);
      if (auto* session = app.session()) act(*session->campaigns());
    };
  };
  const QString actions = u"Actions"_s, campaigns = u"Campaigns"_s;
  commands.append({u"campaigns.new"_s, actions, u"New campaign"_s, campaigns, u"list-add"_s, u"N"_s,
                   inCampaigns([](CampaignsStore& store) { store.beginCreate(); })});
  commands.append({u"campaigns.archived"_s,
                   actions,
                   u"Archived campaigns"_s,
                   campaigns,
                   u"archive-insert"_s,
                   {},
                   inCampaigns([](CampaignsStore& store) { store.setShowArchived(true); })});
  commands.append({u"campaigns.refresh"_s, actions, u"Refresh campaigns"_s, campaigns, u"view-refresh"_s, u"F5"_s,
                   inCampaigns([](CampaignsStore& store) { store.refresh(); })});
  for (const auto& [theme, title] :
       {std::pair{u"system"_s, u"Use the desktop’s theme"_s}, std::pair{u"light"_s, u"Use the light theme"_s},
        std::pair{u"dark"_s, u"Use the dark theme"_s}}) {
    commands.append({u"theme."_s + theme, actions, title, u"Appearance"_s, u"configure"_s, {}, [&app, theme] {
                       app.appearance()->setTheme(theme);
                     }});
  }
  commands.append(
      {u"sidebar"_s, actions, u"Fold or unfold the sidebar"_s, {}, u"sidebar-collapse-left"_s, u"Ctrl+B"_s, [&app] {
         app.router()->setCollapsed(!app.router()->collapsed());
       }});
  commands.append({u"shortcuts"_s, actions, u"Shortcuts"_s, {}, u"code-context"_s, u"Ctrl+/"_s, [&app] {
                     app.router()->setShortcutsOpen(true);
                   }});
  commands.append(
      {u"sign-out"_s, actions, u"Sign out"_s, app.userEmail(), u"system-users"_s, {}, [&app] { app.signOut(); }});
}

void addCampaigns(AppModel& app, QList<Command>& commands) {
  const CampaignList* list = app.session() ? app.session()->campaigns()->list()->value() : nullptr;
  if (!list) return;
  for (const CampaignSummary& campaign : list->items) {
    commands.append({u"campaign."_s + campaign.id,
                     u"Campaigns"_s,
                     campaign.name,
                     campaign.status.label(),
                     u"mail-send"_s,
                     {},
                     [&app, id = campaign.id] { app.router()->openCampaign(id); }});
  }
}

void addWorkspaces(AppModel& app, QList<Command>& commands) {
  if (!app.stored()) return;
  for (const WorkspaceSummary& workspace : app.stored()->workspaces) {
    if (app.current() && app.current()->slug == workspace.slug) continue;
    commands.append({u"workspace."_s + workspace.slug,
                     u"Workspaces"_s,
                     workspace.name,
                     workspace.slug,
                     u"system-users"_s,
                     {},
                     [&app, slug = workspace.slug] { app.openWorkspace(slug); }});
  }
}

void addSettings(AppModel& app, QList<Command>& commands) {
  for (const auto& info : Pages::allTabs()) {
    commands.append({u"settings."_s + Pages::name(info.tab),
                     u"Settings"_s,
                     info.title,
                     info.section,
                     u"configure"_s,
                     {},
                     [&app, tab = info.tab] { app.router()->openSettings(tab); }});
  }
}

QVariantMap line(const QString& group, const QString& title, const QString& keys) {
  return {{u"group"_s, group}, {u"title"_s, title}, {u"keys"_s, keys.split(u' ')}};
}

}  // namespace

QList<Command> commandsOf(AppModel& app) {
  QList<Command> commands;
  addPages(app, commands);
  addActions(app, commands);
  addCampaigns(app, commands);
  addWorkspaces(app, commands);
  addSettings(app, commands);
  return commands;
}

QVariantList shortcutSheet(AppModel& app) {
  QVariantList lines{line(u"Anywhere"_s, u"Search or go to…"_s, u"Ctrl+K"_s),
                     line(u"Anywhere"_s, u"Back to the last place"_s, u"Alt+Left"_s),
                     line(u"Anywhere"_s, u"Forward again"_s, u"Alt+Right"_s),
                     line(u"Anywhere"_s, u"Next pane, messages"_s, u"F6"_s)};
  for (const Command& command : commandsOf(app))
    if (!command.keys.isEmpty()) lines.append(line(command.group, command.title, command.keys));
  const QString table = u"Table"_s;
  for (const auto& [title, keys] :
       {std::pair{u"Open"_s, u"Enter"_s}, std::pair{u"Row menu"_s, u"Shift+F10"_s}, std::pair{u"Rename"_s, u"F2"_s},
        std::pair{u"Duplicate"_s, u"Ctrl+D"_s}, std::pair{u"Delete"_s, u"Del"_s}, std::pair{u"Copy"_s, u"Ctrl+C"_s},
        std::pair{u"Search this page"_s, u"/"_s}})
    lines.append(line(table, title, keys));
  return lines;
}

}  // namespace orv
