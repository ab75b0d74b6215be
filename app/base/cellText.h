#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

namespace orv {

/// What a cell shows that has nothing to show.
inline const QString noValue = QStringLiteral("–");

/// How long what is archived can be restored, in days.
constexpr int archiveDays = 30;

/// The instant's day here, in short, or that of some days later; `noValue` without an instant.
inline QString shortDay(const std::optional<QDateTime>& instant, int daysLater = 0) {
  return instant ? Format::shortDate(instant->toLocalTime().date().addDays(daysLater)) : noValue;
}
/// The same of an instant as the service writes it.
inline QString shortDay(const std::optional<QString>& instant, int daysLater = 0) {
  return shortDay(parsePlatformDate(instant), daysLater);
}

}  // namespace orv
