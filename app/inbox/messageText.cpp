#include "app/inbox/messageText.h"

#include <QRegularExpression>
#include <QUrl>
#include <algorithm>

#include "app/base/EmailAddress.h"
#include "kit/models/inbox/threadDetail.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr qsizetype linksAtMost = 20;
/// What lies further down is read by nobody who looks for links.
constexpr qsizetype linksWithin = 200'000;
/// So many marked lines are a quotation without anybody saying so.
constexpr qsizetype leastMarked = 3;

bool isBlank(QStringView line) { return line.trimmed().isEmpty(); }
bool isMarked(QStringView line) { return line.trimmed().startsWith(u'>'); }

/// The lines of a body, in segments.
class Folding {
 public:
  explicit Folding(QStringView body) : m_lines(body.split(u'\n')) {}

  QList<TextSegment> segments() {
    for (qsizetype line = 0; line < m_lines.size();) {
      const qsizetype end = quoteEnd(line);
      if (end <= line) {
        ++line;
        continue;
      }
      add(m_begun, line, false);
      add(line, end, true);
      line = m_begun = end;
    }
    add(m_begun, m_lines.size(), false);
    return m_segments;
  }

 private:
  QStringView at(qsizetype line) const { return m_lines[line].trimmed(); }

  qsizetype nextSaid(qsizetype line) const {
    while (line < m_lines.size() && isBlank(m_lines[line])) ++line;
    return line;
  }

  /// Behind the last line of the quotation that begins here; the line itself where none does.
  qsizetype quoteEnd(qsizetype line) const {
    const qsizetype behind = attributionEnd(line);
    if (behind > line) {
      const qsizetype first = nextSaid(behind);
      return first < m_lines.size() && isMarked(m_lines[first]) ? markedEnd(first) : m_lines.size();
    }
    if (!isMarked(m_lines[line])) return line;
    const qsizetype end = markedEnd(line);
    return std::count_if(m_lines.begin() + line, m_lines.begin() + end, isMarked) >= leastMarked ? end : line;
  }

  /// Behind the line that says who wrote what follows. It may be broken in two.
  qsizetype attributionEnd(qsizetype line) const {
    const QStringView text = at(line);
    if (isMarked(text)) return line;
    if (text.endsWith("wrote:"_L1)) return line + 1;
    if (text.startsWith("On "_L1) && line + 1 < m_lines.size() && !isMarked(m_lines[line + 1]) &&
        at(line + 1).endsWith("wrote:"_L1))
      return line + 2;
    return text.startsWith("-----Original Message-----"_L1) ? line + 1 : line;
  }

  qsizetype markedEnd(qsizetype line) const {
    qsizetype end = line;
    for (; line < m_lines.size() && (isMarked(m_lines[line]) || isBlank(m_lines[line])); ++line)
      if (isMarked(m_lines[line])) end = line + 1;
    return end;
  }

  void add(qsizetype from, qsizetype to, bool quoted) {
    while (from < to && isBlank(m_lines[from])) ++from;
    while (from < to && isBlank(m_lines[to - 1])) --to;
    if (from == to) return;
    QString text;
    for (qsizetype line = from; line < to; ++line) {
      QStringView words = m_lines[line];
      if (words.endsWith(u'\r')) words.chop(1);
      if (line > from) text += u'\n';
      text += words;
    }
    m_segments.append({text, quoted});
  }

  QList<QStringView> m_lines;
  qsizetype m_begun = 0;
  QList<TextSegment> m_segments;
};

QString bareLink(QString found) {
  static const QString behind = u".,;:!?'\"*_~”’»"_s;
  while (!found.isEmpty()) {
    const QChar last = found.back();
    const bool closes = (last == u')' && found.count(u'(') < found.count(u')')) ||
                        (last == u']' && found.count(u'[') < found.count(u']'));
    if (!closes && !behind.contains(last)) break;
    found.chop(1);
  }
  return found;
}

QString opened(const QString& found) {
  QUrl url(bareLink(found), QUrl::StrictMode);
  if (!url.isValid() || !url.userInfo().isEmpty()) return {};
  if (url.scheme() == "mailto"_L1) {
    // Whom it is to is enough; the rest could fill in a message.
    url.setQuery(QString());
    url.setFragment(QString());
    return isEmailAddress(url.path()) ? url.toString(QUrl::FullyEncoded) : QString();
  }
  return url.host().isEmpty() ? QString() : url.toString(QUrl::FullyEncoded);
}

QString draftStep(const InboxMessage& message, const QList<Draft>& drafts) {
  const auto draft = std::ranges::find(drafts, message.draftId.value_or(QString()), &Draft::id);
  return draft != drafts.end() && draft->step ? QString::number(*draft->step) : QString();
}

bool wasEdited(const InboxMessage& message, const QList<Draft>& drafts) {
  const auto draft = std::ranges::find(drafts, message.draftId.value_or(QString()), &Draft::id);
  return draft != drafts.end() && draft->edited.value_or(false);
}

}  // namespace

QList<TextSegment> foldQuotes(const QString& body) { return Folding(body).segments(); }

QStringList inPieces(const QString& text, qsizetype most) {
  QStringList pieces;
  for (qsizetype from = 0; from < text.size();) {
    if (text.size() - from <= most + most / 2) {
      pieces.append(text.mid(from));
      break;
    }
    // Not further back: a megabyte without an end would be looked through for every piece.
    const QStringView ahead = QStringView(text).mid(from, most + 1);
    const qsizetype line = ahead.lastIndexOf(u'\n'), word = ahead.lastIndexOf(u' ');
    const bool isLineEnd = line > 0;
    qsizetype end = from + (isLineEnd ? line : word > 0 ? word + 1 : most);
    if (text[end - 1].isHighSurrogate()) --end;
    pieces.append(text.mid(from, end - from));
    // The piece's own end stands for the line's.
    from = isLineEnd ? end + 1 : end;
  }
  return pieces;
}

QStringList linksIn(const QString& text) {
  static const QRegularExpression address(u"\\b(?:https?://|mailto:)[^\\s<>\"]{1,2000}"_s,
                                          QRegularExpression::CaseInsensitiveOption);
  QStringList links;
  auto matches = address.globalMatch(QStringView(text).left(linksWithin));
  while (matches.hasNext() && links.size() < linksAtMost) {
    const QString link = opened(matches.next().captured());
    if (!link.isEmpty() && !links.contains(link)) links.append(link);
  }
  return links;
}

QString messageCaption(const InboxMessage& message, const QList<Draft>& drafts) {
  const QString kind = message.kind.value_or(u"unknown"_s);
  if (kind == "bounce"_L1) return u"Bounce"_s;
  if (kind == "auto_reply"_L1) return u"Auto-reply"_s;
  if (kind == "forward"_L1) return u"Forwarded"_s;
  if (kind == "failed"_L1) return u"Failed"_s;
  if (message.isInbound()) return u"Inbound "_s + kind;
  if (kind == "reply"_L1) return wasEdited(message, drafts) ? u"AI reply (edited)"_s : u"AI reply"_s;
  if (kind == "human"_L1) return u"Manual reply"_s;
  if (kind != "followup"_L1) return u"Outbound "_s + kind;
  const QString step = draftStep(message, drafts);
  return step.isEmpty() ? u"AI follow-up"_s : u"AI follow-up #"_s + step;
}

}  // namespace orv
