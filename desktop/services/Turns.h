#pragma once

#include <QString>
#include <chrono>
#include <optional>

#include "desktop/services/LoopTurns.h"

namespace orv {

/// The longest time for which the main thread kept its event loop from going on: for tools that press and measure. Time
/// for which the machine gave the thread no processor is not counted: it says nothing of the program.
class Turns {
 public:
  explicit Turns(QAbstractEventDispatcher& dispatcher);

  std::chrono::microseconds longest() const { return m_longest; }
  /// What was being done then.
  const QString& during() const { return m_during; }
  void reset() { m_longest = {}; }
  void setDoing(const QString& doing) { m_doing = doing; }
  /// Nobody runs the event loop just now: what happens until it is run again is no turn of it.
  void end();

 private:
  static std::chrono::nanoseconds now();

  std::optional<std::chrono::nanoseconds> m_began;
  std::chrono::microseconds m_longest{0};
  QString m_doing, m_during;
  LoopTurns m_turns;
};

}  // namespace orv
