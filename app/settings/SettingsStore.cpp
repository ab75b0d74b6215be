#include "app/settings/SettingsStore.h"

#include "app/base/openInBrowser.h"
#include "app/base/recordActions.h"
#include "app/base/shownName.h"
#include "app/settings/settingsRoles.h"
#include "app/settings/workspaceDeletion.h"
#include "kit/models/workspace/workspaceRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto blocklistKey = u"blocklist"_s, deletionKey = u"deletion"_s;
const auto onlyAdminsInvite = u"Only admins can invite teammates."_s;

}  // namespace

SettingsStore::SettingsStore(WorkspaceContext& context)
    : Store(context),
      m_actions(context, m_busy,
                [this] {
                  if (m_workspace.isAsked()) m_workspace.load();
                }),
      m_workspace(*this, [this] { return api().send(Requests::getWorkspace()); },
                  {.failed = u"Couldn’t load the workspace"_s, .loadsByItself = false}),
      m_workspaceForm(WorkspaceForm::Tab::workspace, *this, m_workspace),
      m_companyForm(WorkspaceForm::Tab::company, *this, m_workspace),
      m_members(*this),
      m_invites(*this),
      m_lists(*this),
      m_clientForm(context) {
  connect(&m_workspace, &ResourceBase::changed, this, &SettingsStore::changed);
  connect(&m_busy, &BusySet::changed, this, &SettingsStore::changed);
  connect(this, &Store::roleChanged, this, &SettingsStore::changed);
  connect(&services().program, &Program::changed, this, &SettingsStore::changed);
  // The account says name and role as well; which of the two is older only the service knows.
  connect(&context, &WorkspaceContext::workspaceChanged, this, [this] {
    if (isSaidOtherwise()) m_workspace.markStale();
  });
  connect(&m_workspace, &ResourceBase::valueChanged, this, [this] {
    if (isSaidOtherwise()) services().program.rereadAccount();
  });
  for (WorkspaceForm* form : {&m_workspaceForm, &m_companyForm}) {
    form->onSaved = [this](const WorkspaceDetail& saved, FieldDraft::Version madeOn) { taken(saved, madeOn); };
    form->isSeen = [this, form] {
      return isShown() && m_tab == (form == &m_companyForm ? SettingsTab::company : SettingsTab::workspace);
    };
  }
  m_clientForm.onSubmit = [this](const ClientWorkspaceBody& body) { m_tasks.start(clientTask(body)); };
}

bool SettingsStore::isSaidOtherwise() const {
  const WorkspaceSummary& here = context().workspace();
  return detail() && (detail()->name != here.name || detail()->role != here.role);
}

/// What the person saved in one place is nobody else's doing in another.
void SettingsStore::taken(const WorkspaceDetail& saved, FieldDraft::Version madeOn) {
  for (WorkspaceForm* form : {&m_workspaceForm, &m_companyForm}) form->follow(saved, madeOn);
  m_workspace.update([&saved](WorkspaceDetail& shown) { shown = saved; });
}

void SettingsStore::setTab(const QString& name) {
  const auto tab = Pages::tabNamed(name);
  if (!tab || *tab == m_tab) return;
  if (*tab == SettingsTab::ai) return services().navigator.openSettings(*tab);
  goTo({.tab = name});
  Q_EMIT moved();
}

void SettingsStore::goTo(const PagePlace& place) {
  const auto tab = Pages::tabNamed(place.tab);
  if (!tab || *tab == SettingsTab::ai || std::exchange(m_tab, *tab) == *tab) return;
  ensureLoaded();
  Q_EMIT changed();
}

QVariantList SettingsStore::tabs() const {
  QVariantList list;
  for (const Pages::TabInfo& info : Pages::allTabs())
    list.append(QVariantMap{{u"tab"_s, Pages::name(info.tab)}, {u"title"_s, info.title}, {u"section"_s, info.section}});
  return list;
}

QString SettingsStore::title() const { return Pages::allTabs().at(int(m_tab)).title; }

QList<ResourceBase*> SettingsStore::shown() {
  switch (m_tab) {
    case SettingsTab::workspace:
    case SettingsTab::company:
    case SettingsTab::blocklist:
      return {&m_workspace};
    case SettingsTab::members:
      return {m_members.list(), m_invites.list()};
    case SettingsTab::credits:
      return {m_lists.allowance()};
    case SettingsTab::tags:
      return {m_lists.tagList()};
    case SettingsTab::replyLabels:
      return {m_lists.labelList()};
    default:
      return {};
  }
}

void SettingsStore::ensureLoaded() {
  for (ResourceBase* resource : shown()) resource->ensureLoaded();
}

void SettingsStore::refresh() {
  for (ResourceBase* resource : shown()) resource->load();
}

