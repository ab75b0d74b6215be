#pragma once

#include <QDateTime>
#include <functional>

#include "kit/async/Clock.h"
#include "kit/async/TaskScope.h"

namespace orv {

/// Seconds that run down to zero, by the clock.
class Countdown final {
 public:
  Countdown(Clock& clock, std::function<void()> changed) : m_clock(clock), m_changed(std::move(changed)) {}

  int left() const { return m_left; }
  void start(qint64 seconds);
  void stop();

 private:
  Task<void> run();

  Clock& m_clock;
  std::function<void()> m_changed;
  int m_left = 0;
  QDateTime m_end;
  TaskSlot m_task;
};

}  // namespace orv
