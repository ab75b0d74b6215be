#include "app/campaigns/TextVariables.h"

#include <QStringList>
#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr qsizetype longestName = 64;

bool isBrace(QChar c) { return c == u'{' || c == u'}'; }

/// Finds the next place of something, looking at each place of the text once however often it is asked, as long as it
/// is asked from left to right.
template <class Predicate>
class Next {
 public:
  Next(QStringView text, Predicate predicate) : m_text(text), m_predicate(predicate) {}
  /// The text's length when there is none.
  qsizetype from(qsizetype place) {
    if (place > m_found)
      m_found = place;
    else if (m_asked)
      return m_found;
    m_asked = true;
    while (m_found < m_text.size() && !m_predicate(m_text[m_found])) ++m_found;
    return m_found;
  }

 private:
  QStringView m_text;
  Predicate m_predicate;
  qsizetype m_found = 0;
  bool m_asked = false;
};

struct Span {
  qsizetype start;
  qsizetype end;
  qsizetype length() const { return end - start; }
};

Span withoutOuterSpace(QStringView text, Span span) {
  while (span.start < span.end && text[span.start].isSpace()) ++span.start;
  while (span.start < span.end && text[span.end - 1].isSpace()) --span.end;
  return span;
}

QString textOf(QStringView text, Span span) { return text.sliced(span.start, span.length()).toString(); }

TextEdit replaced(Span span, const QString& text, Span selectedInText) {
  return {span.start, span.length(), text, span.start + selectedInText.start, span.start + selectedInText.end};
}

qsizetype starsBefore(QStringView text, qsizetype place) {
  qsizetype stars = 0;
  while (stars < place && text[place - stars - 1] == u'*') ++stars;
  return stars;
}

qsizetype starsFrom(QStringView text, qsizetype place) {
  qsizetype stars = 0;
  while (place + stars < text.size() && text[place + stars] == u'*') ++stars;
  return stars;
}

/// One star is italic, two are bold, three are both.
bool hasEmphasis(qsizetype stars, qsizetype marker) { return marker == 2 ? stars >= 2 : stars % 2 == 1; }

/// The line before `place` has a pair open there.
bool isOpen(QStringView text, qsizetype place, qsizetype marker) {
  bool open = false;
  for (qsizetype at = text.first(place).lastIndexOf(u'\n') + 1; at < place;) {
    const qsizetype stars = std::min(starsFrom(text, at), place - at);
    if (hasEmphasis(stars, marker)) open = !open;
    at += std::max(stars, qsizetype(1));
  }
  return open;
}

TextEdit emphasized(QStringView text, Span selection, qsizetype marker) {
  // Who has written what is to stand out goes on behind it.
  const qsizetype end = selection.end;
  const bool ends = selection.length() == 0 && starsBefore(text, end) == 0 && hasEmphasis(starsFrom(text, end), marker);
  if (ends && isOpen(text, end, marker)) return replaced(selection, {}, {marker, marker});
  if (const Span bare = withoutOuterSpace(text, selection); bare.length() > 0) selection = bare;
  const QString chosen = textOf(text, selection);
  const qsizetype inside = std::min(starsFrom(chosen, 0), starsBefore(chosen, chosen.size()));
  if (chosen.size() > 2 * inside && hasEmphasis(inside, marker)) {
    const QString plain = chosen.sliced(marker, chosen.size() - 2 * marker);
    return replaced(selection, plain, {0, plain.size()});
  }
  const qsizetype around = std::min(starsBefore(text, selection.start), starsFrom(text, selection.end));
  if (hasEmphasis(around, marker))
    return replaced({selection.start - marker, selection.end + marker}, chosen, {0, chosen.size()});
  const QString stars(marker, u'*');
  return replaced(selection, stars + chosen + stars, {marker, marker + chosen.size()});
}

/// Length of the list mark that begins the line: "- " or "12. ".
qsizetype bulletLength(QStringView line) { return line.startsWith("- "_L1) ? 2 : 0; }

