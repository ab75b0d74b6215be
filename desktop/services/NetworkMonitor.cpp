#include "desktop/services/NetworkMonitor.h"

#include <linux/rtnetlink.h>
#include <unistd.h>
#include <QLoggingCategory>

#include "kit/api/NetworkChanges.h"

namespace orv {

Q_LOGGING_CATEGORY(lcNetwork, "orvella.network")

NetworkMonitor::NetworkMonitor(Clock& clock, QObject* parent)
    : NetworkMonitor(clock, NetworkChanges::listen(), parent) {}

NetworkMonitor::NetworkMonitor(Clock& clock, int socket, QObject* parent)
    : NetworkWatch(parent), m_clock(clock), m_socket(socket) {
  if (m_socket < 0) {
    qCInfo(lcNetwork, "The system does not tell when the network comes back, so pages are read again by hand");
    return;
  }
  m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
  connect(m_notifier.get(), &QSocketNotifier::activated, this, &NetworkMonitor::read);
}

NetworkMonitor::~NetworkMonitor() {
  m_notifier.reset();
  if (m_socket >= 0) ::close(m_socket);
}

void NetworkMonitor::read() {
  const auto isRoute = [](const nlmsghdr* message) { return message->nlmsg_type == RTM_NEWROUTE; };
  if (NetworkChanges::hear(m_socket, isRoute)) m_settled = m_clock.startTimer(settling, [this] { Q_EMIT cameUp(); });
}

}  // namespace orv
