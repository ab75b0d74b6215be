#include "ui/design/DateText.h"

#include <QLocale>

#include "kit/api/Format.h"
#include "kit/api/isoDay.h"

using namespace Qt::Literals::StringLiterals;
namespace Format = orv::Format;
using orv::isoDay;

namespace {

QString textOf(QDate day) { return day.isValid() ? Format::calendarDay(day) : QString(); }

QDate startOfWeek(QDate day) { return day.addDays(-((day.dayOfWeek() - QLocale().firstDayOfWeek() + 7) % 7)); }

}  // namespace

QString DateText::parse(const QString& text) const { return textOf(isoDay(text.trimmed())); }

QString DateText::today() const { return textOf(QDate::currentDate()); }

QString DateText::plusDays(const QString& day, int days) const { return textOf(isoDay(day).addDays(days)); }

QString DateText::plusMonths(const QString& day, int months) const { return textOf(isoDay(day).addMonths(months)); }

QString DateText::weekStart(const QString& day) const { return textOf(startOfWeek(isoDay(day))); }

QString DateText::monthStart(const QString& day) const {
  const QDate of = isoDay(day);
  return textOf(startOfWeek(QDate(of.year(), of.month(), 1)));
}

int DateText::numberOf(const QString& day) const { return isoDay(day).day(); }

bool DateText::isSameMonth(const QString& day, const QString& other) const {
  return !day.isEmpty() && day.left(7) == other.left(7);
}

QString DateText::spoken(const QString& day) const { return QLocale().toString(isoDay(day), u"dddd d MMMM yyyy"_s); }

QString DateText::month(const QString& day) const {
  const QDate of = isoDay(day);
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
