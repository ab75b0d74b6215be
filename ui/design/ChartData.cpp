#include "ui/design/ChartData.h"

#include <QLocale>
#include <algorithm>
#include <cmath>
#include <limits>

#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr double absent = std::numeric_limits<double>::quiet_NaN();

double number(const QVariant& variant) {
  // QML's undefined and null would else be zeros, which a day without figures is not.
  bool isNumber = false;
  const double value = variant.toDouble(&isNumber);
  return isNumber && !variant.isNull() && std::isfinite(value) ? value : absent;
}

QList<double> numbers(const QVariant& variant) {
  if (variant.metaType() == QMetaType::fromType<QList<double>>()) return variant.value<QList<double>>();
  QList<double> result;
  const QVariantList list = variant.toList();
  result.reserve(list.size());
  for (const QVariant& entry : list) result.append(number(entry));
  return result;
}

}  // namespace

bool ChartSeries::operator==(const ChartSeries& other) const {
  const auto same = [](double one, double two) { return one == two || (std::isnan(one) && std::isnan(two)); };
  return reference == other.reference && wrongFrom == other.wrongFrom && wrongTo == other.wrongTo && key == other.key &&
         label == other.label && shown == other.shown && failed == other.failed && planned == other.planned &&
         toCome == other.toCome && look == other.look && notes == other.notes &&
         std::ranges::equal(values, other.values, same);
}

void ChartData::setDays(const QStringList& days) {
  m_names = days;
  m_days.clear();
  for (const QString& day : days) m_days.append(QDate::fromString(day.left(10), Qt::ISODate));
}

bool ChartData::setSeries(const QVariantList& series) {
  const QList<ChartSeries> before = std::exchange(m_series, {});
  for (const QVariant& entry : series) {
    const QVariantMap map = entry.toMap();
    m_series.append({.key = map[u"key"_s].toString(),
                     .label = map[u"label"_s].toString(),
                     .values = numbers(map[u"values"_s]),
                     .shown = map.value(u"shown"_s, true).toBool(),
                     .failed = map[u"failed"_s].toBool(),
                     .planned = map[u"planned"_s].toBool(),
                     .toCome = map.value(u"toCome"_s, -1).toInt(),
                     .reference = map[u"reference"_s].toBool(),
                     .wrongFrom = map.value(u"wrongFrom"_s, -1).toInt(),
                     .wrongTo = map.value(u"wrongTo"_s, -1).toInt(),
                     .look = map.value(u"look"_s, m_series.size()).toInt(),
                     .notes = map[u"notes"_s].toStringList()});
  }
  return m_series != before;
}

double ChartData::value(int series, int day) const {
  const double value = m_series.value(series).values.value(day, absent);
  return std::isfinite(value) ? value : absent;
}

ChartData::Extent ChartData::extent(bool stacked) const {
  Extent extent;
  const bool noneShown = std::ranges::none_of(m_series, &ChartSeries::shown);
  for (int day = 0; day < count(); ++day) {
    double sum = 0;
    for (const ChartSeries& series : m_series) {
      if (!(series.shown || noneShown) || day >= series.values.size() || !std::isfinite(series.values[day])) continue;
      const double value = series.values[day];
      const bool isPart = stacked && !series.planned;
      if (isPart) sum += std::max(0.0, value);
      extent.whole = extent.whole && value == std::floor(value);
      if (!stacked) extent.lowest = std::min(extent.lowest, value);
      extent.highest = std::max(extent.highest, isPart ? sum : value);
    }
  }
  return extent;
}

double ChartData::lowest() const {
  double lowest = absent;
  for (const ChartSeries& series : m_series)
    for (const double value : series.values)
      if (series.shown && std::isfinite(value)) lowest = std::isnan(lowest) ? value : std::min(lowest, value);
  return lowest;
}

bool ChartData::isEmpty() const {
  return std::ranges::all_of(m_series, [this](const ChartSeries& series) {
    return std::all_of(series.values.begin(), series.values.begin() + std::min(count(), int(series.values.size())),
                       [](double value) { return value == 0 || !std::isfinite(value); });
  });
}

QString ChartData::valueText(double value) const {
  if (!std::isfinite(value)) return u"–"_s;
  const double tenth = std::round(value * 10) / 10;
  const double whole = std::trunc(tenth);
  QString text = Format::grouped(qint64(whole));
  if (tenth != whole) {
    text = (tenth < 0 && whole == 0 ? QLocale().negativeSign() : QString()) + text + QLocale().decimalPoint() +
           QString::number(std::lround(std::abs(tenth - whole) * 10));
  }
  return text + m_unit;
}

QString ChartData::readingText(int series, int day) const {
  const QString note = m_series.value(series).notes.value(day);
  return valueText(value(series, day)) + (note.isEmpty() ? QString() : u" ("_s + note + u')');
}

QString ChartData::shortDay(int day) const {
  const QDate date = m_days.value(day);
  return date.isValid() ? Format::shortDate(date) : dayKey(day);
}

QString ChartData::dayText(int day) const {
  const QDate date = m_days.value(day);
  if (!date.isValid()) return dayKey(day);
  const bool years = m_days.first().year() != m_days.last().year();
  return QLocale().toString(date, u"ddd "_s) + Format::shortDate(date) +
         (years ? u' ' + QString::number(date.year()) : QString());
}

QString ChartData::spokenDay(int day) const {
  QStringList parts{dayText(day)};
  for (int i = 0; i < m_series.size(); ++i)
    if (m_series[i].shown) parts.append(m_series[i].label + u' ' + readingText(i, day));
  if (!dayNote(day).isEmpty()) parts.append(dayNote(day));
  return parts.join(u", "_s);
}

QString ChartData::spokenSeries(const ChartSeries& series) const {
  int lowest = -1;
  int highest = -1;
  for (int day = 0; day < std::min(count(), int(series.values.size())); ++day) {
    if (!std::isfinite(series.values[day])) continue;
    if (lowest < 0 || series.values[day] < series.values[lowest]) lowest = day;
    if (highest < 0 || series.values[day] > series.values[highest]) highest = day;
  }
  if (highest < 0) return u"%1: no figures."_s.arg(series.label);
  return u"%1: %2 to %3, highest on %4."_s.arg(series.label, valueText(series.values[lowest]),
                                               valueText(series.values[highest]), shortDay(highest));
}

QString ChartData::summary() const {
  if (count() == 0) return {};
  QStringList sentences{count() == 1 ? dayText(0) + u'.' : u"%1 to %2."_s.arg(dayText(0), dayText(count() - 1))};
  for (const ChartSeries& series : m_series)
    if (series.shown) sentences.append(spokenSeries(series));
  return sentences.join(u' ');
}

}  // namespace orv
