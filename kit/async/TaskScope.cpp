#include "kit/async/TaskScope.h"

#include <algorithm>

namespace orv {

void TaskScope::start(Task<void> task) {
  // The run may end, and leave m_runs, before start() returns.
  const auto run = std::make_shared<TaskRun>(this, std::make_unique<RootFrames<void>>(std::move(task)));
  m_runs.push_back(run);
  run->start();
}

void TaskScope::cancel() {
  for (const auto& run : std::exchange(m_runs, {})) run->drop();
}

void TaskScope::runEnded(TaskRun* run) {
  std::erase_if(m_runs, [run](const auto& candidate) { return candidate.get() == run; });
}

void TaskSlot::start(Task<void> task) {
  cancel();
  const auto run = std::make_shared<TaskRun>(this, std::make_unique<RootFrames<void>>(std::move(task)));
  m_run = run;
  run->start();
}

void TaskSlot::cancel() {
  if (const auto run = std::exchange(m_run, nullptr)) run->drop();
}

void TaskSlot::runEnded(TaskRun* run) {
  if (m_run.get() == run) m_run.reset();
}

}  // namespace orv
