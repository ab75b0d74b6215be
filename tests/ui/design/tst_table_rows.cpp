#include <QSignalSpy>
#include <QStringListModel>
#include <QTest>

#include "ui/design/TableRows.h"

class TestTableRows : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    m_model.setStringList(letters("abcdefgh"));
    m_rows.setKeyRole(QStringLiteral("display"));
    m_rows.setModel(&m_model);
  }

  void cleanup() { m_rows.setModel(nullptr); }

  void resetKeepsRecords_data() {
    QTest::addColumn<QStringList>("after");
    QTest::addColumn<QString>("current");
    QTest::addColumn<int>("anchorRow");
    QTest::newRow("same") << letters("abcdefgh") << "d" << 2;
    QTest::newRow("moved") << letters("hgfedcba") << "d" << 5;
    QTest::newRow("rows above are gone") << letters("cdefgh") << "d" << 0;
    QTest::newRow("both are gone") << letters("abefgh") << "f" << 2;
    QTest::newRow("shorter than the old row") << letters("xy") << "y" << -1;
    QTest::newRow("empty") << QStringList() << "" << -1;
  }

  void resetKeepsRecords() {
    QFETCH(QStringList, after);
    m_rows.setCurrentKey(QStringLiteral("d"));
    m_rows.holdAnchor(2, 3);
    m_model.setStringList(after);
    QTEST(m_rows.currentKey(), "current");
    QCOMPARE(m_rows.currentRow(), after.indexOf(m_rows.currentKey()));
    QTEST(m_rows.anchorRow(), "anchorRow");
  }

  void anchorFallsBackToTheNextRow() {
    m_rows.holdAnchor(2, 3);
    m_model.removeRows(1, 3);
    QCOMPARE(m_rows.keyAt(m_rows.anchorRow()), QStringLiteral("e"));
  }

  void sortKeepsTheCurrentRecord() {
    m_rows.setCurrentKey(QStringLiteral("b"));
    m_model.sort(0, Qt::DescendingOrder);
    QCOMPARE(m_rows.currentRow(), 6);
    QCOMPARE(m_rows.currentKey(), QStringLiteral("b"));
  }

  void manyChangesSettleOnce() {
    QSignalSpy settled(&m_rows, &TableRows::settled);
    m_model.removeRows(0, 2);
    m_model.insertRows(0, 1);
    m_model.setStringList(letters("ab"));
    QCOMPARE(settled.size(), 0);
    QVERIFY(settled.wait(1000));
    QCOMPARE(settled.size(), 1);
  }

  void changedIdsAreSeen() {
    m_rows.setCurrentRow(1);
    QSignalSpy revised(&m_rows, &TableRows::revisionChanged);
    m_model.setData(m_model.index(1), QStringLiteral("z"), Qt::EditRole);
    QVERIFY(!revised.isEmpty());
    QCOMPARE(m_rows.currentKey(), QStringLiteral("z"));
  }

  void aModelThatDies() {
    auto* model = new QStringListModel(letters("ab"));
    m_rows.setModel(model);
    m_rows.setCurrentRow(1);
    delete model;
    QCOMPARE(m_rows.count(), 0);
    QCOMPARE(m_rows.currentRow(), -1);
    QCOMPARE(m_rows.keyAt(0), QString());
  }

 private:
  static QStringList letters(const char* text) {
    return QString::fromLatin1(text).split(QString(), Qt::SkipEmptyParts);
  }

  QStringListModel m_model;
  TableRows m_rows;
};

QTEST_GUILESS_MAIN(TestTableRows)

#include "tst_table_rows.moc"
