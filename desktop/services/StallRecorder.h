#pragma once

#include <atomic>
#include <chrono>
#include <thread>

#include "desktop/services/LoopTurns.h"

namespace orv {

/// Writes into the log where the main thread stands when it has been held for too long, while it is held: a window
/// that does not answer is nothing that somebody can look into afterwards.
///
/// While nothing happens it costs nothing: its own thread sleeps until the event loop wakes. One per process.
class StallRecorder {
 public:
  /// Of the main thread, which it is made in.
  explicit StallRecorder(QAbstractEventDispatcher& dispatcher,
                         std::chrono::milliseconds longest = std::chrono::milliseconds(250));
  StallRecorder(const StallRecorder&) = delete;
  StallRecorder& operator=(const StallRecorder&) = delete;
  ~StallRecorder();

  int recorded() const { return m_recorded; }

 private:
  void watch(const std::stop_token& stop);
  void record();

  const std::chrono::milliseconds m_longest;
  /// Counts what the event loop does: odd while it is at work, even while it waits.
  std::atomic<quint32> m_turn = 0;
  std::atomic<int> m_recorded = 0;
  pthread_t m_main;
  LoopTurns m_turns;
  std::jthread m_watch;
};

}  // namespace orv
