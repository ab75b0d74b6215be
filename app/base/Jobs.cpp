#include "app/base/Jobs.h"

#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Job::Job(Jobs& jobs, QString name, QString stopped, std::shared_ptr<WorkspaceContext> context)
    : QObject(&jobs),
      m_jobs(jobs),
      m_name(std::move(name)),
      m_stopped(std::move(stopped)),
      m_context(std::move(context)) {}

double Job::progress() const {
  if (m_all <= 0) return -1;
  return double(m_done ? m_done() : 0) / double(m_all);
}

void Job::setStage(const QString& text, qint64 done, qint64 all) {
  m_ticker.cancel();
  set(
      text, [done] { return done; }, all);
}

void Job::followStage(const QString& text, std::function<qint64()> done, qint64 all) {
  m_ticker.start(tick());
  set(text, std::move(done), all);
}

void Job::set(const QString& text, std::function<qint64()> done, qint64 all) {
  m_stage = text;
  m_done = std::move(done);
  m_all = all;
  Q_EMIT changed();
}

Task<void> Job::tick() {
  for (;;) {
    co_await m_context->services().clock.sleep(followInterval);
    Q_EMIT changed();
  }
}

void Job::stop() {
  if (!m_running) return;
  m_work.cancel();
  end({.kind = JobOutcome::Kind::stopped, .title = u"Stopped"_s, .text = m_stopped});
}

Task<void> Job::run(Task<JobOutcome> work) { end(co_await std::move(work)); }

void Job::end(JobOutcome outcome) {
  // One that was stopped goes on until it next waits for something.
  if (!std::exchange(m_running, false)) return;
  m_ticker.cancel();
  m_done = {};
  m_all = 0;
  m_outcome = std::move(outcome);
  Q_EMIT changed();
  // Before those who listen: one of them may attend to the next job with the same dialog.
  if (!m_attendant) tellEnd();
  Q_EMIT ended();
  m_jobs.jobEnded();
}

void Job::tellEnd() {
  using Kind = JobOutcome::Kind;
  if (m_outcome.title.isEmpty() || m_outcome.kind == Kind::stopped) return;
  const bool isDone = m_outcome.kind == Kind::done;
  const auto tone = isDone ? Toasts::Tone::success : failed() ? Toasts::Tone::error : Toasts::Tone::standard;
  m_context->services().toasts.show({.message = m_outcome.title,
                                     .tone = tone,
                                     .actionLabel = u"Details"_s,
                                     .action =
                                         [job = QPointer(this), &jobs = m_jobs] {
                                           if (job) jobs.show(job);
                                         },
                                     .detail = isDone ? QString() : m_outcome.text,
                                     .actsOn = this});
}

Jobs::~Jobs() { qDeleteAll(m_jobs); }

Job* Jobs::start(Start how, std::shared_ptr<WorkspaceContext> context,
                 const std::function<Task<JobOutcome>(Job&)>& work) {
  auto* job = new Job(*this, std::move(how.name), std::move(how.stopped), std::move(context));
  job->attend(how.attendant);
  beginInsertRows({}, rowCount(), rowCount());
  m_jobs.push_back(job);
  endInsertRows();
  connect(job, &Job::changed, this, &Jobs::changed);
  job->m_work.start(job->run(work(*job)));
  Q_EMIT changed();
  return job;
}

int Jobs::running() const { return int(std::ranges::count_if(m_jobs, &Job::running)); }

QString Jobs::line() const {
  if (m_jobs.empty()) return {};
  const int count = running();
  if (count > 1) return Format::counted(count, u"task running"_s, u"tasks running"_s);
  const auto one = std::ranges::find_if(m_jobs, &Job::running);
  if (one != m_jobs.end()) return (*one)->name();
  const Job& last = *m_jobs.back();
  return last.title().isEmpty() ? last.name() : last.title();
}

double Jobs::progress() const {
  double sum = 0;
  int known = 0;
  for (const Job* job : m_jobs) {
    if (!job->running() || job->progress() < 0) continue;
    sum += job->progress();
    ++known;
  }
  return known > 0 ? sum / known : -1;
}

void Jobs::show(Job* job) {
  if (m_shown == job) return;
  m_shown = job;
  Q_EMIT shownChanged();
}

void Jobs::clearEnded() {
  for (qsizetype row = qsizetype(m_jobs.size()) - 1; row >= 0; --row)
    if (!m_jobs[size_t(row)]->running()) removeAt(row);
  Q_EMIT changed();
}

void Jobs::jobEnded() {
  qsizetype over = qsizetype(m_jobs.size()) - running() - endedAtMost;
  for (qsizetype row = 0; row < qsizetype(m_jobs.size());) {
    const Job& job = *m_jobs[size_t(row)];
    // Of one that has told its end itself there is nothing to read.
    if (job.running() || (over <= 0 && !job.title().isEmpty())) {
      ++row;
      continue;
    }
    removeAt(row);
    --over;
  }
  Q_EMIT changed();
}

void Jobs::removeAt(qsizetype row) {
  Job* job = m_jobs[size_t(row)];
  if (m_shown == job) hide();
  beginRemoveRows({}, int(row), int(row));
  m_jobs.erase(m_jobs.begin() + row);
  endRemoveRows();
  // The code that ended it may be its own.
  job->deleteLater();
}

QStringList Jobs::unsavedWork() const {
  QStringList work;
  for (const Job* job : m_jobs)
    if (job->running()) work.append(job->name() + u" is not done yet."_s);
  return work;
}

QStringList Jobs::clear() {
  QStringList cutOff;
  for (qsizetype row = qsizetype(m_jobs.size()) - 1; row >= 0; --row) {
    Job* job = m_jobs[size_t(row)];
    if (job->m_running) cutOff.prepend(job->name());
    job->m_running = false;
    job->m_work.cancel();
    job->m_ticker.cancel();
    removeAt(row);
  }
  Q_EMIT changed();
  return cutOff;
}

int Jobs::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(m_jobs.size()); }

QVariant Jobs::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != JobRole) return {};
  return QVariant::fromValue(m_jobs[size_t(index.row())]);
}

QHash<int, QByteArray> Jobs::roleNames() const { return {{JobRole, "job"}}; }

}  // namespace orv
