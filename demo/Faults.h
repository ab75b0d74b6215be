#pragma once

#include <chrono>
#include <optional>

#include "demo/DemoState.h"

namespace orv::demo {

/// What the service does wrong on purpose, drawn in an order that a seed repeats.
class Faults {
 public:
  enum class Kind { unauthorized, conflict, rateLimit, htmlError, htmlSuccess, truncated, closed, late };

  Faults() = default;
  Faults(double rate, quint64 seed, std::chrono::milliseconds latency = {})
      : m_rate(rate), m_latency(latency), m_random(seed) {}

  /// What happens to the next request, if anything does.
  std::optional<Kind> draw() {
    if (m_next) return std::exchange(m_next, std::nullopt);
    if (!m_random.chance(m_rate)) return std::nullopt;
    return Kind(m_random.below(int(Kind::late) + 1));
  }
  /// Decides the next draw.
  void setNext(Kind kind) { m_next = kind; }

  std::chrono::milliseconds latency() const { return m_latency; }
  void setLatency(std::chrono::milliseconds latency) { m_latency = latency; }

 private:
  double m_rate = 0;
  std::chrono::milliseconds m_latency{0};
  DemoRandom m_random{1};
  std::optional<Kind> m_next;
};

}  // namespace orv::demo
