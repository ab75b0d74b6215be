#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "desktop/services/LogFile.h"

using namespace orv;
using namespace Qt::Literals::StringLiterals;

class LogTest : public QObject {
  Q_OBJECT

  QTemporaryDir m_folder;

  static QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

 private Q_SLOTS:
  void secretsAreRedacted_data() {
    QTest::addColumn<QString>("logged");
    QTest::newRow("token") << u"using orv_sess_CANARY-1.x for it"_s;
    QTest::newRow("key") << u"orv_key_CANARY"_s;
    QTest::newRow("header") << u"Authorization: Bearer CANARY.a-b_c=="_s;
    QTest::newRow("cookie") << u"Cookie: a=1; orv=CANARY"_s;
    QTest::newRow("link") << u"com.orvella.desktop://auth/callback?code=CANARY&x=1"_s;
    QTest::newRow("json") << u"{\"email\":\"a@b.c\",\"password\":\"x \\\"y CANARY\",\"n\":1}"_s;
    QTest::newRow("json within text") << u"\"{\\\"code\\\":\\\"a\\\\\\\"CANARY\\\"}\""_s;
    QTest::newRow("words") << u"password: CANARY"_s;
    QTest::newRow("verifier") << u"{\"codeVerifier\": \"CANARY\"}"_s;
  }
  void secretsAreRedacted() {
    QFETCH(QString, logged);
    const QString shown = LogFile::redacted(logged);
    QVERIFY2(!shown.contains("CANARY"_L1) && shown.contains("[redacted]"_L1), qPrintable(shown));
  }

  void ordinaryTextIsLeft() {
    for (const auto& text : {u"GET /campaigns?status=running&tag=code 404"_s, u"Decoding failed at items[3].token"_s,
                             u"exit code: 1, passwords kept"_s})
      QCOMPARE(LogFile::redacted(text), text);
  }

  void aMessageIsOneShortLine() {
    const QString folder = m_folder.filePath(u"lines"_s);
    {
      LogFile log(folder);
      qInfo("a\n2026-11-22T00:00:00.000Z error forged: \x1b[2Jx");
      qInfo("%s", QByteArray(3'000'000, '\n').constData());
      qInfo("token=%s%s", QByteArray(4000, 'x').constData(), "CANARY");
    }
    const auto lines = contents(folder + u"/orvella.log"_s).trimmed().split('\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines[0].endsWith("a\\u000a2026-11-22T00:00:00.000Z error forged: \\u001b[2Jx"));
    for (const QByteArray& line : lines) QVERIFY2(line.size() < 4200 && !line.contains("CANARY"), line);
  }

  void theLogIsPrivateAndStaysSmall() {
    const QString folder = m_folder.filePath(u"log"_s);
    QString path;
    {
      LogFile log(folder, {2000, 2});
      path = log.path();
      for (int i = 0; i < 100; ++i) qInfo("line %d with orv_sess_CANARY", i);
    }
    const auto files = QDir(folder).entryInfoList(QDir::Files);
    QCOMPARE(files.size(), 3);
    for (const auto& file : files) {
      QVERIFY(file.size() > 0 && file.size() <= 2000);
      QCOMPARE(file.permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
               QFile::Permissions());
      QVERIFY(!contents(file.filePath()).contains("CANARY"));
    }
    QVERIFY(contents(path).contains("line 99 "));
    { LogFile again(folder, {2000, 2}); }
    QVERIFY(contents(path).contains("line 99 "));
  }

  void whatCannotBeWrittenIsStillShown() {
    QFile inTheWay(m_folder.filePath(u"file"_s));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    LogFile log(inTheWay.fileName() + u"/log"_s);
    QVERIFY(!log.isKept());
    for (int i = 0; i < 600; ++i) qInfo("line %d", i);
    const QStringList lines = log.lines(1000);
    QCOMPARE(lines.size(), 500);
    QVERIFY(lines.last().endsWith("line 599"_L1));
  }
};

QTEST_GUILESS_MAIN(LogTest)
#include "log_test.moc"
