#include "app/setup/SetupRuns.h"

#include <algorithm>

#include "kit/api/Format.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/setup/setupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto cannotStop = u"Couldn’t stop the run."_s, cannotResume = u"Couldn’t resume the run."_s;

bool isMissing(const APIError& error) { return error.context().httpStatus == 404; }

/// Nothing moves before somebody does something.
bool standsStill(const SetupRun& run) {
  if (run.control.isPaused()) return true;
  bool waits = false;
  for (const SetupRow& row : run.rows) {
    if (row.state.isAuthorize())
      waits = true;
    else if (!row.state.isEnd() && !row.state.isWaiting())
      return false;
  }
  return waits;
}

bool isToldAs(const SetupLastRun& last, const SetupRun& run) {
  const SetupLastRun read = countedRun(run);
  return last.connected == read.connected && last.failed == read.failed && last.running == read.running &&
         last.control == read.control;
}

}  // namespace

SetupRuns::SetupRuns(WorkspaceContext& context, Store& whole)
    : Store(context, &whole), m_actions(context, m_busy, [this] {
        // What an action may have done the next reading tells. No poller asks about one that was to begin.
        QSet<QString> projects = m_busy.ids();
        for (const auto& [project, followed] : std::as_const(m_runs).asKeyValueRange())
          if (followed.run && !m_closed.contains(followed.run->id)) projects.insert(project);
        for (const QString& project : std::as_const(projects)) reload(project);
        Q_EMIT acted();
      }) {
  // The service stops the run of a project that is archived, also one that had come to its end; its page may stay open.
  context.changes().watch<SetupProject>(this, [this](const Change<SetupProject>& change) {
    if (change.kind == Change<SetupProject>::Kind::gone && m_runs.contains(change.id)) reload(change.id);
  });
}

const SetupRuns::Followed& SetupRuns::of(const QString& projectId) const {
  static const Followed nothing;
  const auto found = m_runs.constFind(projectId);
  return found == m_runs.cend() ? nothing : *found;
}

const SetupRun* SetupRuns::runOf(const QString& projectId) const {
  const Followed& followed = of(projectId);
  return followed.run ? &*followed.run : nullptr;
}

void SetupRuns::open(const QString& projectId) {
  if (!of(projectId).asked || !of(projectId).failure.isEmpty()) reload(projectId);
}

void SetupRuns::follow(const QString& projectId, const std::optional<SetupLastRun>& last) {
  const Followed& known = of(projectId);
  if (last) count(last->id, last->connected);
  if (!last || !known.asked || known.loading) return;
  const bool isOther = !known.run || known.run->id != last->id;
  // It was set going again elsewhere, and may have ended since. Where the service's two answers never agree, asking
  // without end would not help.
  const bool wentOn = !isOther && m_closed.contains(last->id) && !m_busy.contains(projectId) &&
                      (last->isOpen() || !isToldAs(*last, *known.run)) &&
                      (known.heard != last || !known.failure.isEmpty());
  if (wentOn) m_runs[projectId].heard = last;
  if (isOther || wentOn) reload(projectId);
}

Task<void> SetupRuns::loadTask(QString projectId) {
  Followed& before = m_runs[projectId];
  if (std::exchange(before.loading, true)) co_return;
  before.asked = true;
  Q_EMIT changed(projectId);
  QString failure;
  LatestRun latest;
  bool isCancelled = false;
  try {
    latest = co_await api().send(Requests::latestSetupRun(projectId));
  } catch (const APIError& error) {
    isCancelled = error.is(APIError::Kind::cancelled);
    if (!isMissing(error)) failure = error.message();
  }
  Followed& followed = m_runs[projectId];
  followed.loading = false;
  if (isCancelled) followed.asked = false;
  followed.failure = failure;
  if (failure.isEmpty() && latest.run) co_return take(projectId, *std::move(latest.run));
  if (failure.isEmpty()) followed.run.reset();
  Q_EMIT changed(projectId);
}

void SetupRuns::put(const QString& projectId, SetupRun run) {
  count(run.id, std::ranges::count_if(run.rows, [](const SetupRow& row) { return row.state.isDone(); }));
  Followed& followed = m_runs[projectId];
  followed.run = std::move(run);
  followed.readAt = services().clock.now();
  followed.asked = true;
  followed.failure.clear();
  Q_EMIT changed(projectId);
}

