#include "app/shell/Commands.h"

#include "app/base/shownName.h"
#include "app/shell/Areas.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto actionsGroup = u"Actions"_s;

Command commandOf(const QString& page, const PageAction& action, const QString& subtitle) {
  return {page + u'.' + action.key,
          actionsGroup,
          action.inPalette.isEmpty() ? action.title : action.inPalette,
          subtitle,
          action.icon,
          action.keys,
          {}};
}

/// Does it where it belongs, which is opened first.
std::function<void()> actingOn(AppModel& app, Page page, Store* store, const QString& key, const QString& record = {}) {
  return [&app, page, there = QPointer(store), key, record] {
    if (app.openPage()->store() != there) app.router()->open(page);
    if (there && app.openPage()->store() == there) there->act(key, record);
  };
}

/// What can be done with the page or, by its id, with one of its records; these need not be open for it.
QList<Command> deedsOf(AppModel& app, Page page, Store* store, const QString& record, const QString& name) {
  QList<Command> deeds;
  if (!store) return deeds;
  for (const PageAction& action : store->actions(record)) {
    if (!action.possible) continue;
    Command deed{{}, actionsGroup, action.title, {}, action.icon, action.keys, {}};
    deed.run = actingOn(app, page, store, action.key, record);
    if (!record.isEmpty() && action.anywhere)
      deed.run = [there = QPointer(store), key = action.key, record] {
        if (there) there->act(key, record);
      };
    deed.whole = action.inPalette.isEmpty() ? action.title + u' ' + name : action.inPalette;
    deeds.append(deed);
  }
  return deeds;
}

QVariantMap line(const QString& group, const QString& title, const QString& keys) {
  return {{u"group"_s, group}, {u"title"_s, title}, {u"keys"_s, keys.split(u' ')}};
}

}  // namespace

Commands::Commands(AppModel& app, QObject* parent) : QObject(parent), m_app(app) {}

void Commands::addPages(QList<Command>& commands) const {
  WorkspaceSession* session = m_app.session();
  for (const auto& info : Pages::all()) {
    commands.append({u"page."_s + Pages::name(info.page),
                     u"Pages"_s,
                     info.title,
                     {},
                     info.icon,
                     u"G "_s + info.key.toUpper(),
                     [&app = m_app, page = info.page] { app.router()->open(page); }});
    if (Store* store = session ? session->store(Pages::name(info.page)) : nullptr)
      commands.last().more = [&app = m_app, &info, there = QPointer(store)] {
        return deedsOf(app, info.page, there, {}, info.title);
      };
  }
}

void Commands::addOpenPage(QList<Command>& commands) const {
  const Router& router = *m_app.router();
  const bool isItem = !router.openedItem(router.page()).isEmpty();
  const QString page = Pages::name(router.page()) + (isItem ? u".item"_s : QString());
  for (const PageAction& action : m_app.openPage()->actions()) {
    if (!action.possible) continue;
    Command command = commandOf(page, action, Pages::info(router.page()).title);
    command.run = [store = QPointer(m_app.openPage()->store()), key = action.key] {
      if (store) store->act(key);
    };
    commands.append(command);
  }
}

void Commands::addOtherPages(QList<Command>& commands) const {
  WorkspaceSession* session = m_app.session();
  if (!session) return;
  for (const auto& info : Pages::all()) {
    Store* store = session->store(Pages::name(info.page));
    if (!store || store == m_app.openPage()->store()) continue;
    for (const PageAction& action : store->actions()) {
      if (!action.anywhere || !action.possible) continue;
      Command command = commandOf(Pages::name(info.page), action, info.title);
      // Its keys are those of its page.
      command.keys.clear();
      command.run = actingOn(m_app, info.page, store, action.key);
      commands.append(command);
    }
  }
}

