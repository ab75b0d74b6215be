#include "desktop/scenes/StageTime.h"

namespace orv {

// Pages count the age of what they show from the machine's time of day.
StageTime::StageTime() : m_clock(QDateTime::currentDateTimeUtc()) {
  m_driver.install();
  m_unending.setDuration(1000);
  m_unending.setLoopCount(-1);
  m_unending.start();
}

StageTime::~StageTime() {
  m_unending.stop();
  m_driver.uninstall();
}

void StageTime::pass(std::chrono::milliseconds time) {
  m_clock.advance(time);
  m_driver.pass(time.count());
}

void StageTime::Driver::pass(qint64 milliseconds) {
  m_elapsed += milliseconds;
  advanceAnimation();
}

}  // namespace orv