QList<PageAction> SettingsStore::offered(const QString& record) {
  QList<PageAction> actions = Store::offered(record);
  if (!record.isEmpty()) return actions;
  // Always there, since it has a key; away from the clients it is the teammates' wherever somebody is.
  const bool isClient = m_tab == SettingsTab::clients;
  actions.append(isClient ? newAction(u"New client workspace"_s, u"Only admins can create client workspaces."_s,
                                      [this] { m_clientForm.show(); })
                          : newAction(u"Invite a teammate"_s, onlyAdminsInvite, [this] {
                              setTab(Pages::name(SettingsTab::members));
                              m_invites.form()->show();
                            }));
  actions.last().possible = canManage();
  return actions;
}

Program* SettingsStore::program() const { return &services().program; }
QString SettingsStore::role() const { return roleLabel(context().workspace().role); }

QString SettingsStore::publicId() const {
  return detail() ? shownName(detail()->publicId.value_or(QString())) : QString();
}

QString SettingsStore::plan() const { return detail() ? shownName(detail()->plan.value_or(QString())) : QString(); }
bool SettingsStore::canManage() const { return mayManage(context().workspace().role); }
bool SettingsStore::canDelete() const { return detail() && detail()->canDelete.value_or(false) && !deleting(); }
bool SettingsStore::deleting() const { return m_busy.contains(deletionKey); }

bool SettingsStore::unsubscribesToBlocklist() const {
  return detail() && detail()->unsubscribesToBlocklist.value_or(false);
}

bool SettingsStore::savingBlocklist() const { return m_busy.contains(blocklistKey); }
bool SettingsStore::positiveReplies() const { return services().preferences.positiveReplies(); }
bool SettingsStore::accountErrors() const { return services().preferences.accountErrors(); }

void SettingsStore::setPositiveReplies(bool on) {
  services().preferences.setPositiveReplies(on);
  Q_EMIT changed();
}

void SettingsStore::setAccountErrors(bool on) {
  services().preferences.setAccountErrors(on);
  Q_EMIT changed();
}

QList<Choice> SettingsStore::themes() const {
  return {{.key = u"system"_s, .label = u"Theme of the desktop"_s},
          {.key = u"light"_s, .label = u"Light"_s},
          {.key = u"dark"_s, .label = u"Dark"_s}};
}

QList<Choice> SettingsStore::features() const {
  const QStringList off = services().program.featuresOff();
  QList<Choice> features;
  for (const Pages::PageInfo& info : Pages::all())
    if (info.optional) {
      const bool isOn = !off.contains(Pages::name(info.page));
      features.append({.key = Pages::name(info.page), .label = info.title, .detail = isOn ? u"On"_s : u"Off"_s});
    }
  return features;
}

QStringList SettingsStore::migrationPick() const { return services().program.migrationPick(); }

void SettingsStore::invite() { act(u"new"_s); }

void SettingsStore::createClient() { act(u"new"_s); }

void SettingsStore::copyWorkspaceId() {
  if (detail() && detail()->publicId && services().clipboard.setText(*detail()->publicId))
    services().toasts.success(u"Workspace ID copied"_s);
}

void SettingsStore::openOnWeb(const QString& path) {
  // What signs in there goes to no other program.
  QUrl page = services().webOrigin.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment);
  page.setPath(u"/w/"_s + slug() + path);
  openInBrowser(services().browser, services().toasts, page);
}

Task<void> SettingsStore::blocklistTask(bool on) {
  if (!detail() || !canManage() || on == unsubscribesToBlocklist()) co_return Q_EMIT changed();
  FieldDraft::Version madeOn;
  co_await m_actions.perform<WorkspaceDetail>(
      {blocklistKey, detail()->id},
      [this, on, &madeOn] {
        madeOn = detail()->version;
        return Requests::updateWorkspace({.unsubscribesToBlocklist = on}, madeOn);
      },
      {}, [this, &madeOn](const WorkspaceDetail& saved) { taken(saved, madeOn); },
      [this](const APIError& error) {
        if (!isVersionConflict(error)) return false;
        services().toasts.show({.message = workspaceConflict(), .tone = Toasts::Tone::error});
        return true;
      });
  // The switch has moved already, and may have to move back.
  Q_EMIT changed();
}

Task<void> SettingsStore::deleteTask() {
  if (!canDelete()) co_return;
  const auto mark = m_busy.mark(deletionKey);
  if (!co_await askToDelete(services().overlays, detail()->name)) co_return;
  const OneShot<bool> done;
  // Whoever goes to another workspace meanwhile still has this one deleted, and must hear of it.
  context().start(deleteForGood(context().shared_from_this(), detail()->name, done));
  co_await done.wait();
}

Task<void> SettingsStore::clientTask(ClientWorkspaceBody body) {
  auto submission = m_clientForm.begin();
  const auto told = [&submission, this](const APIError& error) {
    submission.fail(services().toasts, u"Couldn’t create the client workspace."_s, error);
    // It may be there all the same.
    if (mayHaveActed(error)) services().program.rereadAccount();
    return true;
  };
  const auto made = co_await m_actions.send(Requests::createClientWorkspace(body), {}, {}, told);
  if (!made) co_return;
  submission.succeed();
  services().toasts.success(u"Created "_s + shownName(made->name.value_or(body.workspace)));
  services().program.rereadAccount();
}

}  // namespace orv
