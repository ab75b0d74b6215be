#include "app/base/shownName.h"

#include <QVarLengthArray>
#include <algorithm>

#include "kit/api/plainText.h"

namespace orv {
namespace {

constexpr qsizetype longestName = 200;
constexpr QChar alone(u'\u2068'), aloneEnds(u'\u2069'), embeddingEnds(u'\u202c');

/// Nearly every name: nothing from where the scripts written from right to left begin.
bool isHarmless(const QString& name) {
  return name.size() <= longestName &&
         std::ranges::all_of(name, [](QChar c) { return c >= u' ' && c < u'\u0590' && (c < u'\x7f' || c > u'\x9f'); });
}

bool opensEmbedding(QChar c) { return c == u'\u202a' || c == u'\u202b' || c == u'\u202d' || c == u'\u202e'; }
bool opensIsolate(QChar c) { return c >= u'\u2066' && c <= u'\u2068'; }

/// What ends a line or has no form of its own; the direction controls have a way of theirs.
bool isBlank(QChar c) {
  return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
         c.category() == QChar::Separator_Paragraph;
}

/// Makes every direction control visible that has no counterpart.
void showUnpaired(QString& text) {
  QVarLengthArray<qsizetype, 16> open;
  const auto close = [&](bool (*opens)(QChar), qsizetype at) {
    const auto found = std::find_if(open.rbegin(), open.rend(), [&](qsizetype each) { return opens(text[each]); });
    // An isolate's end closes the embeddings inside it as well, which have none of their own then; an embedding ends
    // only where no isolate begun after it still holds.
    const bool reaches = found != open.rend() && (opens == opensIsolate || found == open.rbegin());
    if (!reaches) {
      text[at] = QChar::ReplacementCharacter;
      return;
    }
    for (auto inner = open.rbegin(); inner != found; ++inner) text[*inner] = QChar::ReplacementCharacter;
    open.resize(open.rend() - found - 1);
  };
  for (qsizetype at = 0; at < text.size(); ++at) {
    const QChar c = text[at];
    if (opensEmbedding(c) || opensIsolate(c))
      open.append(at);
    else if (c == embeddingEnds)
      close(opensEmbedding, at);
    else if (c == aloneEnds)
      close(opensIsolate, at);
  }
  for (const qsizetype at : open) text[at] = QChar::ReplacementCharacter;
}

/// Whether what stands beside it may change its place.
bool turns(const QString& text) {
  for (qsizetype at = 0; at < text.size(); ++at) {
    const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size();
    const char32_t letter = isPair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : char32_t(text[at].unicode());
    switch (QChar::direction(letter)) {
      case QChar::DirR:
      case QChar::DirAL:
      case QChar::DirAN:
      case QChar::DirLRE:
      case QChar::DirLRO:
      case QChar::DirRLE:
      case QChar::DirRLO:
      case QChar::DirLRI:
      case QChar::DirRLI:
      case QChar::DirFSI:
        return true;
      default:
        // The marks have the direction of the letters that they stand for.
        if (letter == u'\u200e') return true;
    }
  }
  return false;
}

/// One isolate holds all of it.
bool isAlone(const QString& text) {
  if (!text.startsWith(alone)) return false;
  int depth = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    depth += opensIsolate(text[at]);
    depth -= text[at] == aloneEnds;
    if (depth == 0) return at == text.size() - 1;
  }
  return false;
}

QString inOneLine(const QString& name, qsizetype most) {
  QString text = cutTo(name, most);
  std::ranges::replace_if(text, isBlank, QChar(u' '));
  showUnpaired(text);
  return text;
}

}  // namespace

QString shownName(const QString& name) {
  if (isHarmless(name)) return name;
  const QString text = inOneLine(name, longestName);
  return turns(text) && !isAlone(text) ? alone + inOneLine(name, longestName - 2) + aloneEnds : text;
}

}  // namespace orv
