#pragma once

#include <QAnimationDriver>
#include <QVariantAnimation>

#include "kit/async/ManualClock.h"

namespace orv {

/// Time that a program sets itself, for everything in it: the application's clock, and what QML animates and times. A
/// picture of what takes a second takes as long as it takes to draw. One at a time, for the life of the program.
class StageTime {
 public:
  StageTime();
  ~StageTime();

  Clock& clock() { return m_clock; }
  void pass(std::chrono::milliseconds time);

 private:
  class Driver final : public QAnimationDriver {
   public:
    void pass(qint64 milliseconds);
    qint64 elapsed() const override { return m_elapsed; }
    void advance() override {}

   private:
    qint64 m_elapsed = 0;
  };
  /// While nothing but timers runs, the toolkit would count them in real time.
  class Unending final : public QVariantAnimation {
    void updateCurrentValue(const QVariant&) override {}
  };

  ManualClock m_clock;
  Driver m_driver;
  Unending m_unending;
};

}  // namespace orv
