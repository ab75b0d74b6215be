#pragma once

#include <QTimer>

#include "bench/Report.h"
#include "kit/api/APITransport.h"

namespace orv::bench {

/// Knows how long the sample service took over its answers, which a real one gives elsewhere, where they are decoded
/// too.
class Metered final : public APITransport {
 public:
  explicit Metered(APITransport& api) : m_api(api) {}
  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override {
    std::unique_ptr<Exchange> begun;
    spent += milliseconds([&] { begun = m_api.exchange(std::move(call), std::move(receiver)); });
    return begun;
  }
  /// Milliseconds that the work takes without the service's share.
  double apart(const std::function<void()>& work) const {
    const double before = spent, whole = milliseconds(work);
    return whole - (spent - before);
  }
  double spent = 0;

 private:
  APITransport& m_api;
};

/// The longest that the event loop did not come round while this lives, but for the service's share.
class Held final : public QObject {
 public:
  explicit Held(const Metered& service) : m_before(service.spent) {
    m_timer.start();
    m_tick.setInterval(0);
    connect(&m_tick, &QTimer::timeout, this, [this, &service] {
      const double served = service.spent - std::exchange(m_before, service.spent);
      longest = std::max(longest, double(m_timer.nsecsElapsed()) / 1e6 - served);
      m_timer.restart();
    });
    m_tick.start();
  }
  double longest = 0;

 private:
  double m_before;
  QTimer m_tick;
  QElapsedTimer m_timer;
};

}  // namespace orv::bench
