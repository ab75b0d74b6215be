#pragma once

#include <QPointer>
#include <QStringList>
#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include "app/base/ListModel.h"
#include "app/base/WorkspaceContext.h"
#include "app/base/shownName.h"

namespace orv {

class Jobs;

/// What came of a job, for as long as somebody may want to read it.
struct JobOutcome {
  /// `open`: it is over, and what comes of it remains to be seen.
  enum class Kind { done, open, failed, stopped };
  Kind kind = Kind::done;
  /// "12 leads added". Empty where the job has told of its end itself.
  QString title = {};
  /// Why it failed, or what the lines are.
  QString text = {};
  QStringList lines = {};
};

/// Work that takes longer than a request. It belongs to its workspace and to no page: it holds the workspace's context
/// itself, so that it goes on when the page, its store and the whole session have been let go.
class Job final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString name READ name CONSTANT)
  Q_PROPERTY(QString workspace READ workspace CONSTANT)
  Q_PROPERTY(QString slug READ slug CONSTANT)
  Q_PROPERTY(bool running READ running NOTIFY changed)
  Q_PROPERTY(bool failed READ failed NOTIFY changed)
  Q_PROPERTY(QString stage READ stage NOTIFY changed)
  Q_PROPERTY(double progress READ progress NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString text READ text NOTIFY changed)
  Q_PROPERTY(QStringList lines READ lines NOTIFY changed)

 public:
  static constexpr std::chrono::milliseconds followInterval{100};

  /// "Adding leads from people.csv to Fair".
  const QString& name() const { return m_name; }
  /// Its name, as it is shown.
  QString workspace() const { return shownName(m_context->workspace().name); }
  QString slug() const { return m_context->workspace().slug; }
  WorkspaceContext& context() const { return *m_context; }

  bool running() const { return m_running; }
  bool failed() const { return m_outcome.kind > JobOutcome::Kind::open; }
  /// What it is at, while it runs.
  const QString& stage() const { return m_stage; }
  /// From 0 to 1; below 0 while nobody can say.
  double progress() const;
  /// What came of it, once it has ended.
  const QString& title() const { return m_outcome.title; }
  const QString& text() const { return m_outcome.text; }
  const QStringList& lines() const { return m_outcome.lines; }
  const JobOutcome& outcome() const { return m_outcome; }

  void setStage(const QString& text, qint64 done = 0, qint64 all = 0);
  /// A stage whose end others count: `done` is asked again and again.
  void followStage(const QString& text, std::function<qint64()> done, qint64 all);
  /// While this object lives, it tells of the job's end; no message does. None ends that.
  void attend(QObject* attendant) { m_attendant = attendant; }
  /// What the service has taken by then stays.
  Q_INVOKABLE void stop();

 Q_SIGNALS:
  void changed();
  void ended();

 private:
  friend class Jobs;
  Job(Jobs& jobs, QString name, QString stopped, std::shared_ptr<WorkspaceContext> context);
  void set(const QString& text, std::function<qint64()> done, qint64 all);

  Task<void> run(Task<JobOutcome> work);
  Task<void> tick();
  void end(JobOutcome outcome);
  void tellEnd();

  Jobs& m_jobs;
  QString m_name;
  QString m_stopped;
  std::shared_ptr<WorkspaceContext> m_context;
  QPointer<QObject> m_attendant;
  bool m_running = true;
  QString m_stage;
  std::function<qint64()> m_done;
  qint64 m_all = 0;
  JobOutcome m_outcome;
  TaskSlot m_ticker;
  /// Last, so that the work goes before what it writes to.
  TaskSlot m_work;
};

/// The long work of all workspaces, oldest first, and what came of the last few.
class Jobs : public ListModel {
  Q_OBJECT
  Q_PROPERTY(int running READ running NOTIFY changed)
  Q_PROPERTY(QString line READ line NOTIFY changed)
  Q_PROPERTY(double progress READ progress NOTIFY changed)
  Q_PROPERTY(orv::Job* shown READ shown NOTIFY shownChanged)

 public:
  static constexpr qsizetype endedAtMost = 10;
  enum Role { JobRole = Qt::UserRole };

  struct Start {
    QString name;
    /// What to know of one that was stopped.
    QString stopped = {};
    /// See Job::attend().
    QObject* attendant = nullptr;
  };

  using ListModel::ListModel;
  ~Jobs() override;

  /// `work` makes the task that does it; that ends, and is let go, with the job.
  Job* start(Start how, std::shared_ptr<WorkspaceContext> context, const std::function<Task<JobOutcome>(Job&)>& work);

  int running() const;
  /// All of it in a few words; empty when there is nothing to tell of.
  QString line() const;
  double progress() const;

  /// The job whose end is being read; null for none.
  Job* shown() const { return m_shown; }
  Q_INVOKABLE void show(orv::Job* job);
  Q_INVOKABLE void hide() { show(nullptr); }
  /// Lets go of those that have ended.
  Q_INVOKABLE void clearEnded();

  /// A sentence for each that is under way.
  QStringList unsavedWork() const;
  /// The person is gone: nothing of theirs goes on or stays to be read. Names what was cut off.
  QStringList clear();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void changed();
  void shownChanged();

 private:
  friend class Job;
  void jobEnded();
  void removeAt(qsizetype row);

  std::vector<Job*> m_jobs;
  QPointer<Job> m_shown;
};

}  // namespace orv
