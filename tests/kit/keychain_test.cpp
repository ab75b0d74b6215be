#include <QTest>

#include "kit/async/ManualClock.h"
#include "kit/session/SecretServiceKeychain.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/await.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto probe = QStringLiteral(ORVELLA_PROBE);

QByteArrayList outcomes(PrivateBus& bus, const QStringList& requests, const QString& limit = u"10000"_s) {
  return bus.run(probe, QStringList(limit) + requests).trimmed().split('\n');
}

void startSilentService(PrivateBus& bus) { bus.start(u"org.freedesktop.secrets"_s, probe, {u"--swallow"_s}); }

}  // namespace

class KeychainTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void keepsOneItemAcrossProcesses() {
    PrivateBus bus;
    bus.startKeyring();
    QCOMPARE(outcomes(bus, {u"read"_s, u"remove"_s, u"write=first"_s, u"write=second"_s}),
             QByteArrayList({"none", "removed", "written", "written"}));
    QCOMPARE(outcomes(bus, {u"read"_s}), QByteArrayList({"data second"}));
    QCOMPARE(items(bus).count("/org/freedesktop/secrets/collection/login/"), 1);
    QCOMPARE(outcomes(bus, {u"remove"_s, u"read"_s, u"remove"_s}), QByteArrayList({"removed", "none", "removed"}));
  }

  void anItemElsewhereIsNobodys() {
    PrivateBus bus;
    bus.startKeyring();
    QCOMPARE(outcomes(bus, {u"shadow=theirs"_s, u"read"_s, u"write=mine"_s, u"shadow=theirs again"_s, u"read"_s}),
             QByteArrayList({"shadowed", "none", "written", "shadowed", "data mine"}));
    QCOMPARE(outcomes(bus, {u"remove"_s, u"read"_s}), QByteArrayList({"removed", "none"}));
    QVERIFY2(!items(bus).contains("/collection/"), items(bus));
  }

  void saysItsNameAndNothingSecretInTheOpen() {
    PrivateBus bus;
    bus.startKeyring();
    outcomes(bus, {u"write=canary"_s});
    const QByteArray path = items(bus).split('\'').value(1);
    const QByteArray properties = bus.run(
        u"gdbus"_s, {u"call"_s, u"--session"_s, u"-d"_s, u"org.freedesktop.secrets"_s, u"-o"_s, QString::fromUtf8(path),
                     u"-m"_s, u"org.freedesktop.DBus.Properties.GetAll"_s, u"org.freedesktop.Secret.Item"_s});
    QVERIFY2(properties.contains("'Label': <'Orvella test'>"), properties);
    QVERIFY2(properties.contains("'account': 'session'"), properties);
    QVERIFY2(!properties.contains("canary"), properties);
  }

  void dataOfNothingIsCorrupted() {
    PrivateBus bus;
    bus.startKeyring();
    QCOMPARE(outcomes(bus, {u"write="_s, u"read"_s}), QByteArrayList({"written", "corrupted"}));
  }

  void refusesInWords_data() {
    QTest::addColumn<QString>("state");
    for (const char* state : {"locked", "absent", "silent"}) QTest::newRow(state) << QString::fromUtf8(state);
    QTest::newRow("no bus") << u"no bus"_s;
  }
  void refusesInWords() {
    QFETCH(QString, state);
    PrivateBus bus;
    QString limit = u"10000"_s;
    if (state == "locked"_L1) {
      bus.startKeyring();
      outcomes(bus, {u"write=kept"_s});
      bus.lockKeyring();  // no prompter is on the bus: every prompt counts as dismissed
    } else if (state == "silent"_L1) {
      startSilentService(bus);
      limit = u"50"_s;
    } else if (state == "no bus"_L1) {
      bus.setSessionAddress(u"unix:path="_s + bus.folder() + u"/nothing"_s);
    }
    const QByteArray expected = state == "no bus"_L1 ? QByteArray("absent") : state.toUtf8();
    QCOMPARE(outcomes(bus, {u"read"_s, u"write=x"_s, u"remove"_s}, limit),
             QByteArrayList({expected, expected, expected}));
  }

  void theDeadlineIsTheClocks() {
    PrivateBus bus;
    startSilentService(bus);
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    ManualClock clock;
    SecretServiceKeychain keychain(u"com.orvella.test"_s, u"Orvella test"_s, clock);
    std::optional<std::optional<QByteArray>> value;
    std::exception_ptr failure;
    TaskScope scope;
    scope.start(keepOutcome(keychain.read(u"session"_s), &value, &failure));
    QCOMPARE(clock.running(), 1);
    clock.advance(29s);
    QVERIFY(!scope.isIdle());
    // Until the worker has taken the request up, it waits on the longer limit.
    QVERIFY(QTest::qWaitFor([&] {
      clock.advance(1s);
      return scope.isIdle();
    }));
    QVERIFY(failure);
    try {
      std::rethrow_exception(failure);
    } catch (const KeychainError& error) {
      QCOMPARE(error.reason(), KeychainError::Reason::silent);
    }
  }

  void silenceCountsFromTheAsking() {
    PrivateBus bus;
    startSilentService(bus);
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    ManualClock clock;
    SecretServiceKeychain keychain(u"com.orvella.test"_s, u"Orvella test"_s, clock);
    std::optional<std::optional<QByteArray>> value;
    std::exception_ptr failure;
    TaskScope first, second;
    const auto secondsUntil = [&clock](const TaskScope& scope) {
      int seconds = 0;
      const bool ended = QTest::qWaitFor([&] {
        if (scope.isIdle()) return true;
        clock.advance(1s);
        ++seconds;
        return false;
      });
      return ended ? seconds : -1;
    };
    first.start(keepOutcome(keychain.read(u"session"_s), &value, &failure));
    clock.advance(20s);
    // Waits behind the first, whose silence is not its own.
    second.start(keepOutcome(keychain.read(u"session"_s), &value, &failure));
    QVERIFY(secondsUntil(first) > 0);
    QVERIFY(secondsUntil(second) >= 30);
  }

  void tasksMayBeDroppedWhileTheServiceIsAsked() {
    PrivateBus bus;
    startSilentService(bus);
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    ManualClock clock;
    for (int round = 0; round < 20; ++round) {
      SecretServiceKeychain keychain(u"com.orvella.test"_s, u"Orvella test"_s, clock);
      TaskScope scope;
      std::optional<std::optional<QByteArray>> value;
      std::exception_ptr failure;
      for (int i = 0; i < 3; ++i) scope.start(keepOutcome(keychain.read(u"session"_s), &value, &failure));
      if (round % 2) QCoreApplication::processEvents();
      scope.cancel();
      QCOMPARE(clock.running(), 0);
      QVERIFY(!value && !failure);
    }
  }

 private:
  static QByteArray items(PrivateBus& bus) {
    return bus.run(u"gdbus"_s, {u"call"_s, u"--session"_s, u"-d"_s, u"org.freedesktop.secrets"_s, u"-o"_s,
                                u"/org/freedesktop/secrets"_s, u"-m"_s, u"org.freedesktop.Secret.Service.SearchItems"_s,
                                u"{'service': 'com.orvella.test'}"_s});
  }
};

QTEST_GUILESS_MAIN(KeychainTest)
#include "keychain_test.moc"
