#include "kit/api/Format.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace orv::Format {

QString oneDecimal(double value) {
  // Adding a positive zero takes the sign off a negative one.
  const double rounded = std::round(value * 10) / 10 + 0.0;
  return fixed(rounded, rounded == std::trunc(rounded) ? 0 : 1);
}

QString fixed(double value, int decimals) {
  // Not QString::number(), which rounds halves up, nor printf(), which writes the locale's comma.
  std::array<char, std::numeric_limits<double>::max_exponent10 + 20> digits;
  const auto end = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed, decimals).ptr;
  return QString::fromLatin1(digits.data(), qsizetype(end - digits.data()));
}

QString compactCount(qint64 count, const QLocale& locale) {
  if (count >= 1000000) return oneDecimal(double(count) / 1000000) + u'M';
  if (count >= 10000) return oneDecimal(double(count) / 1000) + u'K';
  return grouped(count, locale);
}

QString money(double amount, const QLocale& locale) {
  if (!std::isfinite(amount)) return u"$0"_s;
  // The C locale has no currency style of its own, and bookkeeping ones put a negative amount in parentheses.
  const QLocale style = locale.language() == QLocale::C ? QLocale(QLocale::English, QLocale::UnitedStates) : locale;
  const double rounded = std::round(amount);
  const QString shown = style.toCurrencyString(std::abs(rounded), u"$"_s, 0);
  return rounded < 0 ? style.negativeSign() + shown : shown;
}

QString calendarDay(QDate day) {
  return u"%1-%2-%3"_s.arg(day.year(), 4, 10, QChar(u'0'))
      .arg(day.month(), 2, 10, QChar(u'0'))
      .arg(day.day(), 2, 10, QChar(u'0'));
}

QString shortDate(QDate day, const QLocale& locale) { return locale.toString(day, u"d MMM"_s); }

QString moment(const QDateTime& instant, const QLocale& locale) { return locale.toString(instant, u"d MMM, HH:mm"_s); }

QString grouped(qint64 count, const QLocale& locale) {
  QLocale grouping = locale;
  grouping.setNumberOptions(grouping.numberOptions() & ~QLocale::OmitGroupSeparator);
  return grouping.toString(count);
}

QString counted(qint64 count, const QString& one, const QString& many, const QLocale& locale) {
  return grouped(count, locale) + u' ' + (count == 1 ? one : many);
}

QString rate(qint64 part, qint64 whole) {
  return whole > 0 ? oneDecimal(100.0 * double(part) / double(whole)) + u'%' : u"0%"_s;
}

}  // namespace orv::Format
