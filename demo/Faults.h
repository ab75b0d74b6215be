#pragma once

#include <QList>
#include <QStringList>
#include <chrono>
#include <optional>

#include "demo/DemoRandom.h"

namespace orv::demo {

/// What the service does wrong on purpose, drawn in an order that a seed repeats.
class Faults {
 public:
  enum class Kind { unauthorized, conflict, rateLimit, htmlError, htmlSuccess, truncated, closed, late };

  /// The kinds' names, in their order.
  static const QStringList& names() {
    using namespace Qt::Literals::StringLiterals;
    static const QStringList names{u"401"_s,  u"409"_s,       u"429"_s,    u"500"_s,
                                   u"html"_s, u"truncated"_s, u"closed"_s, u"late"_s};
    return names;
  }

  Faults() = default;
  /// `rate` is the share of requests that go wrong, from 0 to 1.
  Faults(double rate, quint64 seed, std::chrono::milliseconds latency = {})
      : m_rate(rate), m_latency(latency), m_random(seed) {}

  /// Only these kinds are drawn; none stands for all.
  void setKinds(const QList<Kind>& kinds) { m_kinds = kinds; }
  /// Requests whose path holds this text are never answered; nothing is done for them either.
  void setHeld(const QString& text) { m_held = text; }
  bool holds(const QString& path) const { return !m_held.isEmpty() && path.contains(m_held); }
  /// How much longer than the others a late answer takes.
  void setLateness(std::chrono::milliseconds lateness) { m_lateness = lateness; }

  /// What happens to the next request, if anything does.
  std::optional<Kind> draw() {
    if (m_next) return std::exchange(m_next, std::nullopt);
    if (!m_random.chance(m_rate)) return std::nullopt;
    return m_kinds.isEmpty() ? Kind(m_random.below(names().size())) : m_random.pick(m_kinds);
  }
  /// Decides the next draw.
  void setNext(Kind kind) { m_next = kind; }

  std::chrono::milliseconds latency() const { return m_latency; }
  void setLatency(std::chrono::milliseconds latency) { m_latency = latency; }
  std::chrono::milliseconds lateness() const { return m_lateness; }

 private:
  double m_rate = 0;
  std::chrono::milliseconds m_latency{0};
  std::chrono::milliseconds m_lateness{3000};
  QString m_held;
  DemoRandom m_random{1};
  QList<Kind> m_kinds;
  std::optional<Kind> m_next;
};

}  // namespace orv::demo
