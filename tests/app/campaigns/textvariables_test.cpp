#include <QRegularExpression>
#include <QTest>

#include "app/campaigns/TextVariables.h"
#include "tests/support/seed.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A text with its selection between "‹" and "›", or its cursor at "‸".
struct Marked {
  QString text;
  qsizetype start = 0;
  qsizetype end = 0;

  explicit Marked(QString marked) : text(std::move(marked)) {
    start = text.indexOf(u'‹');
    if (start < 0) {
      start = end = text.indexOf(u'‸');
      text.remove(u'‸');
      return;
    }
    text.remove(u'‹');
    end = text.indexOf(u'›');
    text.remove(u'›');
  }
};

QString marked(QString text, qsizetype start, qsizetype end) {
  if (start == end) return text.insert(start, u'‸');
  return text.insert(end, u'›').insert(start, u'‹');
}

QString afterwards(const Marked& before, const TextEdit& edit) {
  return marked(edited(before.text, edit), edit.selectionStart, edit.selectionEnd);
}

}  // namespace

class TextVariablesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void marksVariablesAndSpinGroups_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("marks");
    QTest::newRow("both") << u"{Hi|Hello} {{firstName}},"_s
                          << QStringList{u"spin {Hi|Hello}"_s, u"variable {{firstName}}"_s};
    QTest::newRow("options alone count") << u"{Hi} {|}"_s << QStringList{u"spin {|}"_s};
    QTest::newRow("a variable inside a group")
        << u"{Hi {{firstName}}|Hello}"_s << QStringList{u"variable {{firstName}}"_s};
    QTest::newRow("a group inside a group") << u"{a|{b|c}}"_s << QStringList{u"spin {b|c}"_s};
    QTest::newRow("unterminated") << u"{{first} {a|b {{c"_s << QStringList();
    QTest::newRow("nothing named") << u"{{}} {{ }}"_s << QStringList{u"variable {{ }}"_s};
    QTest::newRow("over a line end") << u"{a\n|b}"_s << QStringList{u"spin {a\n|b}"_s};
    QTest::newRow("pairs and marks around")
        << u"😀{😀|é}👍🏽{{naïve🙂}}"_s << QStringList{u"spin {😀|é}"_s, u"variable {{naïve🙂}}"_s};
    QTest::newRow("right to left") << u"שלום {{שם}}"_s << QStringList{u"variable {{שם}}"_s};
  }
  void marksVariablesAndSpinGroups() {
    QFETCH(QString, text);
    QStringList marks;
    for (const TextMark& mark : marksIn(text))
      marks.append((mark.kind == TextMark::Kind::spin ? u"spin "_s : u"variable "_s) +
                   text.sliced(mark.start, mark.length));
    QTEST(marks, "marks");
  }

  /// The pattern itself takes seconds over a long group that nobody closed, but it says what is right.
  void marksWhatThePatternMatches() {
    static const QRegularExpression pattern(uR"(\{\{[^}]+\}\}|\{[^{}]*\|[^{}]*\})"_s);
    const QStringList pieces{u"{"_s, u"{"_s, u"{{"_s, u"}"_s, u"}"_s, u"}}"_s, u"|"_s, u"a"_s, u"😀"_s, u"\n"_s};
    QRandomGenerator random(printedSeed());
    for (int run = 0; run < 20'000; ++run) {
      QString text;
      for (int i = random.bounded(24); i > 0; --i) text += pieces[random.bounded(int(pieces.size()))];
      QList<std::pair<qsizetype, qsizetype>> expected, found;
      for (auto match = pattern.globalMatch(text); match.hasNext();) {
        const auto one = match.next();
        expected.append({one.capturedStart(), one.capturedLength()});
      }
      for (const TextMark& mark : marksIn(text)) found.append({mark.start, mark.length});
      QVERIFY2(found == expected, qPrintable(text));
    }
  }

  void knowsWhichVariableIsBeingTyped_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("typed");
    QTest::newRow("just begun") << u"Hi {{‸"_s << u"3:"_s;
    QTest::newRow("some of the name") << u"Hi {{first‸ there"_s << u"3:first"_s;
    QTest::newRow("behind emoji") << u"👍🏽{{x‸"_s << u"4:x"_s;
    QTest::newRow("one brace") << u"Hi {‸"_s << u"none"_s;
    QTest::newRow("closed") << u"{{a}}‸"_s << u"none"_s;
    QTest::newRow("half closed") << u"{{a}‸"_s << u"none"_s;
    QTest::newRow("between the braces") << u"{‸{a"_s << u"none"_s;
    QTest::newRow("in one that is closed already") << u"{{fi‸rst}}"_s << u"0:fi"_s;
    QTest::newRow("a line ends it") << u"{{a\nb‸"_s << u"none"_s;
    QTest::newRow("left open long ago") << u"{{"_s + QString(65, u'x') + u'‸' << u"none"_s;
  }
  void knowsWhichVariableIsBeingTyped() {
    QFETCH(QString, text);
    const Marked at(text);
    const auto typed = variableBeingTyped(at.text, at.start);
    QTEST(typed ? u"%1:%2"_s.arg(typed->start).arg(typed->name) : u"none"_s, "typed");
  }

  void putsAVariableIn_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("at the cursor") << u"Hi ‸,"_s << u"Hi {{city}}‸,"_s;
    QTest::newRow("for the selection") << u"Hi ‹you›,"_s << u"Hi {{city}}‸,"_s;
    QTest::newRow("for what is being typed") << u"Hi {{ci‸, how"_s << u"Hi {{city}}‸, how"_s;
    QTest::newRow("in one that is closed") << u"Hi {{fi‸rst}}, how"_s << u"Hi {{city}}‸, how"_s;
    QTest::newRow("the next one is not its end") << u"{{‸ and {{first}}"_s << u"{{city}}‸ and {{first}}"_s;
  }
  void putsAVariableIn() {
    QFETCH(QString, before);
    const Marked from(before);
    QTEST(afterwards(from, variableEdit(from.text, from.start, from.end, u"city"_s)), "after");
  }

  void formats_data() {
    using enum FormatCommand;
    QTest::addColumn<FormatCommand>("command");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("bold") << bold << u"a ‹bc› d"_s << u"a **‹bc›** d"_s;
    QTest::newRow("bold, spaces stay outside") << bold << u"a‹ bc ›d"_s << u"a **‹bc›** d"_s;
    QTest::newRow("bold, taken back") << bold << u"a **‹bc›** d"_s << u"a ‹bc› d"_s;
    QTest::newRow("bold, taken back with its stars") << bold << u"a ‹**bc**› d"_s << u"a ‹bc› d"_s;
    QTest::newRow("bold, nothing yet") << bold << u"a ‸"_s << u"a **‸**"_s;
    QTest::newRow("bold, written") << bold << u"a **bc‸** d"_s << u"a **bc**‸ d"_s;
    QTest::newRow("bold, written after another") << bold << u"**a** **bc‸**"_s << u"**a** **bc**‸"_s;
    QTest::newRow("bold, before another") << bold << u"a ‸**bc**"_s << u"a **‸****bc**"_s;
    QTest::newRow("italic, written in bold") << italic << u"**a *b‸* c**"_s << u"**a *b*‸ c**"_s;
    QTest::newRow("bold, of emoji") << bold << u"👍🏽‹é😀›"_s << u"👍🏽**‹é😀›**"_s;
    QTest::newRow("italic") << italic << u"‹a›"_s << u"*‹a›*"_s;
    QTest::newRow("italic, of bold") << italic << u"**‹a›**"_s << u"***‹a›***"_s;
    QTest::newRow("italic, out of both") << italic << u"***‹a›***"_s << u"**‹a›**"_s;
    QTest::newRow("bold, of italic") << bold << u"*‹a›*"_s << u"***‹a›***"_s;
    QTest::newRow("spin") << spinText << u"‹Hi› you"_s << u"{Hi|‸} you"_s;
    QTest::newRow("spin, nothing chosen") << spinText << u"a ‸"_s << u"a {‸|}"_s;
    QTest::newRow("bullets") << bullets << u"x\na‹a\n\nb›b\ny"_s << u"x\n‹- aa\n\n- bb›\ny"_s;
    QTest::newRow("bullets, the line begun is not meant") << bullets << u"‹a\n›b"_s << u"‹- a›\nb"_s;
    QTest::newRow("bullets, taken back") << bullets << u"‹- a\n\n- b›"_s << u"‹a\n\nb›"_s;
    QTest::newRow("bullets, the rest of them") << bullets << u"‹- a\nb›"_s << u"‹- a\n- b›"_s;
    QTest::newRow("bullets, at the cursor") << bullets << u"ab‸c"_s << u"- ab‸c"_s;
    QTest::newRow("bullets, cursor in the mark") << bullets << u"-‸ a"_s << u"‸a"_s;
    QTest::newRow("bullets, on an empty line") << bullets << u"a\n‸\nb"_s << u"a\n- ‸\nb"_s;
    QTest::newRow("numbers") << numbers << u"‹a\n\nb›"_s << u"‹1. a\n\n2. b›"_s;
    QTest::newRow("numbers, from bullets") << numbers << u"‹- a\n- b›"_s << u"‹1. a\n2. b›"_s;
    QTest::newRow("numbers, taken back") << numbers << u"‹9. a\n10. b›"_s << u"‹a\nb›"_s;
    QTest::newRow("link") << link << u"a‸b"_s << u"a[‹link text›](https://)b"_s;
    QTest::newRow("link, of a text") << link << u"‹here›"_s << u"[here](https://‸)"_s;
    QTest::newRow("link, to an address") << link << u"‹https://x.example›"_s << u"[‹link text›](https://x.example)"_s;
  }
  void formats() {
    QFETCH(FormatCommand, command);
    QFETCH(QString, before);
    const Marked from(before);
    QTEST(afterwards(from, formatEdit(command, from.text, from.start, from.end)), "after");
  }

  void linesThatStayKeepTheirEnds_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("followed");
    QTest::newRow("typed behind") << u"a\r\nb\rc\u2029d\n"_s << u"a\nb\ncx\nd\n"_s << u"a\r\nb\rcx\u2029d\n"_s;
    QTest::newRow("a line more") << u"a\r\nb"_s << u"a\nx\nb"_s << u"a\r\nx\r\nb"_s;
    QTest::newRow("a line more, no pairs") << u"a\rb"_s << u"a\nx\nb"_s << u"a\rx\nb"_s;
    QTest::newRow("a line less") << u"a\r\nb\r\nc"_s << u"a\nc"_s << u"a\r\nc"_s;
    QTest::newRow("an empty line less") << u"a\r\n\r\nb"_s << u"a\nb"_s << u"a\r\nb"_s;
    QTest::newRow("all gone") << u"a\r\nb"_s << u""_s << u""_s;
  }
  void linesThatStayKeepTheirEnds() {
    QFETCH(QString, text);
    QFETCH(QString, after);
    const QString before = withLineFeeds(text);
    QVERIFY(!before.contains(u'\r') && !before.contains(QChar::ParagraphSeparator));
    QCOMPARE(orv::followed(text, before, before), text);
    QTEST(orv::followed(text, before, after), "followed");
    QCOMPARE(withLineFeeds(orv::followed(text, before, after)), after);
  }
};

QTEST_GUILESS_MAIN(TextVariablesTest)
#include "textvariables_test.moc"
