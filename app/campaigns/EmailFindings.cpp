#include "app/campaigns/EmailFindings.h"

#include <QHash>
#include <QRegularExpression>
#include <algorithm>

#include "app/base/shownName.h"
#include "app/campaigns/TextVariables.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Place = EmailFindings::Place;
const auto signatureVariable = u"accountSignature"_s;
constexpr qsizetype longestExcerpt = 40;
/// Stand for variables while a text is taken apart; nobody writes them.
constexpr char16_t firstMark = u'\ue000', lastMark = u'\uf8ff';

const QRegularExpression& variablePattern() {
  static const QRegularExpression pattern(uR"(\{\{\s*([^{}]+?)\s*\}\})"_s);
  return pattern;
}

/// A variable without a value, at the place of the rendered text where it would stand.
struct Gap {
  QString name;
  qsizetype at = 0;
};

/// What the service told of the lead.
class Values {
 public:
  explicit Values(const std::optional<QList<PreviewResponse::Variable>>& variables) : m_isTold(variables.has_value()) {
    if (!variables) return;
    for (const auto& variable : *variables) m_values.insert(variable.name, variable.value.value_or(QString()));
  }
  bool isKnown(const QString& name) const { return m_values.contains(name); }
  bool isMissing(const QString& name) const { return m_isTold && m_values.value(name).trimmed().isEmpty(); }
  QString of(const QString& name) const { return m_values.value(name); }

 private:
  bool m_isTold;
  QHash<QString, QString> m_values;
};

/// Finds a text again in what was rendered of it, and so the places where nothing was put in.
class Alignment {
 public:
  Alignment(const QString& written, const Values& values) : m_values(values) {
    QString text;
    qsizetype end = 0;
    for (auto matches = variablePattern().globalMatch(written); matches.hasNext();) {
      const auto match = matches.next();
      text += written.mid(end, match.capturedStart() - end) + QChar(char16_t(firstMark + m_names.size()));
      end = match.capturedEnd();
      m_names.append(match.captured(1));
      if (m_names.size() > lastMark - firstMark) return;
    }
    m_pattern = spun(text + written.mid(end));
  }

  const QStringList& names() const { return m_names; }

  /// Nothing when the service made something else of the text.
  std::optional<QList<Gap>> gapsIn(const QString& rendered) const {
    const QRegularExpression pattern(QRegularExpression::anchoredPattern(u"\\s*"_s + m_pattern + u"\\s*"_s));
    const auto match = pattern.match(rendered);
    if (!match.hasMatch()) return std::nullopt;
    QList<Gap> gaps;
    // A group of options has those of the one that was taken.
    for (qsizetype i = 0; i < m_missing.size(); ++i)
      if (match.capturedStart(int(i) + 1) >= 0) gaps.append({m_missing[i], match.capturedStart(int(i) + 1)});
    return gaps;
  }

 private:
  QString spun(const QString& text) {
    static const QRegularExpression group(uR"(\{([^{}|]*(?:\|[^{}|]*)+)\})"_s);
    QString pattern;
    qsizetype end = 0;
    for (auto matches = group.globalMatch(text); matches.hasNext();) {
      const auto match = matches.next();
      pattern += literal(QStringView(text).mid(end, match.capturedStart() - end));
      QStringList options;
      for (const QString& option : match.captured(1).split(u'|')) options.append(literal(option));
      pattern += u"(?:"_s + options.join(u'|') + u')';
      end = match.capturedEnd();
    }
    return pattern + literal(QStringView(text).mid(end));
  }

  /// The service may keep blanks around what it leaves out, or not.
  QString literal(QStringView text) {
    QString pattern;
    for (const QChar letter : text) {
      const qsizetype name = letter.unicode() - firstMark;
      if (letter.isSpace()) {
        if (!pattern.endsWith("\\s*"_L1)) pattern += u"\\s*"_s;
      } else if (name < 0 || name >= m_names.size()) {
        pattern += QRegularExpression::escape(QString(letter));
      } else if (m_values.isMissing(m_names[name])) {
        m_missing.append(m_names[name]);
        pattern += u"()"_s;
      } else {
        pattern += literal(m_values.of(m_names[name]));
      }
    }
    return pattern;
  }

  const Values& m_values;
  QStringList m_names;
  /// By group of the pattern.
  QStringList m_missing;
  QString m_pattern;
};

struct LooseBrace {
  qsizetype at = 0;
  bool isOpen = false;
};

std::optional<LooseBrace> looseBrace(QStringView text) {
  QList<qsizetype> open;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (text[at] == u'{') open.append(at);
    if (text[at] != u'}') continue;
    if (open.isEmpty()) return LooseBrace{at, false};
    open.removeLast();
  }
  return open.isEmpty() ? std::nullopt : std::optional(LooseBrace{open.first(), true});
}

/// The word that the brace stands at, without what ends a sentence.
Place around(QStringView text, LooseBrace brace) {
  qsizetype start = brace.at, end = brace.at + 1;
  if (brace.isOpen)
    while (end < text.size() && !text[end].isSpace() && end - start < longestExcerpt) ++end;
  else
    while (start > 0 && !text[start - 1].isSpace() && end - start < longestExcerpt) --start;
  while (brace.isOpen && end > start + 1 && u".,;:!?)"_s.contains(text[end - 1])) --end;
  return {start, end - start};
}

