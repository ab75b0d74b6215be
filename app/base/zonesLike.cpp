#include "app/base/zonesLike.h"

#include "app/base/TimeZones.h"

namespace orv {
namespace {

constexpr qsizetype suggestedAtMost = 50;

}  // namespace

QList<Choice> zonesLike(const QString& text, const QDateTime& now) {
  const QString wanted = text.trimmed().replace(u' ', u'_');
  QList<Choice> found;
  if (wanted.isEmpty() || isTimeZone(wanted)) return found;
  for (const QString& zone : timeZoneNames()) {
    if (!zone.contains(wanted, Qt::CaseInsensitive)) continue;
    found.append({.key = zone, .label = zone, .detail = timeThere(zone, now)});
    if (found.size() == suggestedAtMost) break;
  }
  return found;
}

}  // namespace orv
