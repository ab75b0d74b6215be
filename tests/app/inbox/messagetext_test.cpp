#include <QTest>

#include "app/inbox/AgentLessons.h"
#include "app/inbox/DraftHistory.h"
#include "app/inbox/ThreadRows.h"
#include "app/inbox/addresses.h"
#include "app/inbox/messageText.h"
#include "kit/models/inbox/threadDetail.h"
#include "tests/support/cell.h"

using namespace orv;
using namespace Qt::Literals::StringLiterals;

/// What strangers write, made fit to be read: quotations, addresses, links, long texts.
class MessageTextTest : public QObject {
  Q_OBJECT

  /// Quoted segments in brackets.
  static QString shown(const QList<TextSegment>& segments) {
    QStringList parts;
    for (const TextSegment& one : segments) parts.append(one.quoted ? u"["_s + one.text + u"]"_s : one.text);
    return parts.join(u"|"_s);
  }

 private Q_SLOTS:
  void quotationsFold_data() {
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("folded");
    QTest::newRow("nothing quoted") << u"Hi Ellen,\n\nYes.\n\nJonas\n"_s << u"Hi Ellen,\n\nYes.\n\nJonas"_s;
    QTest::newRow("from the attribution on") << u"Yes.\n\nOn Tuesday Ellen wrote:\nWorth a look?\n\nEllen"_s
                                             << u"Yes.|[On Tuesday Ellen wrote:\nWorth a look?\n\nEllen]"_s;
    QTest::newRow("an answer below the quotation") << u"Ellen wrote:\n> Worth a look?\n>\n\nYes, on Monday."_s
                                                   << u"[Ellen wrote:\n> Worth a look?\n>]|Yes, on Monday."_s;
    QTest::newRow("answers between") << u"A wrote:\n> one\nyes\nA wrote:\n> two\nno"_s
                                     << u"[A wrote:\n> one]|yes|[A wrote:\n> two]|no"_s;
    QTest::newRow("attribution in two lines")
        << u"Fine.\nOn Tue, 18 Nov 2026, Ellen Marsh\n<ellen@x.example> wrote:\n> hi"_s
        << u"Fine.|[On Tue, 18 Nov 2026, Ellen Marsh\n<ellen@x.example> wrote:\n> hi]"_s;
    QTest::newRow("forwarded") << u"See below\n-----Original Message-----\nFrom: A\n\nText"_s
                               << u"See below|[-----Original Message-----\nFrom: A\n\nText]"_s;
    QTest::newRow("marked, with nobody named") << u"> a\n> b\n> c\nno"_s << u"[> a\n> b\n> c]|no"_s;
    QTest::newRow("a marked line is a figure of speech") << u"x\n> 5 is enough\ny"_s << u"x\n> 5 is enough\ny"_s;
    QTest::newRow("wrote: within a line") << u"As I wrote: no."_s << u"As I wrote: no."_s;
    QTest::newRow("line ends of another system") << u"Yes.\r\n\r\nA wrote:\r\n> b\r\n"_s << u"Yes.|[A wrote:\n> b]"_s;
    QTest::newRow("blank") << u" \n\n"_s << QString();
  }
  void quotationsFold() {
    QFETCH(QString, body);
    QTEST(shown(foldQuotes(body)), "folded");
  }

  void whatIsReadInFullStandsAsItCame() {
    const QString text = u"Hi Ellen,\n\n"_s + u"more of it, "_s.repeated(60);
    DraftHistoryRows history;
    DraftHistoryRow decided;
    decided.id = u"d1"_s;
    decided.contact = u"Ellen\nMarsh"_s;
    decided.aiText = decided.sentText = text;
    history.append({decided});
    const auto told = [](const QAbstractItemModel& rows, const char* role) {
      return test::cell(rows, 0, role).toString();
    };
    QCOMPARE(told(history, "aiText"), text);
    QCOMPARE(told(history, "sentText"), text);
    QCOMPARE(told(history, "contact"), u"Ellen Marsh"_s);
    AgentLessonRows lessons;
    AgentLessonRow lesson;
    lesson.id = u"l1"_s;
    lesson.text = text;
    lessons.append({lesson});
    QCOMPARE(told(lessons, "text"), text);
  }

