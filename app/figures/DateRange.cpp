#include "app/figures/DateRange.h"

#include <QLocale>

#include "app/base/EnumName.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QDate startOfQuarter(const QDate& day) { return {day.year(), (day.month() - 1) / 3 * 3 + 1, 1}; }

QDate startOf(RangePreset preset, const QDate& today) {
  switch (preset) {
    case RangePreset::last7:
      return today.addDays(-6);
    case RangePreset::last4w:
      return today.addDays(-27);
    case RangePreset::last3m:
      return today.addMonths(-3);
    case RangePreset::mtd:
      return {today.year(), today.month(), 1};
    case RangePreset::qtd:
      return startOfQuarter(today);
    case RangePreset::ytd:
      return {today.year(), 1, 1};
    case RangePreset::last12m:
      return today.addMonths(-12);
  }
  Q_UNREACHABLE();
}

}  // namespace

QString rangeLabel(RangePreset preset) {
  switch (preset) {
    case RangePreset::last7:
      return u"Last 7 days"_s;
    case RangePreset::last4w:
      return u"Last 4 weeks"_s;
    case RangePreset::last3m:
      return u"Last 3 months"_s;
    case RangePreset::mtd:
      return u"Month to date"_s;
    case RangePreset::qtd:
      return u"Quarter to date"_s;
    case RangePreset::ytd:
      return u"Year to date"_s;
    case RangePreset::last12m:
      return u"Last 12 months"_s;
  }
  Q_UNREACHABLE();
}

DateRange rangeOf(RangePreset preset, const QDate& today) { return {startOf(preset, today), today}; }

QList<Choice> rangePresets() {
  QList<Choice> list;
  for (int i = 0; i <= int(RangePreset::last12m); ++i)
    list.append({.key = enumName(RangePreset(i)), .label = rangeLabel(RangePreset(i))});
  return list;
}

QString rangeText(const DateRange& range) {
  const auto withYear = [](const QDate& day) {
    return Format::shortDate(day) + u' ' + QLocale().toString(day, u"yyyy");
  };
  if (range.from == range.to) return withYear(range.to);
  const bool sameYear = range.from.year() == range.to.year();
  return (sameYear ? Format::shortDate(range.from) : withYear(range.from)) + u" – "_s + withYear(range.to);
}

QDate localToday(const Clock& clock) { return clock.now().toLocalTime().date(); }

QString RangeChoice::preset() const { return enumName(m_preset); }

QString RangeChoice::label() const { return m_custom ? u"Custom range"_s : rangeLabel(m_preset); }

bool RangeChoice::setPreset(const QString& key, const QDate& today) {
  const auto preset = enumNamed<RangePreset>(key);
  if (!preset || (*preset == m_preset && !m_custom)) return false;
  m_preset = *preset;
  m_custom = false;
  follow(today);
  return true;
}

bool RangeChoice::setCustom(const QString& from, const QString& to) {
  const auto first = parseCalendarDay(from), second = parseCalendarDay(to);
  if (!first || !second) return false;
  m_custom = true;
  m_days = {std::min(*first, *second), std::max(*first, *second)};
  return true;
}

void RangeChoice::follow(const QDate& today) {
  if (!m_custom) m_days = rangeOf(m_preset, today);
}

}  // namespace orv
