#pragma once

#include "app/base/Form.h"
#include "app/base/Jobs.h"

namespace orv {

/// A form that is carried out by a job of the workspace. It shows the job while it is there, and is busy until that has
/// ended, shown or not; hidden, it leaves the telling to the job.
class JobForm : public Form {
  Q_OBJECT
  Q_PROPERTY(QString progressText READ progressText NOTIFY changed)
  Q_PROPERTY(double progress READ progress NOTIFY changed)

 public:
  /// Gets how the job has ended, while the form still shows it, or does not. True where the form stays and shows what
  /// came of it.
  using Ended = std::function<bool(Job& job, bool isShown)>;

  explicit JobForm(QObject* parent = nullptr);

  QString progressText() const { return m_job ? m_job->stage() : QString(); }
  /// From 0 to 1; below 0 while nobody can say.
  double progress() const { return m_job ? m_job->progress() : -1; }

  /// Starts the work. When it is done the form closes, unless it shows that itself; what failed stands in it, for
  /// another try.
  void run(WorkspaceContext& context, const QString& name, const QString& stopped,
           const std::function<Task<JobOutcome>(Job&)>& work, Ended ended = {});
  /// Opens the form with the work that goes on; false when there is none.
  bool showRunning();
  /// Stops what is under way; what the service has taken by then stays.
  Q_INVOKABLE void stop();
  /// Its owner closes: the job goes on without it.
  void letGo();

 private:
  void followShown();
  void jobEnded();

  QPointer<Job> m_job;
  Ended m_ended;
  /// While the job runs.
  std::optional<Submission> m_submission;
};

}  // namespace orv
