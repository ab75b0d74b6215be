#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <array>

#include "kit/models/analytics/metrics.h"

namespace orv {

namespace Charts {
Q_NAMESPACE

/// What a chart of sending draws, in its order.
enum class Series { sent, opens, replies, clicks };
Q_ENUM_NS(Series)

}  // namespace Charts
using Charts::Series;

/// Days of sending as the chart takes them, and which of the series the person wants to see.
class ChartFigures {
 public:
  static constexpr std::array all{Series::sent, Series::opens, Series::replies, Series::clicks};

  /// A series that tracking does not count is drawn nowhere and cannot be switched on.
  void setDays(const QList<MetricDay>& days, bool tracksOpens, bool tracksClicks);
  /// Shows the series or hides it.
  void toggle(Series series);
  /// The same by name; a name that no series has changes nothing.
  void toggle(const QString& key);
  bool isShown(Series series) const { return m_shown[size_t(series)]; }

  /// The days as dates; none when nothing happened in all of them.
  const QStringList& days() const { return m_days; }
  /// {key, label, values, shown, available} of each series; a figure that a day does not have is not a number.
  QVariantList series() const;

 private:
  QStringList m_days;
  std::array<QList<double>, all.size()> m_values;
  std::array<bool, all.size()> m_available{true, true, true, true};
  std::array<bool, all.size()> m_shown{true, true, true, true};
};

}  // namespace orv