void Commands::addGeneral(QList<Command>& commands) const {
  AppModel& app = m_app;
  const QString actions = actionsGroup;
  for (const auto& [theme, title] :
       {std::pair{u"system"_s, u"Use the desktop’s theme"_s}, std::pair{u"light"_s, u"Use the light theme"_s},
        std::pair{u"dark"_s, u"Use the dark theme"_s}}) {
    commands.append({u"theme."_s + theme, actions, title, u"Appearance"_s, u"configure"_s, {}, [&app, theme] {
                       app.appearance()->setTheme(theme);
                     }});
  }
  if (app.router()->foldable())
    commands.append(
        {u"sidebar"_s, actions, u"Fold or unfold the sidebar"_s, {}, u"sidebar-collapse-left"_s, u"Ctrl+B"_s, [&app] {
           app.router()->setCollapsed(!app.router()->collapsed());
         }});
  for (const auto& [by, title, keys] : {std::tuple{1, u"Show everything larger"_s, u"Ctrl++"_s},
                                        std::tuple{-1, u"Show everything smaller"_s, u"Ctrl+-"_s},
                                        std::tuple{0, u"Show everything at its own size"_s, u"Ctrl+0"_s}}) {
    commands.append({u"size.%1"_s.arg(by), actions, title, u"Appearance"_s, u"configure"_s, keys,
                     [&app, by] { app.appearance()->stepSize(by); }});
  }
  commands.append({u"shortcuts"_s, actions, u"Shortcuts"_s, {}, u"code-context"_s, u"?"_s, [&app] {
                     app.router()->setShortcutsOpen(true);
                   }});
  if (const Toasts::Toast* toast = undoable())
    commands.append({u"undo"_s, actions, u"Undo"_s, toast->message, u"edit-undo"_s, u"Ctrl+Z"_s,
                     [&app, id = toast->id] { app.toasts()->act(id); }});
  commands.append({u"changelog"_s, actions, u"What’s new"_s, app.program()->version(), u"help-about"_s, {}, [&app] {
                     app.program()->showChangelog();
                   }});
  commands.append(
      {u"log"_s, actions, u"Log"_s, {}, u"format-list-unordered"_s, {}, [&app] { app.program()->showLog(); }});
  commands.append(
      {u"sign-out"_s, actions, u"Sign out"_s, app.userEmail(), u"system-users"_s, {}, [&app] { app.signOut(); }});
}

void Commands::addRecords(QList<Command>& commands) const {
  WorkspaceSession* session = m_app.session();
  if (!session) return;
  for (const auto& info : Pages::all()) {
    Store* store = session->store(Pages::name(info.page));
    if (!store) continue;
    for (const FoundRecord& record : store->found()) {
      const QString name = shownName(record.name);
      commands.append({u"record."_s + Pages::name(info.page) + u'.' + record.id,
                       info.title,
                       name,
                       shownName(record.detail),
                       info.icon,
                       {},
                       [&app = m_app, page = info.page, id = record.id] { app.router()->openItem(page, id); },
                       [&app = m_app, page = info.page, there = QPointer(store), id = record.id, name] {
                         return deedsOf(app, page, there, id, name);
                       }});
    }
  }
}

void Commands::addWorkspaces(QList<Command>& commands) const {
  AppModel& app = m_app;
  if (!app.stored()) return;
  for (const WorkspaceSummary& workspace : app.stored()->workspaces) {
    if (app.current() && app.current()->slug == workspace.slug) continue;
    commands.append({u"workspace."_s + workspace.slug,
                     u"Workspaces"_s,
                     shownName(workspace.name),
                     workspace.slug,
                     u"system-users"_s,
                     {},
                     [&app, slug = workspace.slug] { app.openWorkspace(slug); }});
  }
}

