#include "app/setup/InboxSetupStore.h"

#include <algorithm>

#include "app/base/SaveFile.h"
#include "app/base/recordActions.h"
#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/api/wipe.h"
#include "kit/models/setup/setupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Archive<SetupProject>::Words archiveWords() {
  const auto always = [](const QString& sentence) { return [sentence](const QString&) { return sentence; }; };
  return {.removed = [](const QString& name) { return u"Deleted “"_s + name + u"”. It’s in Archived for 30 days."_s; },
          .removedForGood = [](const QString& name) { return u"Deleted "_s + name; },
          .restored = [](const QString&, const SetupProject&) { return u"Restored"_s; },
          .cannotRemove = always(u"Couldn’t delete the project."_s),
          .cannotRestore = always(u"Couldn’t restore the project."_s)};
}

/// Nothing deletes a project for good.
Request<Empty> toArchive(const QString& id, bool) { return Requests::deleteSetupProject(id); }

}  // namespace

InboxSetupStore::InboxSetupStore(WorkspaceContext& context, SaveFirst saveFirst)
    : Store(context),
      m_saveFirst(std::move(saveFirst)),
      m_actions(context, m_busy, [this] { Store::refresh(); }),
      m_archive(context, m_actions, {.remove = toArchive, .restore = Requests::restoreSetupProject}, archiveWords()),
      m_list(*this, [this] { return api().send(Requests::listSetupProjects(false)); },
             {.failed = u"Couldn’t load the projects"_s}),
      m_archived(*this, [this] { return api().send(Requests::listSetupProjects(true)); },
                 {.failed = u"Couldn’t load the projects"_s, .loadsByItself = false, .isArchive = true}),
      m_new(context),
      m_rename({u"Rename project"_s, {}, u"Name"_s, u"Rename"_s}, context),
      m_runs(context, *this) {
  connect(&m_list, &ResourceBase::valueChanged, this, &InboxSetupStore::show);
  connect(&m_list, &ResourceBase::valueChanged, this, &InboxSetupStore::followRuns);
  connect(&m_archived, &ResourceBase::valueChanged, this, &InboxSetupStore::show);
  connect(&m_list, &ResourceBase::changed, this, &InboxSetupStore::changed);
  connect(&m_archived, &ResourceBase::changed, this, &InboxSetupStore::changed);
  connect(&m_busy, &BusySet::changed, this, &InboxSetupStore::changed);
  connect(&m_runs.busy(), &BusySet::changed, this, &InboxSetupStore::changed);
  connect(&m_runs, &SetupRuns::acted, this, [this] { m_list.markStale(); });
  connect(this, &Store::roleChanged, this, &InboxSetupStore::changed);
  context.changes().watch<SetupProject>(this, [this](const auto& change) { take(change); });
  context.changes().watch<Archived<SetupProject>>(this, [this](const auto& change) { takeArchived(change); });
  m_new.onSubmit = [this](const QString& name, const SetupMode& mode) { m_tasks.start(createTask(name, mode)); };
  m_rename.onSubmit = [this](const QString& name) { m_tasks.start(renameTask(m_renamed.id, name)); };
}

QStringList InboxSetupStore::busyIds() const {
  QSet<QString> ids = m_busy.ids();
  ids.unite(m_runs.busy().ids());
  return ids.values();
}

void InboxSetupStore::ensureLoaded() {
  Store::ensureLoaded();
  if (m_poller.isIdle()) m_poller.start(pollTask());
}

bool InboxSetupStore::isRunning() const {
  const auto* page = m_list.value();
  return page && std::ranges::any_of(page->items, [](const SetupProject& project) {
           return project.lastRun && project.lastRun->isOpen() && !project.lastRun->control.isPaused();
         });
}

/// A run that has just begun is not to wait out the slow rhythm.
void InboxSetupStore::followRuns() {
  const bool isFaster = isRunning() && m_polledRunning == false;
  if (isFaster && !m_poller.isIdle()) m_poller.start(pollTask());
  for (const SetupProject& project : m_list.value()->items) m_runs.follow(project.id, project.lastRun);
}

Task<void> InboxSetupStore::pollTask() {
  for (;;) {
    m_polledRunning = isRunning();
    co_await services().clock.sleep(*m_polledRunning ? whileRunning : otherwise);
    // The first reading, and what it says of a failure, is the list's own.
    if (!m_list.value() || m_list.refreshing()) continue;
    const Stamp asked = context().changes().stamp();
    try {
      SetupProjectPage page = co_await api().send(Requests::listSetupProjects(false));
      context().cameOnline();
      if (m_list.refreshing() || !m_list.value()) continue;
      context().changes().reconcile<SetupProject>(page.items, &m_list.value()->items, asked);
      if (page == *m_list.value()) continue;
      m_polledRunning.reset();
      m_list.amend([&page](SetupProjectPage& shown) { shown = std::move(page); });
    } catch (const APIError& error) {
      // What is shown stays; the next reading may do better.
      if (error.is(APIError::Kind::unauthorized)) co_return;
    }
  }
}

