#include "kit/api/NetworkChanges.h"

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>

namespace orv {
namespace {

using namespace std::chrono_literals;

std::chrono::nanoseconds reading(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// How long the machine has been asleep since it was started: one clock goes on meanwhile, the other does not.
std::chrono::nanoseconds timeAsleep() { return reading(CLOCK_BOOTTIME) - reading(CLOCK_MONOTONIC); }

/// What only comes beside the rest (an address more, a link that goes on running) leaves old connections alone.
bool endsConnections(const nlmsghdr* message) {
  switch (message->nlmsg_type) {
    case RTM_DELLINK:
    case RTM_DELADDR:
    case RTM_NEWROUTE:
    case RTM_DELROUTE:
      return true;
    case RTM_NEWLINK:
      return !(static_cast<const ifinfomsg*>(NLMSG_DATA(message))->ifi_flags & IFF_RUNNING);
    default:
      return false;
  }
}

}  // namespace

int NetworkChanges::listen() {
  const int socket = ::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE);
  sockaddr_nl address{};
  address.nl_family = AF_NETLINK;
  address.nl_groups = RTMGRP_LINK | RTMGRP_IPV4_IFADDR | RTMGRP_IPV6_IFADDR | RTMGRP_IPV4_ROUTE | RTMGRP_IPV6_ROUTE;
  if (socket >= 0 && ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return socket;
  if (socket >= 0) ::close(socket);
  return -1;
}

NetworkChanges::NetworkChanges() : NetworkChanges(listen()) {}

NetworkChanges::NetworkChanges(int socket) : m_socket(socket), m_asleep(timeAsleep()) {}

NetworkChanges::~NetworkChanges() {
  if (m_socket >= 0) ::close(m_socket);
}

bool NetworkChanges::happened() {
  const bool hasSlept = slept();
  return moved() || hasSlept;
}

bool NetworkChanges::slept() {
  const auto asleep = timeAsleep();
  // The two clocks are not read at the same instant.
  if (asleep - m_asleep < 1s) return false;
  m_asleep = asleep;
  return true;
}

bool NetworkChanges::moved() { return hear(m_socket, endsConnections); }

bool NetworkChanges::hear(int socket, bool (*concerns)(const nlmsghdr* message)) {
  bool found = false;
  alignas(nlmsghdr) std::array<char, 16384> bytes;
  while (socket >= 0) {
    const ssize_t count = ::recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT);
    // More has happened than the kernel kept for us.
    if (count < 0 && errno == ENOBUFS) found = true;
    if (count < 0 && (errno == ENOBUFS || errno == EINTR)) continue;
    if (count <= 0) break;
    auto left = unsigned(count);
    for (const auto* message = reinterpret_cast<const nlmsghdr*>(bytes.data()); NLMSG_OK(message, left);
         message = NLMSG_NEXT(message, left))
      found = found || concerns(message);
  }
  return found;
}

}  // namespace orv
