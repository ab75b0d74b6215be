#include "kit/api/isoDay.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace orv {

QDate isoDay(const QString& text) {
  static const QRegularExpression shape(u"\\A[0-9]{4}-[0-9]{2}-[0-9]{2}\\z"_s);
  return shape.match(text).hasMatch() ? QDate::fromString(text, Qt::ISODate) : QDate();
}

}  // namespace orv
