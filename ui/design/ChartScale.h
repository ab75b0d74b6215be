#pragma once

#include <QDate>
#include <QList>
#include <QRectF>

namespace orv {

/// The value axis of a chart: from `low` to `high`, both on a tick, with zero between them or at an end.
struct ValueAxis {
  double low = 0;
  double high = 1;
  double step = 1;

  QList<double> ticks() const;
  bool operator==(const ValueAxis&) const = default;
};

/// The tightest axis of round steps around zero and both values that has at most `most` ticks (never fewer than two;
/// three when it crosses zero). With `whole` a step is a whole number, as half an email is none.
ValueAxis roundAxis(double lowest, double highest, bool whole, int most);

/// The axis of shares that end at `top`: from the tens below the lowest, which may be no number.
ValueAxis tensUpTo(double lowest, double top, int most);

/// Which days of a chart have their date below them.
struct DayLabels {
  QList<int> days;
  /// They stand for months: one for the first day of each.
  bool months = false;
};

/// Labels at least `apart` days from each other, by days, weeks or months. Where they go by days the last day has one.
DayLabels thinLabels(const QList<QDate>& days, int apart);

/// Where days and values are in a chart's plot. Days are counted, not measured: a list of days has one place for each.
class ChartScale {
 public:
  /// A line runs from edge to edge; bars stand in the middle of equal parts.
  enum class Kind { line, bar };

  ChartScale() = default;
  ChartScale(Kind kind, int days, const QRectF& plot, const ValueAxis& axis);

  Kind kind() const { return m_kind; }
  const QRectF& plot() const { return m_plot; }
  const ValueAxis& axis() const { return m_axis; }
  /// The distance between two days.
  double dayWidth() const;
  double x(int day) const;
  double y(double value) const;
  /// The day nearest to `x`, also from outside the plot; -1 when there are no days.
  int dayAt(double x) const;

 private:
  double firstX() const;

  Kind m_kind = Kind::line;
  int m_days = 0;
  QRectF m_plot;
  ValueAxis m_axis;
};

}  // namespace orv
