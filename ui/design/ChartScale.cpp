#include "ui/design/ChartScale.h"

#include <algorithm>
#include <cmath>

namespace orv {
namespace {

/// Quotients such as 0.3 / 0.1 miss the whole number that they mean.
constexpr double slack = 1e-9;

DayLabels everyFewDays(int count, int step, int apart) {
  DayLabels labels;
  for (int day = 0; day < count; day += step) labels.days.append(day);
  const int last = count - 1;
  if (labels.days.last() == last) return labels;
  // The range's end says more than the step before it.
  if (labels.days.size() > 1 && last - labels.days.last() < apart) labels.days.removeLast();
  if (last - labels.days.last() >= apart) labels.days.append(last);
  return labels;
}

DayLabels everyFewMonths(const QList<QDate>& days, int months) {
  DayLabels labels{{}, true};
  for (int day = 0; day < days.size(); ++day) {
    const QDate date = days[day];
    const bool first = day == 0 ? date.day() == 1 : date.month() != days[day - 1].month();
    if (first && (date.year() * 12 + date.month() - 1) % months == 0) labels.days.append(day);
  }
  return labels;
}

}  // namespace

QList<double> ValueAxis::ticks() const {
  QList<double> result;
  const auto steps = int(std::lround((high - low) / step));
  for (int i = 0; i <= steps; ++i) result.append(low + i * step);
  return result;
}

ValueAxis roundAxis(double lowest, double highest, bool whole, int most) {
  const double low = std::min(0.0, lowest);
  const double high = std::max(0.0, highest);
  if (low == high) return {};
  most = std::max(most, low < 0 && high > 0 ? 3 : 2);
  for (auto power = int(std::floor(std::log10((high - low) / most)));; ++power) {
    for (const double round : {1.0, 2.0, 2.5, 4.0, 5.0}) {
      const double step = round * std::pow(10, power);
      if (whole && step != std::floor(step)) continue;
      const double first = std::floor(low / step + slack);
      const double last = std::ceil(high / step - slack);
      if (last - first < most) return {first * step, last * step, step};
    }
  }
}

ValueAxis tensUpTo(double lowest, double top, int most) {
  const double from = std::isfinite(lowest) ? std::clamp(lowest, 0.0, top - 10) : 0;
  for (const double step : {10.0, 20.0, 50.0}) {
    const double low = std::floor(from / step + slack) * step;
    if ((top - low) / step < most) return {low, top, step};
  }
  return {0, top, top};
}

DayLabels thinLabels(const QList<QDate>& days, int apart) {
  if (days.isEmpty()) return {};
  for (const int step : {1, 2, 7, 14})
    if (step >= apart) return everyFewDays(int(days.size()), step, apart);
  for (const int months : {1, 2, 3, 6, 12, 24}) {
    if (months * 28 < apart) continue;
    const DayLabels labels = everyFewMonths(days, months);
    if (!labels.days.isEmpty()) return labels;
  }
  return {{0}, false};
}

ChartScale::ChartScale(Kind kind, int days, const QRectF& plot, const ValueAxis& axis)
    : m_kind(kind), m_days(days), m_plot(plot), m_axis(axis) {}

double ChartScale::dayWidth() const {
  const int parts = m_kind == Kind::bar ? m_days : m_days - 1;
  return parts > 0 ? m_plot.width() / parts : m_plot.width();
}

double ChartScale::firstX() const {
  const bool centred = m_kind == Kind::bar || m_days == 1;
  return m_plot.left() + (centred ? dayWidth() / 2 : 0);
}

double ChartScale::x(int day) const { return firstX() + day * dayWidth(); }

double ChartScale::y(double value) const {
  return m_plot.bottom() - (value - m_axis.low) / (m_axis.high - m_axis.low) * m_plot.height();
}

int ChartScale::dayAt(double x) const {
  if (m_days <= 0) return -1;
  const double width = dayWidth();
  if (width <= 0) return 0;
  return int(std::clamp(std::round((x - firstX()) / width), 0.0, double(m_days - 1)));
}

}  // namespace orv