void InboxSetupStore::take(const Change<SetupProject>& change) {
  using Kind = Change<SetupProject>::Kind;
  const auto isIt = [&change](const SetupProject& item) { return item.id == change.id; };
  if (!m_list.value()) return m_list.markStale();
  if (change.kind == Kind::stale) {
    // What a reading of this list says of its own.
    if (change.acted) m_list.markStale();
    return;
  }
  const bool isKnown = std::ranges::any_of(m_list.value()->items, isIt);
  if (change.kind == Kind::gone)
    m_list.update([&isIt](SetupProjectPage& page) {
      if (page.items.removeIf(isIt) > 0 && page.archivedCount) ++*page.archivedCount;
    });
  else if (isKnown)
    m_list.amend([&](SetupProjectPage& page) { *std::ranges::find_if(page.items, isIt) = *change.record; });
  else if (change.acted && !change.record->archivedAt) {
    // Where it stands only the service knows.
    m_list.amend([&change](SetupProjectPage& page) { page.items.append(*change.record); });
    m_list.markStale();
  }
}

void InboxSetupStore::takeArchived(const Change<Archived<SetupProject>>& change) {
  if (change.kind != Change<Archived<SetupProject>>::Kind::gone) return m_archived.markStale();
  m_archived.update([&change](SetupProjectPage& page) {
    page.items.removeIf([&change](const SetupProject& item) { return item.id == change.id; });
  });
  m_list.amend([](SetupProjectPage& page) {
    if (page.archivedCount && *page.archivedCount > 0) --*page.archivedCount;
  });
}

void InboxSetupStore::show() {
  const auto rows = [](const Resource<SetupProjectPage>& from) {
    std::vector<SetupProjectRow> all;
    if (from.value())
      for (const SetupProject& project : from.value()->items) all.push_back(setupRowOf(project));
    return all;
  };
  m_rows.update(rows(m_list));
  m_archivedRows.update(rows(m_archived));
  Q_EMIT changed();
  Q_EMIT foundChanged();
}

void InboxSetupStore::setShowArchived(bool shown) {
  if (std::exchange(m_showArchived, shown) == shown) return;
  if (shown) m_archived.ensureLoaded();
  Q_EMIT changed();
  Q_EMIT moved();
}

int InboxSetupStore::archivedCount() const {
  return m_list.value() && m_list.value()->archivedCount ? saturated(*m_list.value()->archivedCount) : -1;
}

QString InboxSetupStore::countText() const {
  if (m_showArchived)
    return m_archived.value() ? Format::counted(m_archivedRows.count(), u"deleted project"_s, u"deleted projects"_s)
                              : QString();
  return m_list.value() ? Format::counted(m_rows.count(), u"project"_s, u"projects"_s) : QString();
}

QString InboxSetupStore::summary() const {
  if (!m_list.value()) return {};
  qint64 domains = 0, connected = 0, running = 0;
  for (const SetupProject& project : m_list.value()->items) {
    domains += project.domains.size();
    if (!project.lastRun) continue;
    connected += project.lastRun->connected;
    running += project.lastRun->isOpen() && !project.lastRun->control.isPaused();
  }
  QString summary = Format::counted(domains, u"domain"_s, u"domains"_s) + u" · "_s +
                    Format::counted(connected, u"inbox connected"_s, u"inboxes connected"_s);
  if (running > 0) summary += u" · "_s + Format::counted(running, u"run"_s, u"runs"_s) + u" in progress"_s;
  return summary;
}

QString InboxSetupStore::createHint() const { return canWrite() ? QString() : u"Only members can create projects."_s; }

const SetupProject* InboxSetupStore::find(const QString& id) const {
  for (const auto* list : {&m_list, &m_archived}) {
    if (!list->value()) continue;
    const auto found = std::ranges::find(list->value()->items, id, &SetupProject::id);
    if (found != list->value()->items.cend()) return &*found;
  }
  return nullptr;
}

QList<FoundRecord> InboxSetupStore::found() const {
  QList<FoundRecord> found;
  if (m_list.value())
    for (const SetupProject& project : m_list.value()->items)
      found.append({project.id, project.name, runSummary(project.lastRun)});
  return found;
}

void InboxSetupStore::beginCreate() {
  if (canWrite()) m_new.begin();
}

void InboxSetupStore::beginRename(const SetupProject& project) {
  if (!canWrite() || m_busy.contains(project.id)) return;
  m_renamed = project;
  m_rename.show(project.name, u"inboxSetup/"_s + project.id + u"/name"_s, project.version);
}

Task<void> InboxSetupStore::runTask(QString id) {
  if (!find(id) || !canWrite() || busyIds().contains(id)) co_return;
  if (m_saveFirst) {
    const auto mark = m_busy.mark(id);
    const QString reason = co_await m_saveFirst(id);
    if (!reason.isEmpty()) co_return (void) services().toasts.show({.message = reason, .tone = Toasts::Tone::error});
  }
  const SetupProject* project = find(id);
  if (!project) co_return;
  if (const auto problem = runProblem(setupFieldsOf(*project), project->hasPassword, {}, RunAskedOn::list))
    co_return (void) services().toasts.show({.message = problem->sentence, .tone = Toasts::Tone::error});
  m_runs.start(*project);
}

