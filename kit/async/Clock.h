#pragma once

#include <QDateTime>
#include <chrono>
#include <functional>
#include <memory>

#include "kit/async/Task.h"

namespace orv {

/// The only source of time for everything above the network: what is now, and waiting.
///
/// Tests drive a manual clock; nothing else may call QDateTime::currentDateTime() or own a QTimer.
class Clock {
 public:
  /// Running timer; destroying it stops it.
  class Timer {
   public:
    virtual ~Timer() = default;
  };

  virtual ~Clock() = default;

  /// The current instant, in UTC.
  virtual QDateTime now() const = 0;
  /// Calls `fire` once after `delay`, never from within this call.
  virtual std::unique_ptr<Timer> startTimer(std::chrono::milliseconds delay, std::function<void()> fire) = 0;

  Task<void> sleep(std::chrono::milliseconds delay);
};

/// The machine's clock.
class SystemClock final : public Clock {
 public:
  QDateTime now() const override;
  std::unique_ptr<Timer> startTimer(std::chrono::milliseconds delay, std::function<void()> fire) override;
};

}  // namespace orv
