#include "app/base/momentText.h"

#include <QLocale>

#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString momentText(const std::optional<QString>& instant, const QDateTime& now) {
  const auto when = parsePlatformDate(instant);
  if (!when) return {};
  const QDateTime local = when->toLocalTime();
  if (local.date() != now.toLocalTime().date()) return Format::moment(local);
  return u"today, "_s + QLocale().toString(local.time(), u"HH:mm"_s);
}

}  // namespace orv
