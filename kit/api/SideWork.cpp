#include "kit/api/SideWork.h"

#include <pthread.h>

#include <system_error>
#include <utility>

namespace orv {

SideWork::~SideWork() {
  {
    const std::lock_guard lock(m_mutex);
    m_isEnding = true;
    m_waiting.clear();
  }
  m_wake.notify_all();
  for (std::thread& thread : m_threads) thread.join();
}

void SideWork::start(std::function<void()> work) {
  {
    const std::lock_guard lock(m_mutex);
    if (haveThread()) {
      m_waiting.push_back(std::move(work));
      m_wake.notify_one();
      return;
    }
  }
  work();
}

bool SideWork::haveThread() {
  if (m_idle > m_waiting.size() || m_threads.size() == atOnce) return true;
  try {
    m_threads.emplace_back([this] { run(); });
  } catch (const std::system_error&) {
    return !m_threads.empty();
  }
  return true;
}

void SideWork::run() {
  ::pthread_setname_np(::pthread_self(), "decoding");
  std::unique_lock lock(m_mutex);
  for (;;) {
    ++m_idle;
    m_wake.wait(lock, [this] { return m_isEnding || !m_waiting.empty(); });
    --m_idle;
    if (m_isEnding) return;
    const auto work = std::exchange(m_waiting.front(), {});
    m_waiting.pop_front();
    lock.unlock();
    work();
    lock.lock();
  }
}

}  // namespace orv
