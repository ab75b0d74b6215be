#include "app/setup/SetupProjectStore.h"

#include <algorithm>

#include "app/base/momentText.h"
#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/setup/setupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

SetupProjectStore::SetupProjectStore(QString id, InboxSetupStore& list)
    : Store(list.context()),
      m_id(std::move(id)),
      m_list(list),
      m_project(*this, [this] { return load(); }, {.failed = u"Couldn’t load the project."_s}),
      m_form(m_id, list.actions(), m_project, *this),
      m_domains(m_id, list.actions(), m_project, m_form, *this),
      m_photo(m_id, list.actions(), m_project, *this),
      m_checks(*this) {
  connect(&m_project, &ResourceBase::changed, this, &SetupProjectStore::changed);
  connect(&m_form, &SetupForm::changed, this, &SetupProjectStore::changed);
  connect(&m_checks, &SetupChecks::changed, this, &SetupProjectStore::changed);
  connect(&list, &InboxSetupStore::changed, this, &SetupProjectStore::changed);
  connect(&list.runs(), &SetupRuns::changed, this, &SetupProjectStore::followRun);
  connect(this, &Store::roleChanged, this, &SetupProjectStore::changed);
  context().changes().watch<SetupProject>(this, [this](const auto& change) { take(change); });
  if (known()) followRun(m_id);
}

Task<SetupProject> SetupProjectStore::load() {
  try {
    auto project = co_await api().send(Requests::getSetupProject(m_id));
    m_missing = false;
    co_return project;
  } catch (const APIError& error) {
    m_missing = error.context().httpStatus == 404;
    throw;
  }
}

void SetupProjectStore::take(const Change<SetupProject>& change) {
  using Kind = Change<SetupProject>::Kind;
  if (!change.id.isEmpty() && change.id != m_id) return;
  if (change.kind != Kind::is || !m_project.value()) return m_project.markStale();
  if (*m_project.value() == *change.record) return;
  // What the person did to it in the list is nobody else's doing.
  if (change.madeOn) m_form.draft()->rebase(setupFieldsOf(*change.record), change.record->version, change.madeOn);
  m_project.update([&change](SetupProject& shown) { shown = *change.record; });
}

void SetupProjectStore::ensureLoaded() {
  Store::ensureLoaded();
  // The list's poller goes on while one of its projects is looked at.
  m_list.ensureLoaded();
  runs().open(m_id);
}

void SetupProjectStore::refresh() {
  Store::refresh();
  runs().reload(m_id);
}

void SetupProjectStore::followRun(const QString& projectId) {
  if (projectId != m_id) return;
  if (const SetupRun* run = known()) {
    m_rows.show(*run, m_folded);
    m_counts = countsOf(*run);
  } else {
    m_rows.update({});
  }
  if (!m_selectedRow.isEmpty() && m_rows.rowOf(m_selectedRow) < 0) closeChecks();
  Q_EMIT changed();
}

void SetupProjectStore::setTab(const QString& name) {
  const auto tab = enumNamed<Tab>(name);
  if (!tab || std::exchange(m_tab, *tab) == *tab) return;
  Q_EMIT changed();
  Q_EMIT moved();
}

QList<Choice> SetupProjectStore::tabs() const {
  return {{.key = enumName(Tab::project), .label = u"Project"_s}, {.key = enumName(Tab::run), .label = u"Run"_s}};
}

QString SetupProjectStore::name() const {
  const SetupProject* project = m_project.value() ? m_project.value() : m_list.find(m_id);
  return project ? shownName(project->name) : QString();
}

QString SetupProjectStore::modeText() const { return m_project.value() ? m_project.value()->mode.label() : QString(); }

bool SetupProjectStore::makesInboxes() const { return m_project.value() && m_project.value()->mode.isNew(); }

QString SetupProjectStore::savedRecovery() const {
  return m_project.value() ? m_project.value()->savedRecovery.value_or(QString()) : QString();
}

/// The run itself where it has been read, else what the project says of it.
std::optional<SetupLastRun> SetupProjectStore::lastRun() const {
  if (known()) return countedRun(*known());
  return m_project.value() ? m_project.value()->lastRun : std::nullopt;
}

QString SetupProjectStore::runText() const { return m_project.value() ? runSummary(lastRun()) : QString(); }
QString SetupProjectStore::runTone() const { return runSummaryTone(lastRun()); }

bool SetupProjectStore::isArchived() const { return m_project.value() && m_project.value()->archivedAt; }

