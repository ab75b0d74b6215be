#include "app/base/EmailAddress.h"

#include <algorithm>

namespace orv {

bool isEmailAddress(QStringView text) {
  const auto at = text.lastIndexOf(u'@');
  const auto domain = text.mid(at + 1);
  const auto isGap = [](QChar c) { return c.isSpace() || c == u',' || c == u';'; };
  return at > 0 && text.count(u'@') == 1 && domain.contains(u'.') && !domain.startsWith(u'.') &&
         !domain.endsWith(u'.') && std::ranges::none_of(text, isGap);
}

}  // namespace orv
