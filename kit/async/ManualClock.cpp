#include "kit/async/ManualClock.h"

#include <algorithm>

namespace orv {

class ManualClock::ManualTimer final : public Timer {
 public:
  ManualTimer(ManualClock& clock, quint64 id) : m_clock(clock), m_id(id) {}
  ~ManualTimer() override {
    m_clock.m_timers.remove_if([this](const Entry& entry) { return entry.id == m_id; });
  }

 private:
  ManualClock& m_clock;
  quint64 m_id;
};

std::unique_ptr<Clock::Timer> ManualClock::startTimer(std::chrono::milliseconds delay, std::function<void()> fire) {
  m_timers.push_back({++m_lastId, m_now.addMSecs(delay.count()), std::move(fire)});
  return std::make_unique<ManualTimer>(*this, m_lastId);
}

void ManualClock::jump(std::chrono::milliseconds by) {
  m_now = m_now.addMSecs(by.count());
  for (Entry& entry : m_timers) entry.due = entry.due.addMSecs(by.count());
}

void ManualClock::advance(std::chrono::milliseconds by) {
  const QDateTime end = m_now.addMSecs(by.count());
  for (;;) {
    const auto next = std::ranges::min_element(m_timers, {}, &Entry::due);
    if (next == m_timers.end() || next->due > end) break;
    m_now = std::max(m_now, next->due);
    const auto fire = std::move(next->fire);
    m_timers.erase(next);
    fire();
  }
  m_now = end;
}

}  // namespace orv