Task<void> InboxSetupStore::createTask(QString name, SetupMode mode) {
  auto submission = static_cast<Form&>(m_new).begin();
  const auto made =
      co_await m_actions.send(Requests::createSetupProject({name, mode}), u"Couldn’t create the project."_s, {},
                              [&](const APIError& error) { return submission.fail(error.message()); });
  // Who has gone to another workspace meanwhile is not to be fetched back.
  const bool isHere = services().navigator.workspace() == context().workspace().slug;
  if (!made) co_return;
  if (submission.succeed() && isHere) co_return open(made->id);
  services().toasts.success(shownName(made->name) + u" created"_s);
}

Task<void> InboxSetupStore::renameTask(QString id, QString name) {
  auto submission = m_rename.begin();
  if (const QString problem = projectNameProblem(name); !problem.isEmpty()) {
    submission.fail(problem);
    co_return;
  }
  if (name == m_renamed.name) co_return m_rename.cancel();
  SetupProjectPatch patch;
  patch.name = name;
  // A name that somebody else gave meanwhile is not overwritten unseen: the service refuses the older version.
  const auto build = [this, patch, filled = m_renamed] {
    const SetupProject* now = find(filled.id);
    const bool isSame = now && now->name == filled.name;
    return Requests::updateSetupProject(filled.id, patch, isSame ? now->version : filled.version);
  };
  const auto sentence = [](const APIError& error) {
    return isVersionConflict(error) ? u"This project changed since you opened it. Reload and try again."_s
                                    : error.message();
  };
  const auto renamed =
      co_await m_actions.perform<SetupProject>({id, id}, build, u"Couldn’t rename the project."_s, {},
                                               [&](const APIError& error) { return submission.fail(sentence(error)); });
  if (renamed) submission.succeed();
}

Task<void> InboxSetupStore::removeTask(QString id) {
  const SetupProject* project = find(id);
  if (!project || project->archivedAt || !canWrite()) co_return;
  const QString name = project->name;
  if (const auto mark = m_busy.mark(id)) co_await m_archive.remove(id, name);
}

Task<void> InboxSetupStore::restoreTask(QString id) {
  const SetupProject* project = find(id);
  const QString name = project ? project->name : QString();
  if (!canWrite()) co_return;
  if (const auto mark = m_busy.mark(id)) co_await m_archive.restore(id, name);
}

Task<void> InboxSetupStore::exportTask(QString id, QString name) {
  const auto mark = m_busy.mark(id + u"/credentials"_s);
  if (!mark || !canWrite()) co_return;
  const auto failure = u"Couldn’t export the credentials."_s;
  auto csv = co_await m_actions.send(Requests::setupCredentials(id), failure);
  if (!csv) co_return;
  co_await saveSecretCsv(context(), name + u" inboxes.csv"_s, std::move(csv->data), failure);
}

QList<PageAction> InboxSetupStore::offeredOnPage() {
  QList<PageAction> actions = Store::offered({});
  actions.append(newAction(u"New project"_s, createHint(), [this] {
    setShowArchived(false);
    beginCreate();
  }));
  actions.append(archiveAction(u"Deleted projects"_s, m_showArchived, [this] { setShowArchived(true); }));
  return actions;
}

QList<PageAction> InboxSetupStore::offered(const QString& record) {
  if (record.isEmpty()) return offeredOnPage();
  const SetupProject* project = find(record);
  if (!project) return {};
  const bool isFree = !busyIds().contains(record);
  const QString name = project->name;
  QList<PageAction> actions{
      {.key = u"open"_s, .title = u"Open project"_s, .icon = u"tools-wizard"_s, .anywhere = true, .run = [=, this] {
         open(record);
       }}};
  if (project->archivedAt) {
    actions.append(archivedActions(isFree, [=, this] { restore(record); }, {}).first());
    return actions;
  }
  actions.append({.key = u"run"_s,
                  .title = u"Run"_s,
                  .icon = u"media-playback-start"_s,
                  .writes = true,
                  .possible = isFree && !(project->lastRun && project->lastRun->isOpen()),
                  .run = [=, this] { run(record); }});
  actions.append({.key = u"rename"_s,
                  .title = u"Rename"_s,
                  .icon = u"document-edit"_s,
                  .keys = u"F2"_s,
                  .writes = true,
                  .possible = isFree,
                  .run = [=, this] {
                    if (const SetupProject* now = find(record)) beginRename(*now);
                  }});
  actions.append({.key = u"credentials"_s,
                  .title = u"Export credentials"_s,
                  .detail = credentialsText(),
                  .icon = u"document-export"_s,
                  .writes = true,
                  .possible = isFree && project->lastRun,
                  .whyNot = project->lastRun ? QString() : nothingRan(),
                  .run = [=, this] { exportCredentials(record, name); }});
  actions.append({.key = u"delete"_s,
                  .title = u"Delete"_s,
                  .icon = u"edit-delete"_s,
                  .keys = u"Del"_s,
                  .writes = true,
                  .danger = true,
                  .possible = isFree,
                  .run = [=, this] { remove(record); }});
  return actions;
}

}  // namespace orv