bool SetupProjectStore::busy() const {
  return m_starting || runs().busy().contains(m_id) || m_list.busy().contains(m_id);
}

QString SetupProjectStore::mainAction() const {
  if (!m_project.value()) return {};
  if (isArchived()) return u"restore"_s;
  const auto last = lastRun();
  if (!last || last->control.isTerminated()) return u"run"_s;
  if (last->isOpen()) return last->control.isPaused() ? u"resume"_s : u"pause"_s;
  return known() && last->failed > 0 ? u"again"_s : u"run"_s;
}

QString SetupProjectStore::runState() const {
  if (!runFailure().isEmpty() && !known()) return u"error"_s;
  if (known()) return m_rows.rowCount() > 0 ? u"ready"_s : u"empty"_s;
  return runs().of(m_id).asked && !runs().of(m_id).loading ? u"empty"_s : u"loading"_s;
}

QString SetupProjectStore::runEmptyTitle() const { return known() ? u"The run is getting ready."_s : nothingRan(); }

QString SetupProjectStore::runEmptyText() const {
  if (known()) return {};
  return m_domains.count() == 0 ? u"Add domains above, then press Run."_s : QString();
}

QString SetupProjectStore::runHeadline() const {
  if (!known()) return {};
  return Format::grouped(m_counts.connected) + u" of "_s + Format::counted(m_counts.total, u"inbox"_s, u"inboxes"_s) +
         u" connected"_s;
}

QString SetupProjectStore::runFacts() const {
  if (!known()) return {};
  return Format::counted(known()->domains.size(), u"domain"_s, u"domains"_s) + u" · started "_s +
         momentText(known()->createdAt, services().clock.now());
}

QList<Choice> SetupProjectStore::runParts() const {
  QList<Choice> parts;
  const auto add = [&parts](const QString& tone, const QString& label, qint64 count, bool always) {
    if (count > 0 || always) parts.append({.key = tone, .label = label, .count = saturated(count)});
  };
  add(u"positive"_s, u"Connected"_s, m_counts.connected, true);
  add(u"accent"_s, u"Working"_s, m_counts.working, true);
  add(u"neutral"_s, u"Waiting"_s, m_counts.waiting, true);
  add(u"stopped"_s, u"Stopped"_s, m_counts.stopped, false);
  add(u"negative"_s, u"Error"_s, m_counts.failed, true);
  return parts;
}

void SetupProjectStore::fold(const QString& domain) {
  if (!m_folded.remove(domain)) m_folded.insert(domain);
  followRun(m_id);
}

void SetupProjectStore::select(const QString& row) {
  const int at = m_rows.rowOf(row);
  if (!known() || at < 0) return;
  m_selectedRow = row;
  m_checks.open(known()->id, m_rows.records()[size_t(at)].domain);
  Q_EMIT changed();
}

void SetupProjectStore::closeChecks() {
  m_selectedRow.clear();
  m_checks.closeDomain();
  Q_EMIT changed();
}

void SetupProjectStore::authorize(const QString& domain) {
  if (!known()) return;
  const auto found = std::ranges::find(known()->domains, domain, &SetupRunDomain::domain);
  if (found == known()->domains.cend() || !found->authorizeUrl) return;
  if (!services().browser.open(QUrl(*found->authorizeUrl)))
    services().toasts.show({.message = u"Couldn’t open your browser."_s, .tone = Toasts::Tone::error});
}

Task<void> SetupProjectStore::runTask() {
  if (busy() || !isEditable()) co_return;
  m_starting = true;
  m_domains.addTyped();
  Q_EMIT changed();
  const bool isReady = co_await m_form.readyToRun();
  m_starting = false;
  Q_EMIT changed();
  // What keeps it from running is said with the project.
  setTab(enumName(isReady ? Tab::run : Tab::project));
  if (!isReady) co_return Q_EMIT m_form.refused();
  runs().start(*m_project.value());
}

