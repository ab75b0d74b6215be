#include "kit/api/PlatformDate.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

bool isBareDate(const QString& text) {
  static const QRegularExpression form(QRegularExpression::anchoredPattern(u"[0-9]{4}-[0-9]{2}-[0-9]{2}"_s));
  return form.match(text).hasMatch();
}

}  // namespace

std::optional<QDateTime> parsePlatformDate(const QString& text) {
  // Qt reads many more forms than the service writes, some of them in local time; only these two are an instant.
  static const QRegularExpression timestamp(QRegularExpression::anchoredPattern(
      u"[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}([.,][0-9]+)?(Z|[+-][0-9]{2}:?[0-9]{2})"_s));
  QString full = text;
  if (isBareDate(text))
    full += "T00:00:00Z"_L1;
  else if (!timestamp.match(text).hasMatch())
    return std::nullopt;
  const QDateTime instant = QDateTime::fromString(full, Qt::ISODateWithMs);
  return instant.isValid() ? std::optional(instant.toUTC()) : std::nullopt;
}

std::optional<QDateTime> parsePlatformDate(const std::optional<QString>& text) {
  return text ? parsePlatformDate(*text) : std::nullopt;
}

std::optional<QDate> parseCalendarDay(const QString& text) {
  if (!isBareDate(text)) return std::nullopt;
  const QDate day = QDate::fromString(text, Qt::ISODate);
  return day.isValid() ? std::optional(day) : std::nullopt;
}

QString formatPlatformDate(const QDateTime& instant) { return instant.toUTC().toString(Qt::ISODateWithMs); }

}  // namespace orv