qsizetype numberLength(QStringView line) {
  qsizetype digits = 0;
  while (digits < line.size() && line[digits] >= u'0' && line[digits] <= u'9') ++digits;
  return digits > 0 && line.sliced(digits).startsWith(". "_L1) ? digits + 2 : 0;
}

Span wholeLines(QStringView text, Span selection) {
  // A selection that ends right after a line break does not mean the line that begins there.
  if (selection.length() > 0 && text[selection.end - 1] == u'\n') --selection.end;
  const qsizetype before = text.first(selection.start).lastIndexOf(u'\n');
  const qsizetype after = text.indexOf(u'\n', selection.end);
  return {before + 1, after < 0 ? text.size() : after};
}

TextEdit listed(QStringView text, Span selection, bool numbered) {
  const Span lines = wholeLines(text, selection);
  QStringList all = textOf(text, lines).split(u'\n');
  const auto isBlank = [&all](const QString& line) { return all.size() > 1 && line.trimmed().isEmpty(); };
  const bool isListed = std::ranges::all_of(all, [&](const QString& line) {
    return isBlank(line) || (numbered ? numberLength(line) : bulletLength(line)) > 0;
  });
  int number = 0;
  for (QString& line : all) {
    if (isBlank(line)) continue;
    line.remove(0, std::max(bulletLength(line), numberLength(line)));
    if (!isListed) line.prepend(numbered ? u"%1. "_s.arg(++number) : u"- "_s);
  }
  const QString changed = all.join(u'\n');
  if (selection.length() > 0) return replaced(lines, changed, {0, changed.size()});
  const qsizetype cursor = std::max(qsizetype(0), selection.end - lines.start + changed.size() - lines.length());
  return replaced(lines, changed, {cursor, cursor});
}

TextEdit spun(QStringView text, Span selection) {
  const QString group = u'{' + textOf(text, selection) + "|}"_L1;
  // Where the next option goes: the first one when there is none yet.
  const qsizetype cursor = selection.length() > 0 ? group.size() - 1 : 1;
  return replaced(selection, group, {cursor, cursor});
}

TextEdit linked(QStringView text, Span selection) {
  const QString placeholder = u"link text"_s;
  const QString chosen = textOf(text, selection);
  const bool isAddress = chosen.startsWith("https://"_L1) || chosen.startsWith("http://"_L1);
  const bool isLabel = !chosen.isEmpty() && !isAddress;
  const QString label = isLabel ? chosen : placeholder;
  const QString link = u'[' + label + "]("_L1 + (isAddress ? chosen : u"https://"_s) + u')';
  if (!isLabel) return replaced(selection, link, {1, 1 + label.size()});
  return replaced(selection, link, {link.size() - 1, link.size() - 1});
}

constexpr char16_t beginningOfFrame = 0xfdd0, endOfFrame = 0xfdd1;

/// Length of the line end at `place`: whatever a text document takes for one. 0 when there is none.
qsizetype lineEndLength(QStringView text, qsizetype place) {
  switch (text[place].unicode()) {
    case u'\r':
      return text.sliced(place).startsWith("\r\n"_L1) ? 2 : 1;
    case u'\n':
    case QChar::ParagraphSeparator:
    case beginningOfFrame:
    case endOfFrame:
      return 1;
    default:
      return 0;
  }
}

/// Where in `text` the place is that a control which shows the text knows as `shown`.
qsizetype placeIn(QStringView text, qsizetype shown) {
  qsizetype place = 0;
  while (shown-- > 0) place += std::max(lineEndLength(text, place), qsizetype(1));
  return place;
}

}  // namespace

QList<TextMark> marksIn(QStringView text) {
  Next closing(text, [](QChar c) { return c == u'}'; });
  Next brace(text, isBrace);
  Next opening(text, [](QChar c) { return c == u'{'; });
  QList<TextMark> marks;
  for (qsizetype at = opening.from(0); at < text.size();) {
    qsizetype end = at;
    auto kind = TextMark::Kind::variable;
    if (text.sliced(at).startsWith("{{"_L1)) {
      const qsizetype close = closing.from(at + 2);
      if (close > at + 2 && text.sliced(close).startsWith("}}"_L1)) end = close + 2;
    }
    if (end == at) {
      const qsizetype close = brace.from(at + 1);
      const QStringView options = text.sliced(at + 1, close - at - 1);
      if (close < text.size() && text[close] == u'}' && options.contains(u'|')) end = close + 1;
      kind = TextMark::Kind::spin;
    }
    if (end > at) marks.append({kind, at, end - at});
    at = opening.from(std::max(end, at + 1));
  }
  return marks;
}

