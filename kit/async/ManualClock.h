#pragma once

#include <list>

#include "kit/async/Clock.h"

namespace orv {

/// Time that moves when it is told to: for tests, and for pictures that nobody wants to wait for.
class ManualClock final : public Clock {
 public:
  ManualClock() = default;
  explicit ManualClock(const QDateTime& start) : m_now(start) {}

  QDateTime now() const override { return m_now; }
  std::unique_ptr<Timer> startTimer(std::chrono::milliseconds delay, std::function<void()> fire) override;

  /// Moves on, firing what comes due in its order and at its instant. What fires may start and stop timers.
  void advance(std::chrono::milliseconds by);
  /// Lets time pass while the machine sleeps: timers wait as long as before. Backwards, the clock is set.
  void jump(std::chrono::milliseconds by);
  int running() const { return int(m_timers.size()); }

 private:
  class ManualTimer;
  struct Entry {
    quint64 id;
    QDateTime due;
    std::function<void()> fire;
  };

  QDateTime m_now{{2026, 11, 21}, {12, 0}, Qt::UTC};
  std::list<Entry> m_timers;
  quint64 m_lastId = 0;
};

}  // namespace orv
