#pragma once

#include <chrono>

struct nlmsghdr;

namespace orv {

/// Tells whether connections made earlier may have died without a word: the machine slept, or moved to another network.
/// Looks when it is asked, so that nothing has to wake up for it. Confined to one thread.
class NetworkChanges {
 public:
  /// Listens to the kernel. Where that is refused, only sleep is noticed.
  NetworkChanges();
  /// Takes over `socket`, on which the kernel's routing messages arrive.
  explicit NetworkChanges(int socket);
  NetworkChanges(const NetworkChanges&) = delete;
  NetworkChanges& operator=(const NetworkChanges&) = delete;
  ~NetworkChanges();

  /// Since the last call.
  bool happened();

  /// A socket on which the kernel tells of links, addresses and routes; -1 where it does not.
  static int listen();
  /// Reads what has come; whether any of it concerns the caller, or some was lost.
  static bool hear(int socket, bool (*concerns)(const nlmsghdr* message));

 private:
  bool slept();
  bool moved();

  int m_socket;
  std::chrono::nanoseconds m_asleep;
};

}  // namespace orv
