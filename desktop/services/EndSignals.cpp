#include "desktop/services/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>
#include <csignal>

namespace orv {
namespace {

constexpr int signals[] = {SIGTERM, SIGHUP, SIGINT};

/// A handler may do little more than write to a pipe.
int pipeEnds[2] = {-1, -1};

int openPipe() {
  if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) pipeEnds[0] = pipeEnds[1] = -1;
  return pipeEnds[0];
}

void handle(int) {
  const char byte = 0;
  // Nothing can be done about a full pipe here, and nothing needs to: somebody has been told.
  [[maybe_unused]] const auto written = ::write(pipeEnds[1], &byte, 1);
}

}  // namespace

EndSignals::EndSignals(QObject* parent) : QObject(parent), m_notifier(openPipe(), QSocketNotifier::Read) {
  connect(&m_notifier, &QSocketNotifier::activated, this, &EndSignals::read);
  struct sigaction action = {};
  action.sa_handler = handle;
  // The second one ends the process: who asks twice is in a hurry.
  action.sa_flags = SA_RESTART | SA_RESETHAND;
  sigemptyset(&action.sa_mask);
  for (const int number : signals) ::sigaction(number, &action, nullptr);
}

EndSignals::~EndSignals() {
  for (const int number : signals) ::signal(number, SIG_DFL);
  m_notifier.setEnabled(false);
  for (int& end : pipeEnds) {
    ::close(end);
    end = -1;
  }
}

void EndSignals::read() {
  char bytes[16];
  while (::read(pipeEnds[0], bytes, sizeof(bytes)) > 0) {
  }
  Q_EMIT asked();
}

}  // namespace orv
