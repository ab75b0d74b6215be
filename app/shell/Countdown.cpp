#include "app/shell/Countdown.h"

using namespace std::chrono_literals;

namespace orv {

void Countdown::start(qint64 seconds) {
  m_left = int(std::max<qint64>(0, seconds));
  m_end = m_clock.now().addSecs(m_left);
  m_changed();
  m_task.start(run());
}

void Countdown::stop() {
  m_task.cancel();
  m_left = 0;
}

Task<void> Countdown::run() {
  while (m_left > 0) {
    co_await m_clock.sleep(1s);
    // The machine may have slept meanwhile. A clock that was set back makes nobody wait longer.
    const qint64 left = (m_clock.now().msecsTo(m_end) + 999) / 1000;
    m_left = left > m_left ? m_left - 1 : int(std::max<qint64>(0, left));
    m_changed();
  }
}

}  // namespace orv
