#include <QTest>

#include "ui/design/TableLayout.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// What is kept of a table, and what is made of it at the next start.
class TableLayoutTest : public QObject {
  Q_OBJECT

 private:
  QHash<QString, QByteArray> m_kept;
  TableMemory m_memory{[this](const QString& table) { return m_kept.value(table); },
                       [this](const QString& table, const QByteArray& value) { m_kept.insert(table, value); }};

  std::unique_ptr<TableLayout> layout(const QString& table = u"campaigns"_s) {
    auto made = std::make_unique<TableLayout>();
    made->setMemory(&m_memory);
    made->setTable(table);
    return made;
  }

 private Q_SLOTS:  // NOLINT: Qt Test calls them by name
  void init() { m_kept.clear(); }

  void isTheSameAtTheNextStart() {
    const auto first = layout();
    first->setWidth(u"name"_s, 240);
    first->setShown(u"bounced"_s, false);
    first->move({u"name"_s, u"sent"_s, u"replied"_s}, u"replied"_s, u"sent"_s);
    first->setSort(u"sent"_s, false);
    const auto next = layout();
    QCOMPARE(next->width(u"name"_s), 240);
    QCOMPARE(next->shown(u"bounced"_s), QVariant(false));
    QCOMPARE(next->shown(u"sent"_s), QVariant());
    QCOMPARE(next->arranged({u"name"_s, u"sent"_s, u"replied"_s}), (QStringList{u"name"_s, u"replied"_s, u"sent"_s}));
    QCOMPARE(next->sortKey(), u"sent"_s);
    QVERIFY(!next->sortDescending());
    QCOMPARE(layout(u"leads"_s)->width(u"name"_s), 0);

    next->reset();
    QCOMPARE(next->width(u"name"_s), 0);
    QCOMPARE(layout()->sortKey(), u"sent"_s);
    next->setSort({}, true);
    QVERIFY2(m_kept[u"campaigns"_s].isEmpty(), "nothing is kept of a table that is as it was declared");
  }

  void columnsThatCameOrWent() {
    const auto table = layout();
    table->move({u"a"_s, u"b"_s, u"c"_s}, u"c"_s, u"a"_s);
    QCOMPARE(table->arranged({u"a"_s, u"new"_s, u"c"_s}), (QStringList{u"c"_s, u"a"_s, u"new"_s}));
    QCOMPARE(table->arranged({u"first"_s, u"a"_s, u"b"_s}), (QStringList{u"first"_s, u"a"_s, u"b"_s}));
  }

  void whatIsNoLayoutCountsAsNone_data() {
    QTest::addColumn<QByteArray>("kept");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("{\"columns\":");
    QTest::newRow("a list") << QByteArray("[1]");
    QTest::newRow("other types") << QByteArray(
        R"({"columns":{"name":{"width":"wide","shown":1},"b":3},"order":{"a":1},"sort":[]})");
    QTest::newRow("widths of nothing") << QByteArray(R"({"columns":{"name":{"width":-5}},"order":[1,null]})");
  }
  void whatIsNoLayoutCountsAsNone() {
    QFETCH(QByteArray, kept);
    m_kept.insert(u"campaigns"_s, kept);
    const auto table = layout();
    QCOMPARE(table->width(u"name"_s), 0);
    QCOMPARE(table->shown(u"name"_s), QVariant());
    QCOMPARE(table->arranged({u"b"_s, u"a"_s}), (QStringList{u"b"_s, u"a"_s}));
    QCOMPARE(table->sortKey(), QString());
  }
};

QTEST_GUILESS_MAIN(TableLayoutTest)
#include "tst_table_layout.moc"
