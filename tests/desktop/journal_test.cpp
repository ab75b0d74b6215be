#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "app/base/Journal.h"
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

  void whatIsTypedSurvivesTheProcess_data() {
    QTest::addColumn<QStringList>("more");
    QTest::addColumn<QByteArray>("last");
    QTest::addColumn<int>("signal");
    QTest::newRow("told to end at once") << QStringList() << QByteArray("typed") << SIGTERM;
    QTest::newRow("killed a second after it was typed") << QStringList() << QByteArray("typed") << SIGKILL;
    QTest::newRow("the desktop’s session ends") << QStringList{u"--log-out"_s} << QByteArray("logged out") << SIGKILL;
  }
  void whatIsTypedSurvivesTheProcess() {
    QFETCH(QStringList, more);
    QFETCH(QByteArray, last);
    QFETCH(int, signal);
    const QTemporaryDir place;
    const QDir folder(place.filePath(u"journal"_s));
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(QStringLiteral(ORVELLA_TYPING), QStringList{folder.path()} + more);
    QByteArray said;
    QTRY_VERIFY_WITH_TIMEOUT((said += program.readAllStandardOutput()).contains(last), 20000);
    if (last == "typed" && signal == SIGKILL)
      QTRY_VERIFY_WITH_TIMEOUT(!folder.entryList(QDir::Files).isEmpty(), Journal::wait.count() + 3000);
    QCOMPARE(::kill(pid_t(program.processId()), signal), 0);
    QTRY_COMPARE_WITH_TIMEOUT(program.state(), QProcess::NotRunning, 20000);
    // Told to end it ends in order; what it then leaks the sanitizer turns into an exit code.
    QCOMPARE(program.exitStatus(), signal == SIGTERM ? QProcess::NormalExit : QProcess::CrashExit);
    if (signal == SIGTERM) QCOMPARE(program.exitCode(), 0);
    const auto kept = await(JournalFolder(folder.path()).readAll());
    QCOMPARE(kept.size(), 1);
    QVERIFY(kept.first().contains("Spring fair"));
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
