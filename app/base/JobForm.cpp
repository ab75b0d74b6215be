#include "app/base/JobForm.h"

namespace orv {

JobForm::JobForm(QObject* parent) : Form(parent) { connect(this, &Form::changed, this, &JobForm::followShown); }

void JobForm::run(WorkspaceContext& context, const QString& name, const QString& stopped,
                  const std::function<Task<JobOutcome>(Job&)>& work, Ended ended) {
  if (busy()) return;
  m_ended = std::move(ended);
  m_submission.emplace(this);
  m_job = context.services().jobs.start({.name = name, .stopped = stopped, .attendant = this},
                                        context.shared_from_this(), work);
  connect(m_job, &Job::changed, this, &Form::changed);
  connect(m_job, &Job::ended, this, &JobForm::jobEnded);
  if (!m_job->running()) jobEnded();
}

bool JobForm::showRunning() {
  if (!busy() || !m_job) return false;
  m_job->attend(this);
  reopen();
  return true;
}

void JobForm::stop() {
  if (busy() && m_job) m_job->stop();
}

void JobForm::letGo() {
  cancel();
  m_submission.reset();
}

void JobForm::followShown() {
  if (!shown() && m_job) m_job->attend(nullptr);
}

void JobForm::jobEnded() {
  if (!m_submission || !m_job) return;
  const Ended ended = std::exchange(m_ended, {});
  const bool stays = ended && ended(*m_job, m_submission->isShown());
  if (m_job->failed())
    m_submission->fail(m_job->text());
  else if (!stays)
    m_submission->succeed();
  m_submission.reset();
}

}  // namespace orv
