#include "demo/DemoRandom.h"

namespace orv::demo {

DemoRandom DemoRandom::of(QStringView text, quint64 salt) {
  quint64 seed = salt;
  for (const QChar c : text) seed = seed * 31 + c.unicode();
  return DemoRandom(seed);
}

quint64 DemoRandom::next() {
  quint64 z = (m_state += 0x9e3779b97f4a7c15ULL);
  z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
  z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
  return z ^ (z >> 31);
}

QString DemoRandom::id(const QString& prefix) { return prefix + u'_' + QString::number(next(), 36); }

}  // namespace orv::demo