void Commands::addSettings(QList<Command>& commands) const {
  AppModel& app = m_app;
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

void Commands::load() {
  WorkspaceSession* session = m_app.session();
  if (!session) return;
  for (const auto& info : Pages::all()) {
    Store* store = session->store(Pages::name(info.page));
    if (!store) continue;
    store->ensureFound();
    connect(store, &Store::foundChanged, this, &Commands::changed, Qt::UniqueConnection);
  }
}

QList<Command> Commands::all() const {
  QList<Command> commands;
  addPages(commands);
  addOpenPage(commands);
  addOtherPages(commands);
  addGeneral(commands);
  addRecords(commands);
  addWorkspaces(commands);
  addSettings(commands);
  return commands;
}

const Toasts::Toast* Commands::undoable() const {
  const QList<Toasts::Toast>& toasts = m_app.toasts()->toasts();
  for (auto toast = toasts.crbegin(); toast != toasts.crend(); ++toast)
    if (toast->actionLabel == "Undo"_L1) return &*toast;
  return nullptr;
}

bool Commands::undo() {
  const Toasts::Toast* toast = undoable();
  if (toast) m_app.toasts()->act(toast->id);
  return toast;
}

QVariantList Commands::sheet() const {
  QVariantList lines;
  // What is at hand comes first.
  for (const PageAction& action : m_app.openPage()->actions())
    if (!action.keys.isEmpty()) lines.append(line(m_app.router()->title(), action.title, action.keys));
  const auto add = [&lines](const QString& group, std::initializer_list<std::pair<QString, QString>> keys) {
    for (const auto& [title, pressed] : keys) lines.append(line(group, title, pressed));
  };
  add(u"Writing"_s, {{u"Bold, and on behind it"_s, u"Ctrl+B"_s},
                     {u"Italic, and on behind it"_s, u"Ctrl+I"_s},
                     {u"Variable"_s, u"{{"_s},
                     {u"Add email"_s, u"Ctrl+Enter"_s},
                     {u"Previous email"_s, u"Alt+Up"_s},
                     {u"Next email"_s, u"Alt+Down"_s},
                     {u"Wait a day less"_s, u"Alt+Shift+Left"_s},
                     {u"Wait a day more"_s, u"Alt+Shift+Right"_s},
                     {u"Save"_s, u"Ctrl+S"_s},
                     {u"Undo"_s, u"Ctrl+Z"_s}});
  add(u"Selecting"_s, {{u"Tick the row"_s, u"Space"_s},
                       {u"Tick on upwards"_s, u"Shift+Up"_s},
                       {u"Tick on downwards"_s, u"Shift+Down"_s},
                       {u"Tick everything"_s, u"Ctrl+A"_s},
                       {u"Untick everything"_s, u"Esc"_s},
                       {u"Copy"_s, u"Ctrl+C"_s}});
  add(u"Table"_s, {{u"Open"_s, u"Enter"_s},
                   {u"Row menu"_s, u"Shift+F10"_s},
                   {u"Rename"_s, u"F2"_s},
                   {u"Duplicate"_s, u"Ctrl+D"_s},
                   {u"Delete"_s, u"Del"_s},
                   {u"Search this page"_s, u"/"_s}});
  add(u"Anywhere"_s, {{u"Search or go to…"_s, u"Ctrl+K"_s},
                      {u"What can be done with a result"_s, u"Ctrl+K →"_s},
                      {u"Back to the last place"_s, u"Alt+Left"_s},
                      {u"Forward again"_s, u"Alt+Right"_s},
                      {u"Up to the list"_s, u"Esc"_s},
                      {u"Next pane, messages"_s, u"F6"_s},
                      {u"Undo, outside a text"_s, u"Ctrl+Z"_s}});
  QList<Command> commands;
  addGeneral(commands);
  addPages(commands);
  for (const Command& command : commands) {
    const QString group = command.group == actionsGroup ? u"Anywhere"_s : command.group;
    if (!command.keys.isEmpty() && command.id != "undo"_L1) lines.append(line(group, command.title, command.keys));
  }
  return lines;
}

}  // namespace orv
