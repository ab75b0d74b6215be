#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include "ui/campaigns/EmailText.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

class EmailTextTest : public QObject {
  Q_OBJECT

  QQmlEngine m_engine;
  std::unique_ptr<QQuickItem> m_edit;
  std::unique_ptr<EmailText> m_text;
  QTextDocument* m_document = nullptr;

  QString last(const QSignalSpy& edited) const { return edited.isEmpty() ? QString() : edited.last()[0].toString(); }
  void type(const QString& text, int at) {
    QTextCursor cursor(m_document);
    cursor.setPosition(at);
    for (const QChar letter : text) cursor.insertText(letter);
  }
  /// Start and length of each coloured stretch, in the whole text.
  QList<QPair<int, int>> coloured() const {
    QList<QPair<int, int>> stretches;
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next())
      for (const auto& range : block.layout()->formats())
        stretches.append({block.position() + range.start, range.length});
    return stretches;
  }

 private Q_SLOTS:
  void init() {
    QQmlComponent component(&m_engine);
    component.setData("import QtQuick; TextEdit { textFormat: TextEdit.PlainText; width: 300 }", {});
    m_edit.reset(qobject_cast<QQuickItem*>(component.create()));
    QVERIFY(m_edit);
    auto* quick = m_edit->property("textDocument").value<QQuickTextDocument*>();
    m_text = std::make_unique<EmailText>();
    m_text->setDocument(quick);
    m_document = quick->textDocument();
  }
  void cleanup() {
    m_text.reset();
    m_edit.reset();
  }

  void textSurvivesToTheLastByte_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("no-break space") << u"10\u00a0000 \u202f€"_s;
    QTest::newRow("combining") << u"e\u0301 n\u0303"_s;
    QTest::newRow("emoji") << u"👩🏽‍💻 🇧🇪"_s;
    QTest::newRow("right to left") << u"שלום \u200fمرحبا {{firstName}}"_s;
    QTest::newRow("lines") << u"\n\na\n  b\t\n"_s;
    QTest::newRow("markup") << u"<b>a</b> &amp; {a|b}"_s;
  }
  void textSurvivesToTheLastByte() {
    QFETCH(QString, text);
    QSignalSpy edited(m_text.get(), &EmailText::edited);
    m_text->show(text);
    QCOMPARE(edited.size(), 0);
    type(u"x"_s, 0);
    QCOMPARE(last(edited), u"x"_s + text);
    m_document->undo();
    QCOMPARE(last(edited), text);
  }

  void everyChangeIsOneUndo() {
    QSignalSpy edited(m_text.get(), &EmailText::edited);
    m_text->show(u"Hi Jo,\n\none two three"_s);
    m_text->replaceAll(u"{Hi|Hello} Jo,\n\none {two|2} three"_s);
    QCOMPARE(last(edited), u"{Hi|Hello} Jo,\n\none {two|2} three"_s);
    m_document->undo();
    QCOMPARE(last(edited), u"Hi Jo,\n\none two three"_s);
    QVERIFY(!m_document->isUndoAvailable());

    const QPoint selected = m_text->format(u"bold"_s, 8, 11).toPoint();
    QCOMPARE(last(edited), u"Hi Jo,\n\n**one** two three"_s);
    QCOMPARE(last(edited).mid(selected.x(), selected.y() - selected.x()), u"one"_s);
    m_document->undo();
    QCOMPARE(last(edited), u"Hi Jo,\n\none two three"_s);

    // The next text has a history of its own, the very same one included.
    m_text->format(u"bullets"_s, 0, 0);
    m_text->show(m_text->text());
    QVERIFY(!m_document->isUndoAvailable());

    // Halves of a character never part.
    m_text->show(u"a👍b"_s);
    m_text->replaceAll(u"a👎b"_s);
    QCOMPARE(m_text->text(), u"a👎b"_s);
  }

  /// The text field knows one kind of line end; the email keeps those that it came with.
  void lineEndsStayAsTheyAre_data() {
    QTest::addColumn<QString>("end");
    QTest::newRow("pair") << u"\r\n"_s;
    QTest::newRow("return") << u"\r"_s;
    QTest::newRow("paragraph") << u"\u2029"_s;
  }
  void lineEndsStayAsTheyAre() {
    QFETCH(QString, end);
    QSignalSpy edited(m_text.get(), &EmailText::edited);
    const QString text = u"Hi Jo,%1%1one two%1{a|b}"_s.arg(end);
    m_text->show(text);
    QCOMPARE(m_text->text(), text);
    QCOMPARE(coloured(), (QList<QPair<int, int>>{{16, 5}}));
    m_text->format(u"bold"_s, 8, 11);
    QCOMPARE(last(edited), u"Hi Jo,%1%1**one** two%1{a|b}"_s.arg(end));
    m_text->replaceAll(u"Hi Jo,%1%1**one** {two|2}%1{a|b}"_s.arg(end));
    QCOMPARE(last(edited), u"Hi Jo,%1%1**one** {two|2}%1{a|b}"_s.arg(end));
    m_document->undo();
    m_document->undo();
    QCOMPARE(last(edited), text);
  }

  /// A text that was changed while it was not shown can be taken back where it is shown.
  void aTextComesWithItsLastEdit() {
    QSignalSpy edited(m_text.get(), &EmailText::edited);
    m_text->show(u"{Hi|Hello} Jo"_s, u"Hi Jo"_s);
    QCOMPARE(m_text->text(), u"{Hi|Hello} Jo"_s);
    m_document->undo();
    QCOMPARE(last(edited), u"Hi Jo"_s);
    QVERIFY(!m_document->isUndoAvailable());
  }

  void coloursFollowTheText() {
    m_text->setVariableInk(Qt::red);
    m_text->show(u"Hi {{firstName}},\n{a\n|b} c"_s);
    QCOMPARE(coloured(), (QList<QPair<int, int>>{{3, 13}, {18, 2}, {21, 3}}));
    QVERIFY(!m_document->isUndoAvailable());
    type(u"x"_s, 0);
    QCOMPARE(coloured().first(), (QPair<int, int>{4, 13}));
    type(u"}"_s, 6);
    QCOMPARE(coloured().size(), 2);
    m_document->undo();
    QCOMPARE(m_document->blockCount(), 3);
  }

  void aSubjectStaysOneLine() {
    m_text->setProperty("singleLine", true);
    QSignalSpy edited(m_text.get(), &EmailText::edited);
    m_text->show(u"One"_s);
    QTextCursor cursor(m_document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(u" two\nthree\n\nfour"_s);
    QCOMPARE(edited.size(), 0);
    QTRY_COMPARE(last(edited), u"One two three  four"_s);
    QCOMPARE(m_document->blockCount(), 1);
    m_document->undo();
    QCOMPARE(last(edited), u"One"_s);
  }

  void variablesAreOfferedWhileTyped() {
    m_text->show(u"Hi {{fi"_s);
    QCOMPARE(m_text->typedVariable(7), QVariant(u"fi"_s));
    QVERIFY(!m_text->typedVariable(2).isValid());
    m_text->insertVariable(u"firstName"_s, 7, 7);
    QCOMPARE(m_text->text(), u"Hi {{firstName}}"_s);
  }
};

QTEST_MAIN(EmailTextTest)
#include "emailtext_test.moc"