/// "Around a third": a word before the place, and two behind it.
QString readingAt(const QString& text, qsizetype at) {
  const QString before = text.first(at).section(u'\n', -1).simplified().section(u' ', -1);
  const QString after = text.mid(at).section(u'\n', 0, 0).simplified().section(u' ', 0, 1);
  return (before + u' ' + after).trimmed();
}

QString withoutEmptyLines(const QString& text) {
  QStringList lines = withLineFeeds(text).split(u'\n');
  lines.removeIf([](const QString& line) { return line.trimmed().isEmpty(); });
  return lines.join(u'\n');
}

class Search {
 public:
  Search(const QcPreview& rendered, const EmailTexts& written, const Values& values)
      : m_rendered(rendered), m_written(written), m_values(values) {
    m_found.lines = rendered.warnings;
    m_found.body = withoutEmptyLines(rendered.body);
  }

  EmailFindings run(bool needsSubject) {
    const QList<Gap> inBody = gaps(m_written.body, m_found.body);
    m_found.subjectIsWrong = !gaps(m_written.subject, m_rendered.subject).isEmpty();
    if (!inBody.isEmpty()) m_found.reading = readingAt(m_found.body, inBody.first().at);
    if (const auto place = loose(m_found.body)) m_found.wrong.append(*place);
    if (loose(m_rendered.subject)) m_found.subjectIsWrong = true;
    leftOver();
    if (needsSubject && m_rendered.subject.trimmed().isEmpty()) {
      m_found.subjectIsWrong = true;
      say(u"The subject is empty."_s);
    }
    if (m_found.body.isEmpty()) say(u"The email has no text."_s);
    putNotes(inBody);
    return std::move(m_found);
  }

 private:
  void say(const QString& line) {
    if (!m_found.lines.contains(line)) m_found.lines.append(line);
  }

  /// The gaps of one text, told of where the service did not.
  QList<Gap> gaps(const QString& written, const QString& rendered) {
    const Alignment alignment(written, m_values);
    const auto found = alignment.gapsIn(rendered);
    QStringList missing = alignment.names();
    missing.removeIf([&](const QString& name) {
      return !m_values.isMissing(name) ||
             (found && std::ranges::none_of(*found, [&](const Gap& gap) { return gap.name == name; }));
    });
    missing.removeDuplicates();
    for (const QString& name : missing) {
      if (m_values.isKnown(name) && name != signatureVariable) m_found.inLead = true;
      const bool isTold =
          std::ranges::any_of(m_rendered.warnings, [&](const QString& line) { return line.contains(name); });
      if (isTold) continue;
      const QString shown = shownName(name);
      say(!m_values.isKnown(name)     ? u"No variable is called “%1”."_s.arg(shown)
          : name == signatureVariable ? u"The inbox has no signature."_s
                                      : u"The lead has no %1."_s.arg(shown));
    }
    return found.value_or(QList<Gap>());
  }

  std::optional<Place> loose(const QString& rendered) {
    const auto brace = looseBrace(rendered);
    if (!brace) return std::nullopt;
    const Place place = around(rendered, *brace);
    QString in;
    for (auto matches = variablePattern().globalMatch(m_written.subject + m_written.body); matches.hasNext();)
      if (const QString name = matches.next().captured(1); looseBrace(m_values.of(name))) in = name;
    if (!in.isEmpty()) m_found.inLead = true;
    say((brace->isOpen ? u"A brace is opened and never closed"_s : u"A brace is closed and never opened"_s) +
        (in.isEmpty() ? QString() : u" in "_s + shownName(in)) + u": “"_s +
        shownName(rendered.mid(place.start, place.length)) + u"”."_s);
    return place;
  }

  /// What is still written as the editor has it.
  void leftOver() {
    for (const TextMark& mark : marksIn(m_found.body)) {
      m_found.wrong.append({mark.start, mark.length});
      say(u"“%1” stands there as it was written."_s.arg(shownName(m_found.body.mid(mark.start, mark.length))));
    }
    std::ranges::sort(m_found.wrong, {}, &Place::start);
  }

  void putNotes(QList<Gap> gaps) {
    std::ranges::stable_sort(gaps, {}, &Gap::at);
    // From the end on, so that the places before stay where they are.
    for (qsizetype i = gaps.size(); i-- > 0;) {
      const QString note = shownName(gaps[i].name) + u" is empty"_s;
      QString& body = m_found.body;
      const auto isBlank = [&body](qsizetype at) { return at < 0 || at >= body.size() || body[at].isSpace(); };
      qsizetype at = gaps[i].at;
      // Between the two blanks that what is missing has left, if both are there.
      if (at >= 2 && isBlank(at - 1) && isBlank(at - 2)) --at;
      const QString before = isBlank(at - 1) ? QString() : u" "_s;
      const QString after = isBlank(at) || body[at].isPunct() ? QString() : u" "_s;
      body.insert(at, before + note + after);
      for (Place& place : m_found.wrong)
        if (place.start >= at) place.start += before.size() + note.size() + after.size();
      m_found.wrong.append({at + before.size(), note.size()});
    }
    std::ranges::sort(m_found.wrong, {}, &Place::start);
  }

  const QcPreview& m_rendered;
  const EmailTexts& m_written;
  const Values& m_values;
  EmailFindings m_found;
};

}  // namespace

EmailFindings findingsIn(const QcPreview& rendered, const EmailTexts& written,
                         const std::optional<QList<PreviewResponse::Variable>>& variables, bool needsSubject) {
  const Values values(variables);
  return Search(rendered, written, values).run(needsSubject);
}

}  // namespace orv
