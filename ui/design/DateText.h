#pragma once

#include <QtQml/qqmlregistration.h>
#include <QDate>
#include <QObject>
#include <QStringList>

/// What the date field knows of days. In QML a day is its ISO text: a JavaScript date is an instant, which is another
/// day in another zone.
class DateText : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  using QObject::QObject;

  /// The day, or an empty text for what is not exactly a day as YYYY-MM-DD.
  Q_INVOKABLE QString parse(const QString& text) const;
  /// The day that a shorthand means, or an empty text: "tomorrow", "+7", and the short ways to write a day here, where
  /// one without a year is the next such day.
  Q_INVOKABLE QString expand(const QString& text) const;
  /// "Thu 31 Dec", with its year when that is not this one.
  Q_INVOKABLE QString brief(const QString& day) const;
  Q_INVOKABLE QString today() const;
  Q_INVOKABLE QString plusDays(const QString& day, int days) const;
  /// The last day of a month that is shorter.
  Q_INVOKABLE QString plusMonths(const QString& day, int months) const;
  /// The first day of the week that holds the day, as weeks begin here.
  Q_INVOKABLE QString weekStart(const QString& day) const;
  /// The first of the six weeks that show the day's month.
  Q_INVOKABLE QString monthStart(const QString& day) const;
  Q_INVOKABLE int numberOf(const QString& day) const;
  Q_INVOKABLE bool isSameMonth(const QString& day, const QString& other) const;
  /// "Saturday 21 November 2026".
  Q_INVOKABLE QString spoken(const QString& day) const;
  /// "November 2026".
  Q_INVOKABLE QString month(const QString& day) const;
  /// Two letters of each weekday, in the order of the weeks here.
  Q_INVOKABLE QStringList weekdays() const;
};
