#pragma once

#include <QHash>
#include <QSet>
#include <map>
#include <memory>

#include "app/base/Actions.h"
#include "app/base/Store.h"
#include "app/setup/SetupRules.h"

namespace orv {

/// The runs of projects: what the service says of each, followed while something may still happen in it, and what a
/// person does to them.
///
/// A run has one poller, whoever looks at it. One that has ended is remembered and asked about no more, until somebody
/// sets it going again.
class SetupRuns final : public Store {
  Q_OBJECT

 public:
  static constexpr std::chrono::seconds often{2}, seldom{8};
  /// Between two times that others are told of new accounts.
  static constexpr std::chrono::seconds newsPace{10};

  struct Followed {
    std::optional<SetupRun> run;
    QDateTime readAt;
    bool asked = false;
    bool loading = false;
    /// Why there is no answer; empty once there was one.
    QString failure;
    /// What the list said of it when that last had it read again.
    std::optional<SetupLastRun> heard;
  };

  SetupRuns(WorkspaceContext& context, Store& whole);

  const BusySet& busy() const { return m_busy; }
  const Followed& of(const QString& projectId) const;
  const SetupRun* runOf(const QString& projectId) const;
  bool isClosed(const QString& runId) const { return m_closed.contains(runId); }

  /// Asks for the project's latest run where nobody has, and follows it.
  void open(const QString& projectId);
  /// Asks again.
  void reload(const QString& projectId) { m_tasks.start(loadTask(projectId)); }
  /// The list knows of a newer one, or of what has become of this one since it ended.
  void follow(const QString& projectId, const std::optional<SetupLastRun>& last);

  /// The project as the service has it; it has no problem that keeps it from running.
  void start(const SetupProject& project) { m_tasks.start(startTask(project)); }
  /// The run need not have been read: the project names its last one.
  void pause(const QString& projectId, const QString& runId) { m_tasks.start(pauseTask(projectId, runId)); }
  void resume(const QString& projectId, const QString& runId) { m_tasks.start(resumeTask(projectId, runId)); }
  /// Asks first.
  void terminate(const QString& projectId, const QString& runId) { m_tasks.start(terminateTask(projectId, runId)); }
  /// What failed is tried again: everywhere, or on the one domain.
  void retry(const QString& projectId, const std::optional<QString>& domain = {}) {
    m_tasks.start(retryTask(projectId, domain));
  }
  Task<void> startTask(SetupProject project);
  Task<void> pauseTask(QString projectId, QString runId);
  Task<void> resumeTask(QString projectId, QString runId);
  Task<void> terminateTask(QString projectId, QString runId);
  Task<void> retryTask(QString projectId, std::optional<QString> domain);

  void close() override;

 Q_SIGNALS:
  /// Of that project.
  void changed(const QString& projectId);
  /// Somebody here set one going, or stopped it, or may have: the list counts it anew.
  void acted();

 private:
  Task<void> loadTask(QString projectId);
  Task<void> pollTask(QString projectId, QString runId);
  Task<void> change(QString projectId, Request<SetupRun> request, QString failure);
  /// By an answer that nothing older may follow.
  void take(const QString& projectId, SetupRun run);
  void put(const QString& projectId, SetupRun run);
  /// The accounts that a run has made are news to every page that shows accounts.
  void count(const QString& runId, qint64 connected);
  void tellOfAccounts();
  std::chrono::seconds pace(const QString& projectId) const;

  BusySet m_busy;
  Actions m_actions;
  QHash<QString, Followed> m_runs;
  std::map<QString, std::unique_ptr<TaskSlot>> m_pollers;
  QSet<QString> m_closed;
  /// Inboxes that are connected, by run.
  QHash<QString, qint64> m_connected;
  std::unique_ptr<Clock::Timer> m_news;
  QDateTime m_toldAt;
};

}  // namespace orv
