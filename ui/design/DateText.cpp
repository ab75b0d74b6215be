#include "ui/design/DateText.h"

#include <QLocale>
#include <QRegularExpression>

#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;
namespace Format = orv::Format;

namespace {

QDate dayOf(const QString& text) { return orv::parseCalendarDay(text).value_or(QDate()); }

QString textOf(QDate day) { return day.isValid() ? Format::calendarDay(day) : QString(); }

QDate startOfWeek(QDate day) { return day.addDays(-((day.dayOfWeek() - QLocale().firstDayOfWeek() + 7) % 7)); }

/// Day, month and perhaps year by numbers, in the order that this place writes them.
QDate shortDay(const QString& text, QDate now) {
  static const QRegularExpression numbers(u"^([0-9]{1,2})[./ -]([0-9]{1,2})(?:[./ -]([0-9]{2}|[0-9]{4})?)?$"_s);
  const auto match = numbers.match(text);
  if (!match.hasMatch()) return {};
  const QString form = QLocale().dateFormat(QLocale::ShortFormat);
  const bool monthFirst = form.indexOf(u'M') < form.indexOf(u'd');
  const int day = match.captured(monthFirst ? 2 : 1).toInt(), month = match.captured(monthFirst ? 1 : 2).toInt();
  if (const QString year = match.captured(3); !year.isEmpty())
    return QDate(year.toInt() + (year.size() == 2 ? 2000 : 0), month, day);
  // 29 February has to wait for its year.
  for (int year = now.year(); year <= now.year() + 8; ++year)
    if (const QDate next(year, month, day); next.isValid() && next >= now) return next;
  return {};
}

}  // namespace

QString DateText::parse(const QString& text) const { return textOf(dayOf(text.trimmed())); }

QString DateText::expand(const QString& text) const {
  const QString wanted = text.simplified().toLower();
  const QDate now = QDate::currentDate();
  if (wanted == "today"_L1) return textOf(now);
  if (wanted == "tomorrow"_L1) return textOf(now.addDays(1));
  static const QRegularExpression further(u"^\\+ ?([0-9]{1,4})( days?)?$"_s);
  if (const auto match = further.match(wanted); match.hasMatch()) return textOf(now.addDays(match.captured(1).toInt()));
  return textOf(shortDay(wanted, now));
}

QString DateText::brief(const QString& day) const {
  const QDate of = dayOf(day);
  return QLocale().toString(of, of.year() == QDate::currentDate().year() ? u"ddd d MMM"_s : u"ddd d MMM yyyy"_s);
}

QString DateText::today() const { return textOf(QDate::currentDate()); }

QString DateText::plusDays(const QString& day, int days) const { return textOf(dayOf(day).addDays(days)); }

QString DateText::plusMonths(const QString& day, int months) const { return textOf(dayOf(day).addMonths(months)); }

QString DateText::weekStart(const QString& day) const { return textOf(startOfWeek(dayOf(day))); }

QString DateText::monthStart(const QString& day) const {
  const QDate of = dayOf(day);
  return textOf(startOfWeek(QDate(of.year(), of.month(), 1)));
}

int DateText::numberOf(const QString& day) const { return dayOf(day).day(); }

bool DateText::isSameMonth(const QString& day, const QString& other) const {
  return !day.isEmpty() && day.left(7) == other.left(7);
}

QString DateText::spoken(const QString& day) const { return QLocale().toString(dayOf(day), u"dddd d MMMM yyyy"_s); }

QString DateText::month(const QString& day) const {
  const QDate of = dayOf(day);
  return QLocale().standaloneMonthName(of.month()) + u' ' + QString::number(of.year());
}

QStringList DateText::weekdays() const {
  QStringList names;
  for (int i = 0; i < 7; ++i) {
    const int day = (QLocale().firstDayOfWeek() - 1 + i) % 7 + 1;
    names.append(QLocale().standaloneDayName(day, QLocale::ShortFormat).left(2));
  }
  return names;
}
