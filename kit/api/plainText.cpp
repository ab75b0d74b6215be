#include "kit/api/plainText.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr qsizetype longestId = 128;
/// 4 kB with the time and the category that stand before it.
constexpr qsizetype longestLine = 4000;
const auto ellipsis = u"…"_s;

/// Also what ends a line or turns the direction of those that follow, in whatever shows the log.
bool isEscaped(QChar c) {
  return c.category() == QChar::Other_Control || c.category() == QChar::Other_Format ||
         c.category() == QChar::Separator_Line || c.category() == QChar::Separator_Paragraph;
}

QString escaped(QChar c) { return u"\\u%1"_s.arg(c.unicode(), 4, 16, QChar(u'0')); }

}  // namespace

QString cutTo(const QString& text, qsizetype most) {
  if (text.size() <= most) return text;
  qsizetype end = most - ellipsis.size();
  if (end > 0 && text[end - 1].isHighSurrogate()) --end;
  return text.first(end) + ellipsis;
}

bool isPlainId(QStringView text) {
  return !text.isEmpty() && text.size() <= longestId &&
         std::ranges::all_of(text, [](QChar c) { return c >= u' ' && c < u'\x7f'; });
}

QString logLine(const QString& text) {
  QString line;
  qsizetype bytes = 0;
  for (const QChar c : text) {
    // Three bytes are the most that one unit of UTF-16 comes to.
    bytes += isEscaped(c) ? 6 : c.unicode() < 0x80 ? 1 : 3;
    if (bytes > longestLine - 3) return line + ellipsis;
    if (isEscaped(c))
      line += escaped(c);
    else
      line += c;
  }
  return line;
}

}  // namespace orv
