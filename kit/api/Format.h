#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

/// The few number and date renderings that screens share.
namespace orv::Format {

/// One decimal, half away from zero; a whole result has none.
QString oneDecimal(double value);
/// "%.2f" of the C language, for two decimals: of two equally near ones the even one, and always a point.
QString fixed(double value, int decimals);
/// 9,999 as it stands; 12.5K; 2M.
QString compactCount(qint64 count, const QLocale& locale = QLocale());
/// US dollars without cents.
QString money(double amount, const QLocale& locale = QLocale());
/// "2024-03-07".
QString calendarDay(QDate day);
/// "7 Mar".
QString shortDate(QDate day, const QLocale& locale = QLocale());
/// "7 Mar, 14:05", in the zone that the instant is in.
QString moment(const QDateTime& instant, const QLocale& locale = QLocale());
/// A count with the locale's grouping.
QString grouped(qint64 count, const QLocale& locale = QLocale());
/// Count and noun: "1 step", "2 steps".
QString counted(qint64 count, const QString& one, const QString& many, const QLocale& locale = QLocale());
/// A share in per cent: "2.6%"; "0%" of nothing.
QString rate(qint64 part, qint64 whole);

}  // namespace orv::Format
