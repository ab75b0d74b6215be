#include <QMetaProperty>
#include <QTest>

#include "app/base/Choice.h"
#include "app/base/shownName.h"

using namespace orv;
using namespace Qt::Literals::StringLiterals;

/// Names of strangers inside the program's own sentences.
class NamesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void isShownAsOneHarmlessLine_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* what, const QString& name, const QString& shown) {
      QTest::newRow(what) << name << shown;
    };
    const auto same = [&row](const char* what, const QString& name) { row(what, name, name); };
    const QString fsi(u'\u2068'), pdi(u'\u2069'), lri(u'\u2066'), rli(u'\u2067'), rlo(u'\u202e'), rle(u'\u202b'),
        pdf(u'\u202c'), odd(u'\ufffd');
    same("plain", u"Q3 “Fall” 🍂 – Zoë & 日本"_s);
    same("nothing", {});
    row("line ends", u"Q3?\r\nIt’s free.\u2028\u2029\u0085x\t"_s, u"Q3?  It’s free.   x "_s);
    row("controls", QString(u"a\u0001\u001b[2Jb\u007f"_s), u"a  [2Jb "_s);
    row("right to left", u"שלום"_s, fsi + u"שלום"_s + pdi);
    row("right to left, in between", u"Acme محمد 3"_s, fsi + u"Acme محمد 3"_s + pdi);
    row("right to left, beyond the first plane", u"\U0001e900"_s, fsi + u"\U0001e900"_s + pdi);
    row("a mark", u"a\u200fb"_s, fsi + u"a\u200fb"_s + pdi);
    row("turned around", u"invoice"_s + rlo + u"fdp.exe"_s, u"invoice"_s + odd + u"fdp.exe"_s);
    row("turned and ended", rlo + u"abc"_s + pdf, fsi + rlo + u"abc"_s + pdf + pdi);
    row("an end of its own", u"a"_s + pdf + u"b"_s + pdi, u"a"_s + odd + u"b"_s + odd);
    row("out of the isolate around it", u"a"_s + pdi + rlo + u"b"_s, u"a"_s + odd + odd + u"b"_s);
    row("crossed", rli + rle + u"a"_s + pdi + pdf, fsi + rli + odd + u"a"_s + pdi + odd + pdi);
    row("an end that does not reach out", rle + lri + u"a"_s + pdf + pdi + pdf,
        fsi + rle + lri + u"a"_s + odd + pdi + pdf + pdi);
    row("nested", rli + rle + u"a"_s + pdf + pdi, fsi + rli + rle + u"a"_s + pdf + pdi + pdi);
    row("long", QString(2'000'000, u'x'), QString(199, u'x') + u'…');
    row("cut in what it opened", rlo + QString(300, u'x') + pdf, odd + QString(198, u'x') + u'…');
    row("long, right to left", QString(300, u'ש'), fsi + QString(197, u'ש') + u'…' + pdi);
    row("alone already", fsi + u"שלום"_s + pdi, fsi + u"שלום"_s + pdi);
    row("alone in part", fsi + u"ש"_s + pdi + u"x"_s + fsi + u"ש"_s + pdi,
        fsi + fsi + u"ש"_s + pdi + u"x"_s + fsi + u"ש"_s + pdi + pdi);
    row("half a letter", QString(QChar(0xd83d)), QString(QChar(0xd83d)));
  }
  void isShownAsOneHarmlessLine() {
    QFETCH(QString, name);
    QTEST(shownName(name), "shown");
    QCOMPARE(shownName(shownName(name)), shownName(name));
    // Of a choice, controls read the same; code has the value.
    const Choice choice{.key = {}, .label = name, .detail = name};
    for (const char* property : {"label", "detail"})
      QTEST(Choice::staticMetaObject.property(Choice::staticMetaObject.indexOfProperty(property))
                .readOnGadget(&choice)
                .toString(),
            "shown");
    QCOMPARE(choice.label, name);
  }
};

QTEST_APPLESS_MAIN(NamesTest)
#include "names_test.moc"