std::optional<TypedVariable> variableBeingTyped(QStringView text, qsizetype cursor) {
  const QStringView before = text.first(cursor);
  const qsizetype start = before.lastIndexOf("{{"_L1);
  if (start < 0) return std::nullopt;
  const QStringView name = before.sliced(start + 2);
  const bool isOver = std::ranges::any_of(name, [](QChar c) { return isBrace(c) || c == u'\n'; });
  if (isOver || name.size() > longestName) return std::nullopt;
  return TypedVariable{start, name.toString()};
}

QString edited(const QString& text, const TextEdit& edit) {
  return QString(text).replace(edit.start, edit.length, edit.text);
}

TextEdit difference(QStringView before, QStringView after) {
  qsizetype start = 0, end = 0;
  const qsizetype shorter = std::min(before.size(), after.size());
  while (start < shorter && after[start] == before[start]) ++start;
  while (end < shorter - start && after[after.size() - 1 - end] == before[before.size() - 1 - end]) ++end;
  // Never between the halves of one character.
  while (start > 0 && after[start - 1].isHighSurrogate()) --start;
  while (end > 0 && after[after.size() - end].isLowSurrogate()) --end;
  const QString fresh = after.sliced(start, after.size() - start - end).toString();
  return {start, before.size() - start - end, fresh, start + fresh.size(), start + fresh.size()};
}

QString withLineFeeds(const QString& text) {
  QString fed;
  fed.reserve(text.size());
  for (qsizetype place = 0; place < text.size();) {
    const qsizetype lineEnd = lineEndLength(text, place);
    fed.append(lineEnd > 0 ? QChar(u'\n') : text[place]);
    place += std::max(lineEnd, qsizetype(1));
  }
  return fed;
}

QString followed(const QString& text, const QString& before, const QString& after) {
  if (text == before) return after;
  const TextEdit change = difference(before, after);
  const qsizetype start = placeIn(text, change.start), end = placeIn(text, change.start + change.length);
  QString fresh = change.text;
  // New lines end as the others do, so that taking back the removal of some brings them back as they were.
  if (text.contains("\r\n"_L1)) fresh.replace(u'\n', "\r\n"_L1);
  return text.first(start) + fresh + text.sliced(end);
}

TextEdit variableEdit(QStringView text, qsizetype selectionStart, qsizetype selectionEnd, const QString& name) {
  Span span{selectionStart, selectionEnd};
  const auto typed = span.length() == 0 ? variableBeingTyped(text, selectionEnd) : std::nullopt;
  if (typed) {
    span.start = typed->start;
    // In the middle of a variable that is closed already, the rest of it goes as well.
    const QStringView behind = text.sliced(selectionEnd);
    const auto rest = std::ranges::find_if(behind, [](QChar c) { return isBrace(c) || c == u'\n'; }) - behind.begin();
    if (behind.sliced(rest).startsWith("}}"_L1)) span.end += rest + 2;
  }
  const QString variable = "{{"_L1 + name + "}}"_L1;
  return replaced(span, variable, {variable.size(), variable.size()});
}

TextEdit formatEdit(FormatCommand command, QStringView text, qsizetype selectionStart, qsizetype selectionEnd) {
  const Span selection{selectionStart, selectionEnd};
  switch (command) {
    case FormatCommand::bold:
      return emphasized(text, selection, 2);
    case FormatCommand::italic:
      return emphasized(text, selection, 1);
    case FormatCommand::spinText:
      return spun(text, selection);
    case FormatCommand::bullets:
      return listed(text, selection, false);
    case FormatCommand::numbers:
      return listed(text, selection, true);
    case FormatCommand::link:
      return linked(text, selection);
  }
  Q_UNREACHABLE();
}

}  // namespace orv
