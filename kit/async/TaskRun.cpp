#include "kit/async/TaskRun.h"

#include <QLoggingCategory>

namespace orv {

Q_LOGGING_CATEGORY(lcAsync, "orvella.async")

void TaskRun::start() { resume(m_frames->start(this)); }

void TaskRun::resume(std::coroutine_handle<> frame) {
  const auto self = shared_from_this();
  ++m_depth;
  frame.resume();
  if (--m_depth == 0) settle();
}

void TaskRun::drop() {
  m_dropped = true;
  m_owner = nullptr;
  if (m_depth > 0) return;
  // Destructors of the frames' locals may come back here, to drop again or to look whether the run is dropped.
  const auto self = weak_from_this().lock();
  const auto frames = std::exchange(m_frames, nullptr);
}

void TaskRun::settle() {
  if (m_dropped) return drop();
  if (!m_frames || !m_frames->done()) return;
  if (const auto failure = m_frames->failure()) {
    try {
      std::rethrow_exception(failure);
    } catch (const std::exception& error) {
      qCCritical(lcAsync, "A task ended with a failure that nobody handles: %s", error.what());
    } catch (...) {
      qCCritical(lcAsync, "A task ended with a failure that nobody handles");
    }
  }
  const auto frames = std::exchange(m_frames, nullptr);
  if (const auto owner = std::exchange(m_owner, nullptr)) owner->runEnded(this);
}

}  // namespace orv
