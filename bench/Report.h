#pragma once

#include <QElapsedTimer>
#include <QString>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace orv::bench {

/// How much is measured: everything, or only enough to show that it runs.
struct Scale {
  bool quick = false;
  int of(int full) const { return quick ? std::max(1, full / 100) : full; }
};

/// Milliseconds, by rank.
struct Times {
  std::vector<double> ms;
  double at(double share) {
    std::ranges::sort(ms);
    return ms.empty() ? 0 : ms[std::min(ms.size() - 1, size_t(double(ms.size()) * share))];
  }
  double median() { return at(0.5); }
};

inline double milliseconds(const std::function<void()>& work) {
  QElapsedTimer timer;
  timer.start();
  work();
  return double(timer.nsecsElapsed()) / 1e6;
}

inline Times repeated(int times, const std::function<void()>& work) {
  Times result;
  for (int i = 0; i < times; ++i) result.ms.push_back(milliseconds(work));
  return result;
}

inline void line(const char* what, double value, const char* unit, const char* goal = "") {
  std::printf("  %-58s %9.2f %-3s %s\n", what, value, unit, goal);
}

bool accounts(Scale scale);
bool analytics(Scale scale);
/// Takes minutes, so it is measured only when it is named.
bool build(Scale scale);
bool chart(Scale scale);
bool decode(Scale scale);
bool editor(Scale scale);
bool inbox(Scale scale);
bool leads(Scale scale);
bool leadSearch(Scale scale);
bool lists(Scale scale);
bool runs(Scale scale);
bool settings(Scale scale);
bool start(Scale scale);
bool tour(Scale scale);
bool window(Scale scale);

}  // namespace orv::bench
