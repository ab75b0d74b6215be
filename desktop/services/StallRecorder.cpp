#include "desktop/services/StallRecorder.h"

#include <execinfo.h>
#include <pthread.h>
#include <signal.h>

#include <QLoggingCategory>
#include <array>
#include <cstdlib>
#include <memory>

namespace orv {
namespace {

Q_LOGGING_CATEGORY(lcStall, "orvella.stall")

constexpr int deepest = 48;
/// Of the handler itself and of what the system puts before it.
constexpr int ownFrames = 2;

std::array<void*, deepest> stack;
std::atomic<int> depth = -1;

int sampleSignal() { return SIGRTMIN + 4; }

void sample(int) {
  const int before = errno;
  depth = backtrace(stack.data(), deepest);
  errno = before;
}

}  // namespace

StallRecorder::StallRecorder(QAbstractEventDispatcher& dispatcher, std::chrono::milliseconds longest)
    : m_longest(longest),
      m_main(pthread_self()),
      m_turns(
          dispatcher,
          [this] {
            ++m_turn;
            m_turn.notify_one();
          },
          [this] { ++m_turn; }) {
  // The first one loads the library that walks the stack, which a handler must not do.
  backtrace(stack.data(), 1);
  struct sigaction action {};
  action.sa_handler = sample;
  action.sa_flags = SA_RESTART;
  sigaction(sampleSignal(), &action, nullptr);
  m_watch = std::jthread([this](const std::stop_token& stop) { watch(stop); });
}

StallRecorder::~StallRecorder() {
  m_watch.request_stop();
  // Awake for good, so that the thread sees that it is over.
  m_turn.fetch_or(1);
  m_turn.notify_one();
  m_watch.join();
  signal(sampleSignal(), SIG_IGN);
}

void StallRecorder::watch(const std::stop_token& stop) {
  while (!stop.stop_requested()) {
    const quint32 turn = m_turn;
    if (!(turn & 1)) {
      m_turn.wait(turn);
      continue;
    }
    std::this_thread::sleep_for(m_longest);
    if (stop.stop_requested() || m_turn != turn) continue;
    record();
    while (!stop.stop_requested() && m_turn == turn) std::this_thread::sleep_for(m_longest);
  }
}

void StallRecorder::record() {
  depth = -1;
  if (pthread_kill(m_main, sampleSignal()) != 0) return;
  for (int waited = 0; depth < 0 && waited < 100; ++waited) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  const int frames = depth;
  if (frames < 0) return;
  const std::unique_ptr<char*, decltype(&std::free)> names(backtrace_symbols(stack.data(), frames), &std::free);
  qCWarning(lcStall, "The window was held for more than %lld ms, at", (long long)m_longest.count());
  for (int frame = ownFrames; names && frame < frames; ++frame) qCWarning(lcStall, "  %s", names.get()[frame]);
  ++m_recorded;
}

}  // namespace orv