void SetupRuns::count(const QString& runId, qint64 connected) {
  // Accounts may have been read before a run that is first heard of now had made its own.
  const qint64 before = m_connected.value(runId);
  m_connected.insert(runId, std::max(before, connected));
  if (connected <= before || m_news) return;
  // Ten thousand accounts take longer to read than a run needs for its next one, and projects are heard of together.
  const std::chrono::milliseconds pace = newsPace;
  const qint64 passed = m_toldAt.isValid() ? m_toldAt.msecsTo(services().clock.now()) : pace.count();
  const std::chrono::milliseconds wait(std::clamp<qint64>(pace.count() - passed, 0, pace.count()));
  m_news = services().clock.startTimer(wait, [this] { tellOfAccounts(); });
}

void SetupRuns::tellOfAccounts() {
  m_news.reset();
  m_toldAt = services().clock.now();
  context().changes().stale<Mailbox>();
}

void SetupRuns::take(const QString& projectId, SetupRun run) {
  const QString id = run.id;
  const bool isOver = run.isOver();
  // The poller goes by how it stands.
  put(projectId, std::move(run));
  auto& poller = m_pollers[id];
  if (!poller) poller = std::make_unique<TaskSlot>();
  if (isOver) {
    m_closed.insert(id);
    poller->cancel();
  } else {
    m_closed.remove(id);
    poller->start(pollTask(projectId, id));
  }
}

std::chrono::seconds SetupRuns::pace(const QString& projectId) const {
  const SetupRun* run = runOf(projectId);
  return run && standsStill(*run) ? seldom : often;
}

/// The next wait begins when an answer has come, so that no two are under way.
Task<void> SetupRuns::pollTask(QString projectId, QString runId) {
  while (!m_closed.contains(runId)) {
    co_await services().clock.sleep(pace(projectId));
    std::optional<SetupRun> now;
    try {
      now = co_await api().send(Requests::getSetupRun(runId));
    } catch (const APIError& error) {
      // One that is gone stays gone; anything else may be better the next time.
      if (isMissing(error)) m_closed.insert(runId);
      if (error.is(APIError::Kind::unauthorized)) co_return;
    }
    const SetupRun* shown = runOf(projectId);
    if (!shown || shown->id != runId) co_return;
    if (!now) continue;
    context().cameOnline();
    if (now->isOver()) m_closed.insert(runId);
    put(projectId, *std::move(now));
  }
}

Task<void> SetupRuns::startTask(SetupProject project) {
  if (!canWrite()) co_return;
  const auto build = [body = orv::runOf(project)] { return Requests::startSetupRun(body); };
  auto run = co_await m_actions.perform<SetupRun>({project.id, project.id}, build, u"Couldn’t start the run."_s);
  if (!run) co_return;
  services().toasts.success(u"Run started on "_s + Format::counted(project.domains.size(), u"domain"_s, u"domains"_s));
  take(project.id, *std::move(run));
  Q_EMIT acted();
}

Task<void> SetupRuns::change(QString projectId, Request<SetupRun> request, QString failure) {
  if (!canWrite()) co_return;
  const auto build = [request = std::move(request)] { return request; };
  auto run = co_await m_actions.perform<SetupRun>({projectId, projectId}, build, failure);
  if (!run) co_return;
  take(projectId, *std::move(run));
  Q_EMIT acted();
}

Task<void> SetupRuns::pauseTask(QString projectId, QString runId) {
  co_await change(projectId, Requests::pauseSetupRun(runId), cannotStop);
}

Task<void> SetupRuns::resumeTask(QString projectId, QString runId) {
  co_await change(projectId, Requests::resumeSetupRun(runId), cannotResume);
}

Task<void> SetupRuns::terminateTask(QString projectId, QString runId) {
  if (!canWrite() || m_busy.contains(projectId)) co_return;
  const bool sure = co_await services().overlays.confirm(
      {.title = u"Terminate this run?"_s,
       .text = u"It ends where it is and does not go on. The inboxes already made stay connected."_s,
       .confirm = u"Terminate"_s,
       .destructive = true});
  // Another run may have begun behind the question.
  const SetupRun* now = runOf(projectId);
  if (!sure || (now && now->id != runId)) co_return;
  co_await change(projectId, Requests::terminateSetupRun(runId), cannotStop);
}

Task<void> SetupRuns::retryTask(QString projectId, std::optional<QString> domain) {
  if (const SetupRun* run = runOf(projectId))
    co_await change(projectId, Requests::retrySetupRun(run->id, domain), cannotResume);
}

void SetupRuns::close() {
  for (auto& [id, poller] : m_pollers) poller->cancel();
  m_news.reset();
  Store::close();
}

}  // namespace orv
