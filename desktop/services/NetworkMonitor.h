#pragma once

#include <QSocketNotifier>
#include <memory>

#include "app/base/desktop/NetworkWatch.h"
#include "kit/async/Clock.h"

namespace orv {

/// Hears from the kernel when a route is added, which is when a network has come up for good: the link alone has no
/// address yet. Told once for all that comes at a time; where the kernel tells nothing, nothing is ever told.
class NetworkMonitor final : public NetworkWatch {
  Q_OBJECT

 public:
  /// Names are looked up a moment after the route is there.
  static constexpr std::chrono::milliseconds settling{1000};

  explicit NetworkMonitor(Clock& clock, QObject* parent = nullptr);
  /// Takes over `socket`, on which the kernel's routing messages arrive.
  NetworkMonitor(Clock& clock, int socket, QObject* parent = nullptr);
  ~NetworkMonitor() override;

 private:
  void read();

  Clock& m_clock;
  int m_socket;
  std::unique_ptr<QSocketNotifier> m_notifier;
  std::unique_ptr<Clock::Timer> m_settled;
};

}  // namespace orv
