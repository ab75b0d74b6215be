#include "app/figures/ChartFigures.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "app/base/EnumName.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

double valueOf(const std::optional<qint64>& value) {
  return value ? double(*value) : std::numeric_limits<double>::quiet_NaN();
}

double valueOf(const MetricDay& day, Series series) {
  switch (series) {
    case Series::sent:
      return double(day.sent);
    case Series::opens:
      return valueOf(day.opens);
    case Series::replies:
      return double(day.replies);
    case Series::clicks:
      return valueOf(day.clicks);
  }
  Q_UNREACHABLE();
}

QString labelOf(Series series) {
  switch (series) {
    case Series::sent:
      return u"Sent"_s;
    case Series::opens:
      return u"Unique opens"_s;
    case Series::replies:
      return u"Unique replies"_s;
    case Series::clicks:
      return u"Unique clicks"_s;
  }
  Q_UNREACHABLE();
}

bool isNothing(double value) { return std::isnan(value) || value == 0; }

}  // namespace

void ChartFigures::setDays(const QList<MetricDay>& days, bool tracksOpens, bool tracksClicks) {
  m_days.clear();
  for (const MetricDay& day : days) m_days.append(day.day);
  bool nothing = true;
  for (const Series series : all) {
    auto& values = m_values[size_t(series)];
    values.clear();
    const bool tracked = series == Series::opens ? tracksOpens : series != Series::clicks || tracksClicks;
    for (const MetricDay& day : days)
      values.append(tracked ? valueOf(day, series) : std::numeric_limits<double>::quiet_NaN());
    m_available[size_t(series)] = tracked;
    nothing = nothing && std::ranges::all_of(values, isNothing);
  }
  if (!nothing) return;
  m_days.clear();
  for (auto& values : m_values) values.clear();
}

void ChartFigures::toggle(Series series) {
  bool& shown = m_shown[size_t(series)];
  shown = !shown;
}

void ChartFigures::toggle(const QString& key) {
  for (const Series series : all)
    if (enumName(series) == key) toggle(series);
}

QVariantList ChartFigures::series() const {
  QVariantList list;
  for (const Series series : all) {
    const auto at = size_t(series);
    list.append(QVariantMap{{u"key"_s, enumName(series)},
                            {u"label"_s, labelOf(series)},
                            {u"values"_s, QVariant::fromValue(m_values[at])},
                            {u"shown"_s, m_shown[at] && m_available[at]},
                            {u"available"_s, m_available[at]}});
  }
  return list;
}

}  // namespace orv