  void aMegabyteIsReadAtOnce() {
    // One that keeps to nothing: marked lines, blanks between, no end of a line.
    const QString lines = u"> once more\n\n"_s.repeated(80'000), line(4'000'000, u'x');
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(foldQuotes(lines).size(), 1);
    const QStringList pieces = inPieces(line);
    QCOMPARE(pieces.join(QString()), line);
    QCOMPARE(linksIn(line + u" https://example.com"_s), QStringList());
    // Under sanitizers, beside other work. In time that grows with the square it is minutes.
    QVERIFY2(timer.elapsed() < 30'000, qPrintable(QString::number(timer.elapsed())));
  }

  void longTextsComeInPieces() {
    QCOMPARE(inPieces(u"short"_s), QStringList{u"short"_s});
    QCOMPARE(inPieces(QString()), QStringList());
    QCOMPARE(inPieces(u"one\ntwo\nthree"_s, 6), (QStringList{u"one"_s, u"two\nthree"_s}));
    QCOMPARE(inPieces(u"one two three four"_s, 6).join(u"|"_s), u"one |two |three |four"_s);
    // No letter is halved.
    const QString faces = QString::fromUcs4(U"\U0001F600").repeated(5);
    const QStringList pieces = inPieces(faces, 3);
    QCOMPARE(pieces.join(QString()), faces);
    for (const QString& piece : pieces) QVERIFY(!piece.back().isHighSurrogate());
  }

  void linksAreFound_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("links");
    QTest::newRow("in a sentence") << u"See https://example.com/a?b=1, or (http://b.example/c)."_s
                                   << QStringList{u"https://example.com/a?b=1"_s, u"http://b.example/c"_s};
    QTest::newRow("brackets of its own") << u"https://example.com/a_(b)"_s
                                         << QStringList{u"https://example.com/a_(b)"_s};
    QTest::newRow("once") << u"https://a.example https://a.example"_s << QStringList{u"https://a.example"_s};
    QTest::newRow("mail without what it would fill in")
        << u"mailto:ana@a.example?attach=/etc/passwd"_s << QStringList{u"mailto:ana@a.example"_s};
    QTest::newRow("no address") << u"mailto:nobody"_s << QStringList();
    QTest::newRow("others") << u"javascript:alert(1) file:///etc/passwd data:text/html,x ftp://a.example"_s
                            << QStringList();
    QTest::newRow("a name to be taken for the host") << u"https://bank.example@evil.example/"_s << QStringList();
    QTest::newRow("looks like another") << u"https://b\u0430nk.example/"_s
                                        << QStringList{u"https://xn--bnk-6cd.example/"_s};
    QTest::newRow("no host") << u"https:///x"_s << QStringList();
  }
  void linksAreFound() {
    QFETCH(QString, text);
    const QStringList found = linksIn(text);
    QTEST(found, "links");
    for (const QString& link : found)
      for (const QChar c : link) QVERIFY2(c > u' ' && c < u'\x7f', qPrintable(link));
  }

  void addressesAreSplit_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("addresses");
    QTest::addColumn<QString>("wrong");
    const QStringList two{u"a@x.example"_s, u"b@y.example"_s};
    QTest::newRow("commas") << u" a@x.example , b@y.example,"_s << two << QString();
    QTest::newRow("semicolons, lines") << u"a@x.example;\nb@y.example"_s << two << QString();
    QTest::newRow("names") << u"Ana <a@x.example>, \"Berg, B.\" <b@y.example>"_s << two << QString();
    QTest::newRow("semicolons of their own")
        << u"\"a;b\"@x.example, o;b@y.example, a@x.example;"_s
        << QStringList{u"\"a;b\"@x.example"_s, u"o;b@y.example"_s, u"a@x.example"_s} << QString();
    QTest::newRow("again") << u"a@x.example, A@X.example, b@y.example"_s << two << QString();
    QTest::newRow("nothing") << u" , ;"_s << QStringList() << QString();
    QTest::newRow("wrong") << u"a@x.example, nobody, no@where"_s << QStringList{u"a@x.example"_s} << u"nobody"_s;
    QTest::newRow("a letter that nobody sees") << u"a\u200b@x.example"_s << QStringList() << u"a\u200b@x.example"_s;
  }
  void addressesAreSplit() {
    QFETCH(QString, text);
    const AddressList list = splitAddresses(text);
    QTEST(list.addresses, "addresses");
    QTEST(list.wrong, "wrong");
  }

