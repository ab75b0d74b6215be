#include "app/shell/TextPatterns.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace orv {

bool looksLikeAddress(const QString& text) {
  static const QRegularExpression pattern(QRegularExpression::anchoredPattern(uR"([^\s@]+@[^\s@]+\.[^\s@]+)"_s));
  return pattern.match(text).hasMatch();
}

}  // namespace orv