QList<PageAction> SetupProjectStore::runActions(bool isFree) {
  const auto last = lastRun();
  const bool isOpen = last && last->isOpen(), isPaused = last && last->control.isPaused();
  const QString runId = last ? last->id : QString();
  return {{.key = u"run"_s,
           .title = u"Run"_s,
           .icon = u"media-playback-start"_s,
           .inPalette = u"Run "_s + name(),
           .writes = true,
           .possible = isFree && !isOpen,
           .inMenu = mainAction() == "again"_L1,
           .run = [this] { run(); }},
          {.key = u"pause"_s,
           .title = u"Pause"_s,
           .icon = u"media-playback-pause"_s,
           .writes = true,
           .possible = isFree && isOpen && !isPaused,
           .inMenu = false,
           .run = [this, runId] { runs().pause(m_id, runId); }},
          {.key = u"resume"_s,
           .title = u"Resume"_s,
           .icon = u"media-playback-start"_s,
           .writes = true,
           .possible = isFree && isOpen && isPaused,
           .inMenu = false,
           .run = [this, runId] { runs().resume(m_id, runId); }},
          {.key = u"terminate"_s,
           .title = u"Terminate"_s,
           .icon = u"media-playback-stop"_s,
           .writes = true,
           .danger = true,
           .possible = isFree && isOpen,
           .inMenu = false,
           .run = [this, runId] { runs().terminate(m_id, runId); }},
          {.key = u"again"_s,
           .title = u"Run again"_s,
           .icon = u"view-refresh"_s,
           .writes = true,
           .possible = isFree && known() && !isOpen,
           .inMenu = mainAction() != "again"_L1,
           .run = [this] { runs().retry(m_id); }}};
}

QList<PageAction> SetupProjectStore::rowActions(const RunRow& row, bool isFree) {
  const QString domain = row.domain, key = row.id;
  const bool isFolded = m_folded.contains(domain);
  const int head = m_rows.rowOf(u"domain:"_s + domain);
  const RunRow& whole = head < 0 ? row : m_rows.records()[size_t(head)];
  return {
      {.key = u"checks"_s,
       .title = u"Check "_s + domain,
       .icon = u"security-high"_s,
       .run = [this, key] { select(key); }},
      {.key = u"authorize"_s,
       .title = u"Authorize"_s,
       .icon = u"internet-services"_s,
       .possible = isEditable() && whole.canAuthorize,
       .run = [this, domain] { authorize(domain); }},
      {.key = u"retry"_s,
       .title = u"Run this domain"_s,
       .icon = u"media-playback-start"_s,
       .writes = true,
       .possible = isFree && isEditable() && whole.canRetry,
       .run = [this, domain] { retryDomain(domain); }},
      {.key = u"fold"_s,
       .title = isFolded ? u"Show its inboxes"_s : u"Fold its inboxes"_s,
       .icon = u"sidebar-collapse-left"_s,
       .run = [this, domain] { fold(domain); }},
  };
}

QList<PageAction> SetupProjectStore::offered(const QString& record) {
  if (!record.isEmpty()) {
    const int row = m_rows.rowOf(record);
    return row < 0 ? QList<PageAction>() : rowActions(m_rows.records()[size_t(row)], !busy());
  }
  QList<PageAction> actions = Store::offered(record);
  if (!m_project.value()) return actions;
  const bool isFree = !busy();
  if (isArchived()) {
    actions.append({.key = u"restore"_s,
                    .title = u"Restore"_s,
                    .icon = u"edit-undo"_s,
                    .writes = true,
                    .possible = isFree,
                    .run = [this] { m_list.restore(m_id); }});
    return actions;
  }
  actions.append(runActions(isFree));
  actions.append({.key = u"rename"_s,
                  .title = u"Rename"_s,
                  .icon = u"document-edit"_s,
                  .writes = true,
                  .possible = isFree,
                  .run = [this] {
                    if (m_project.value()) m_list.beginRename(*m_project.value());
                  }});
  actions.append({.key = u"credentials"_s,
                  .title = u"Export credentials"_s,
                  .detail = credentialsText(),
                  .icon = u"document-export"_s,
                  .writes = true,
                  .possible = lastRun().has_value(),
                  .whyNot = lastRun() ? QString() : nothingRan(),
                  .run = [this] { m_list.exportCredentials(m_id, m_project.value()->name); }});
  actions.append({.key = u"registrars"_s,
                  .title = u"Look up registrars"_s,
                  .icon = u"internet-services"_s,
                  .writes = true,
                  .possible = m_domains.count() > 0 && !m_domains.lookingUp(),
                  .run = [this] {
                    setTab(enumName(Tab::project));
                    m_domains.lookUp();
                  }});
  actions.append({.key = u"delete"_s,
                  .title = u"Delete"_s,
                  .icon = u"edit-delete"_s,
                  .writes = true,
                  .danger = true,
                  .possible = isFree,
                  .run = [this] { m_list.remove(m_id); }});
  return actions;
}

}  // namespace orv
