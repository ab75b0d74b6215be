#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

namespace orv {

/// The instant of an ISO 8601 text, in UTC: a full timestamp with its zone (fractional seconds allowed), or a bare
/// date, which is midnight UTC. Nothing for any other text.
std::optional<QDateTime> parsePlatformDate(const QString& text);

/// For what is shown: a date that cannot be read is as absent as one that is not there.
std::optional<QDateTime> parsePlatformDate(const std::optional<QString>& text);

/// The day of a text that is YYYY-MM-DD whole. Nothing for any other text.
std::optional<QDate> parseCalendarDay(const QString& text);

/// ISO 8601 in UTC, with milliseconds.
QString formatPlatformDate(const QDateTime& instant);

}  // namespace orv
