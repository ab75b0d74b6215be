#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "desktop/services/EndSignals.h"
#include "desktop/services/JournalFolder.h"
#include "tests/support/await.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

class JournalFolderTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void privateFilesInTheOrderOfAsking() {
    const QTemporaryDir place;
    const QString folder = place.filePath(u"state/journal"_s);
    JournalFolder files(folder);
    QVERIFY2(await(files.readAll()).isEmpty(), "no folder yet");
    for (int round = 0; round < 20; ++round) {
      files.write(u"a"_s, "first");
      files.remove(u"a"_s);
      files.write(u"a"_s, QByteArray::number(round));
      files.write(u"b"_s, "gone");
      files.remove(u"b"_s);
    }
    QCOMPARE(await(files.readAll()), (QMap<QString, QByteArray>{{u"a"_s, "19"}}));
    const QString path = QDir(folder).filePath(QDir(folder).entryList(QDir::Files).value(0));
    const auto mode = [](const QString& what) { return int(QFile::permissions(what)) & 0x0FFF; };
    QCOMPARE(mode(path), 0x0600 | 0x0000);
    QCOMPARE(mode(folder), 0x0700);

    // Somebody widened it, and something half-written lies about.
    QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x6644)));
    files.write(u"a"_s, "again");
    files.finish();
    QCOMPARE(mode(path), 0x0600);

    files.setAside(u"a"_s);
    files.write(u"a"_s, "more");
    files.setAside(u"a"_s);
    QVERIFY(await(files.readAll()).isEmpty());
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 2);
  }

  void theSystemsWishToEndIsTold() {
    const EndSignals signals;
    QSignalSpy asked(&signals, &EndSignals::asked);
    for (const int number : {SIGTERM, SIGHUP}) {
      QCOMPARE(::raise(number), 0);
      QVERIFY(asked.wait());
    }
    QCOMPARE(asked.count(), 2);
  }

  void aDiskThatTakesNothing() {
    const QTemporaryDir place;
    QFile inTheWay(place.filePath(u"state"_s));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    JournalFolder files(place.filePath(u"state/journal"_s));
    QTest::ignoreMessage(QtWarningMsg, "The journal's folder cannot be made");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"What was typed cannot be kept: .+"_s));
    files.write(u"a"_s, "text");
    files.finish();
    QVERIFY(await(files.readAll()).isEmpty());
  }
};

QTEST_GUILESS_MAIN(JournalFolderTest)
#include "journal_test.moc"
