#include "kit/api/PlatformDate.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace orv {

std::optional<QDateTime> parsePlatformDate(const QString& text) {
  // Qt reads many more forms than the service writes, some of them in local time; only these two are an instant.
  static const QRegularExpression bareDate(QRegularExpression::anchoredPattern(u"[0-9]{4}-[0-9]{2}-[0-9]{2}"_s));
  static const QRegularExpression timestamp(QRegularExpression::anchoredPattern(
      u"[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}([.,][0-9]+)?(Z|[+-][0-9]{2}:?[0-9]{2})"_s));
  QString full = text;
  if (bareDate.match(text).hasMatch())
    full += "T00:00:00Z"_L1;
  else if (!timestamp.match(text).hasMatch())
    return std::nullopt;
  const QDateTime instant = QDateTime::fromString(full, Qt::ISODateWithMs);
  return instant.isValid() ? std::optional(instant.toUTC()) : std::nullopt;
}

std::optional<QDateTime> parsePlatformDate(const std::optional<QString>& text) {
  return text ? parsePlatformDate(*text) : std::nullopt;
}

QString formatPlatformDate(const QDateTime& instant) { return instant.toUTC().toString(Qt::ISODateWithMs); }

}  // namespace orv