  void tricksInAddressesShow() {
    QCOMPARE(shownAddress(u"ana@a.example"_s), u"ana@a.example"_s);
    QCOMPARE(shownAddress(u"größe@ü.example"_s), u"größe@ü.example"_s);
    QCOMPARE(shownAddress(u"pay\u200bments@\u202eelpmaxe.knab\u202c"_s), u"pay\ufffdments@\ufffdelpmaxe.knab\ufffd"_s);
    QCOMPARE(shownAddress(u"a\u00ad\u2066b\u2028c\ufe0f@x"_s), u"a\ufffd\ufffdb\ufffdc\ufffd@x"_s);
  }

  void messagesAreCaptioned_data() {
    QTest::addColumn<QString>("direction");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("draft");
    QTest::addColumn<QString>("caption");
    QTest::newRow("reply") << u"outbound"_s << u"reply"_s << u"d1"_s << u"AI reply"_s;
    QTest::newRow("edited") << u"outbound"_s << u"reply"_s << u"d2"_s << u"AI reply (edited)"_s;
    QTest::newRow("follow-up") << u"outbound"_s << u"followup"_s << u"d2"_s << u"AI follow-up #2"_s;
    QTest::newRow("human") << u"outbound"_s << u"human"_s << QString() << u"Manual reply"_s;
    QTest::newRow("forward") << u"outbound"_s << u"forward"_s << QString() << u"Forwarded"_s;
    QTest::newRow("bounce") << u"inbound"_s << u"bounce"_s << QString() << u"Bounce"_s;
    QTest::newRow("absent") << u"inbound"_s << u"auto_reply"_s << QString() << u"Auto-reply"_s;
    QTest::newRow("inbound") << u"inbound"_s << u"reply"_s << QString() << u"Inbound reply"_s;
    QTest::newRow("unknown") << u"outbound"_s << QString() << QString() << u"Outbound unknown"_s;
  }
  void messagesAreCaptioned() {
    QFETCH(QString, direction);
    QFETCH(QString, kind);
    QFETCH(QString, draft);
    InboxMessage message;
    message.direction = direction;
    if (!kind.isEmpty()) message.kind = kind;
    message.draftId = draft;
    Draft plain, edited;
    plain.id = u"d1"_s;
    edited.id = u"d2"_s;
    edited.edited = true;
    edited.step = 2;
    QTEST(messageCaption(message, {plain, edited}), "caption");
  }

  void timesAreShort() {
    const QDateTime now(QDate(2026, 11, 20), QTime(12, 0));
    QCOMPARE(shortMoment(now.addSecs(-3600), now), u"11:00"_s);
    QCOMPARE(shortMoment(now.addDays(-1), now), u"Yesterday"_s);
    QCOMPARE(shortMoment(now.addDays(-2), now), u"Wed"_s);
    QCOMPARE(shortMoment(now.addDays(-7), now), u"13 Nov"_s);
    QCOMPARE(shortMoment({}, now), QString());
  }
};

QTEST_GUILESS_MAIN(MessageTextTest)
#include "messagetext_test.moc"
