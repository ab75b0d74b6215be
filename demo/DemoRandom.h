#pragma once

#include <QString>

namespace orv::demo {

/// A small generator of our own, because the standard's distributions differ between libraries.
class DemoRandom {
 public:
  explicit DemoRandom(quint64 seed) : m_state(seed) {}
  /// Always the same for the same text, unlike the library's hash.
  static DemoRandom of(QStringView text, quint64 salt = 0);

  quint64 next();
  /// From 0 to bound - 1.
  qint64 below(qint64 bound) { return bound > 0 ? qint64(next() % quint64(bound)) : 0; }
  qint64 between(qint64 low, qint64 high) { return low + below(high - low + 1); }
  bool chance(double probability) { return double(next() >> 11) * 0x1.0p-53 < probability; }
  template <class List>
  const auto& pick(const List& list) {
    return list[below(qint64(list.size()))];
  }
  QString id(const QString& prefix);

 private:
  quint64 m_state;
};

}  // namespace orv::demo
