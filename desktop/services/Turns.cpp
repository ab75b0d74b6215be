#include "desktop/services/Turns.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace orv {
namespace {

/// How long the thread has waited for a processor, ever; nothing where the system does not count it.
std::chrono::nanoseconds waited() {
  static const int file = open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC);
  char text[96] = {};
  unsigned long long ran = 0, delay = 0;
  if (file < 0 || pread(file, text, sizeof text - 1, 0) <= 0) return {};
  return std::chrono::nanoseconds(std::sscanf(text, "%llu %llu", &ran, &delay) == 2 ? delay : 0);
}

}  // namespace

Turns::Turns(QAbstractEventDispatcher& dispatcher)
    : m_turns(
          dispatcher, [this] { m_began = now(); }, [this] { end(); }) {}

std::chrono::nanoseconds Turns::now() { return std::chrono::steady_clock::now().time_since_epoch() - waited(); }

void Turns::end() {
  const auto began = std::exchange(m_began, std::nullopt);
  if (!began) return;
  const auto lasted = std::chrono::duration_cast<std::chrono::microseconds>(now() - *began);
  if (lasted <= m_longest) return;
  m_longest = lasted;
  m_during = m_doing;
}

}  // namespace orv
