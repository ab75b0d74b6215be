#include "app/base/EmailAddress.h"

#include <QRegularExpression>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv {

bool isEmailAddress(QStringView text) {
  const auto at = text.lastIndexOf(u'@');
  const auto domain = text.mid(at + 1);
  const auto isGap = [](QChar c) { return c.isSpace() || c == u',' || c == u';'; };
  return at > 0 && text.count(u'@') == 1 && domain.contains(u'.') && !domain.startsWith(u'.') &&
         !domain.endsWith(u'.') && std::ranges::none_of(text, isGap);
}

bool looksLikeAddress(const QString& text) {
  // White space is that of every script.
  static const QRegularExpression pattern(QRegularExpression::anchoredPattern(uR"([^\s@]+@[^\s@]+\.[^\s@]+)"_s),
                                          QRegularExpression::UseUnicodePropertiesOption);
  return pattern.match(text).hasMatch();
}

}  // namespace orv
