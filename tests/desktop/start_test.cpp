#include <QFile>
#include <QTest>

#include "tests/support/PrivateBus.h"

using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

/// The program itself, started where something is not there.
class StartTest : public QObject {
  Q_OBJECT

  using Environment = QMap<QString, QString>;

  struct End {
    QProcess::ExitStatus status;
    int code;
    QByteArray said;
    QString log;
  };

  static End start(const PrivateBus& bus, const Environment& changes, const QStringList& arguments) {
    auto environment = bus.environment();
    // Nobody listens there: no test waits for a service on the network.
    environment.insert(u"ORV_API_BASE_URL"_s, u"http://127.0.0.1:9"_s);
    environment.remove(u"XDG_STATE_HOME"_s);
    for (const auto& [name, value] : changes.asKeyValueRange()) environment.insert(name, value);
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(ORVELLA_PROGRAM), arguments);
    program.waitForFinished(60000);
    return {program.exitStatus(), program.exitCode(), program.readAllStandardOutput(),
            QString::fromUtf8(program.readAllStandardError())};
  }

 private Q_SLOTS:
  void itGoesOnWithoutAndSaysSo_data() {
    QTest::addColumn<Environment>("environment");
    QTest::addColumn<QStringList>("said");
    const QString runtime = u"XDG_RUNTIME_DIR"_s, address = u"DBUS_SESSION_BUS_ADDRESS"_s;
    // What is in a file cannot be made, by nobody.
    QTest::newRow("services on the bus") << Environment{} << QStringList{u"there is no keyring"_s};
    QTest::newRow("session bus") << Environment{{address, u"unix:path=FILE/bus"_s}}
                                 << QStringList{u"There is no session bus"_s, u"there is no keyring"_s};
    QTest::newRow("session bus and runtime folder")
        << Environment{{address, u"unix:path=FILE/bus"_s}, {runtime, u"FILE/run"_s}}
        << QStringList{u"There is no session bus"_s};
    QTest::newRow("writable home") << Environment{{u"HOME"_s, u"FILE/home"_s},
                                                  {u"XDG_CONFIG_HOME"_s, u"FILE/home/.config"_s},
                                                  {u"XDG_DATA_HOME"_s, u"FILE/home/.local/share"_s}}
                                   << QStringList{u"What you type can’t be kept: Orvella can’t write to “FILE/home"_s,
                                                  u"Your settings can’t be kept: Orvella can’t write to “FILE/home"_s};
    QTest::newRow("nothing") << Environment{} << QStringList{};
  }
  void itGoesOnWithoutAndSaysSo() {
    QFETCH(Environment, environment);
    QFETCH(QStringList, said);
    PrivateBus bus;
    if (said.isEmpty()) bus.startKeyring();
    QFile file(bus.folder() + u"/file"_s);
    QVERIFY(file.open(QIODevice::WriteOnly));
    for (QString& value : environment) value.replace(u"FILE"_s, file.fileName());

    const End end = start(bus, environment, {u"--until-content"_s});
    QVERIFY2(end.status == QProcess::NormalExit && end.code == 0, qPrintable(end.log));
    QVERIFY2(end.said.startsWith("sign-in, "), end.said);
    for (QString words : said)
      QVERIFY2(end.log.contains(words.replace(u"FILE"_s, file.fileName())), qPrintable(end.log));
    if (said.isEmpty())
      for (const auto& complaint : {u"orvella.missing"_s, u"keyring"_s})
        QVERIFY2(!end.log.contains(complaint), qPrintable(end.log));
  }

  void theVersionNeedsNothing() {
    const PrivateBus bus;
    const End end = start(bus, {{u"HOME"_s, u"/nowhere"_s}, {u"QT_QPA_PLATFORM"_s, u"none"_s}}, {u"--version"_s});
    QCOMPARE(end.code, 0);
    QCOMPARE(end.said, "Orvella " ORVELLA_VERSION "\n");
  }
};

QTEST_GUILESS_MAIN(StartTest)
#include "start_test.moc"
