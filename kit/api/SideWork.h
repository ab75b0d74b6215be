#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace orv {

/// Does what takes long beside the thread that asks, in the order asked for and two pieces at a time, however many are
/// asked for. Its threads begin with the first piece.
///
/// Not the toolkit's pool: how that hands work over is hidden from the thread sanitizer.
class SideWork final {
 public:
  static constexpr size_t atOnce = 2;

  SideWork() = default;
  SideWork(const SideWork&) = delete;
  SideWork& operator=(const SideWork&) = delete;
  /// Waits for what has begun; the rest is let go.
  ~SideWork();

  /// The work must not throw. It is done here and now when no thread is to be had: rather late for others than never.
  void start(std::function<void()> work);

 private:
  void run();
  bool haveThread();

  std::mutex m_mutex;
  std::condition_variable m_wake;
  std::deque<std::function<void()>> m_waiting;
  size_t m_idle = 0;
  bool m_isEnding = false;
  std::vector<std::thread> m_threads;
};

}  // namespace orv
