#include "kit/async/Clock.h"

#include <QTimer>

namespace orv {
namespace {

class SleepAwaiter {
 public:
  SleepAwaiter(Clock& clock, std::chrono::milliseconds delay) : m_clock(clock), m_delay(delay) {}
  bool await_ready() const { return false; }
  template <class Promise>
  void await_suspend(std::coroutine_handle<Promise> frame) {
    if (!m_resumption.arm(frame)) return;
    m_timer = m_clock.startTimer(m_delay, [this] { m_resumption(); });
  }
  void await_resume() const {}

 private:
  Clock& m_clock;
  std::chrono::milliseconds m_delay;
  Resumption m_resumption;
  std::unique_ptr<Clock::Timer> m_timer;
};

class SystemTimer final : public Clock::Timer {
 public:
  SystemTimer(std::chrono::milliseconds delay, std::function<void()> fire) {
    m_timer.setSingleShot(true);
    // The callback may destroy this timer, and with it the function object being called.
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [fire = std::move(fire)] {
      const auto call = fire;
      call();
    });
    m_timer.start(delay);
  }

 private:
  QTimer m_timer;
};

}  // namespace

Task<void> Clock::sleep(std::chrono::milliseconds delay) { co_await SleepAwaiter(*this, delay); }

QDateTime SystemClock::now() const { return QDateTime::currentDateTimeUtc(); }

std::unique_ptr<Clock::Timer> SystemClock::startTimer(std::chrono::milliseconds delay, std::function<void()> fire) {
  return std::make_unique<SystemTimer>(delay, std::move(fire));
}

}  // namespace orv
