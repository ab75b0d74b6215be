#pragma once

#include <memory>
#include <vector>

#include "kit/async/Task.h"

namespace orv {

/// Owns any number of running tasks. Destroying the scope, or cancelling it, cancels them all.
///
/// An object whose member functions are tasks in its own scope must die through deleteLater(): were it deleted by code
/// that one of its tasks calls, that task would go on in a destroyed object until it suspends.
class TaskScope final : public TaskRun::Owner {
 public:
  TaskScope() = default;
  TaskScope(const TaskScope&) = delete;
  TaskScope& operator=(const TaskScope&) = delete;
  ~TaskScope() { cancel(); }

  /// Runs the task up to its first suspension before returning.
  void start(Task<void> task);
  void cancel();
  bool isIdle() const { return m_runs.empty(); }

 private:
  void runEnded(TaskRun* run) override;
  std::vector<std::shared_ptr<TaskRun>> m_runs;
};

/// Owns at most one running task: starting the next cancels the one before. What a load, a debounce or a poller needs.
class TaskSlot final : public TaskRun::Owner {
 public:
  TaskSlot() = default;
  TaskSlot(const TaskSlot&) = delete;
  TaskSlot& operator=(const TaskSlot&) = delete;
  ~TaskSlot() { cancel(); }

  void start(Task<void> task);
  void cancel();
  bool isIdle() const { return !m_run; }

 private:
  void runEnded(TaskRun* run) override;
  std::shared_ptr<TaskRun> m_run;
};

}  // namespace orv
