#include "tests/soak/Ring.h"

#include <unistd.h>
#include <csignal>

#include <algorithm>
#include <cstring>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#include <sanitizer/common_interface_defs.h>
#define ORVELLA_SANITIZED
#endif
#endif

namespace orv::soak {
namespace {

void put(const char* text, size_t size) {
  // Nobody could be told that this failed.
  [[maybe_unused]] const auto written = ::write(STDERR_FILENO, text, size);
}

void printOnce() {
  static bool done = false;
  if (!std::exchange(done, true)) ring().print();
}

}  // namespace

void Ring::add(const QString& step) {
  Line& line = m_lines[m_next++ % kept];
  const QByteArray text = step.toUtf8() + '\n';
  line.size = std::min(size_t(text.size()), line.text.size());
  std::copy_n(text.begin(), line.size, line.text.begin());
  line.text[line.size - 1] = '\n';
}

void Ring::print() const {
  constexpr char heading[] = "The last steps, oldest first:\n";
  put(heading, sizeof heading - 1);
  for (size_t i = m_next > kept ? m_next - kept : 0; i < m_next; ++i)
    put(m_lines[i % kept].text.data(), m_lines[i % kept].size);
}

Ring& ring() {
  static Ring ring;
  return ring;
}

void printRingAtEnd() {
  ring();
#ifdef ORVELLA_SANITIZED
  __sanitizer_set_death_callback(&printOnce);
#endif
  std::signal(SIGABRT, [](int) { printOnce(); });
#ifndef ORVELLA_SANITIZED
  std::signal(SIGSEGV, [](int) {
    printOnce();
    std::_Exit(1);
  });
#endif
}

}  // namespace orv::soak
