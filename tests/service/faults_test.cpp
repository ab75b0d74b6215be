#include <QTest>

#include "demo/Faults.h"
#include "tests/service/Client.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A person who keeps working whatever the service does: signs in until it works, tries each thing, signs in again.
class StubbornPerson {
 public:
  explicit StubbornPerson(Client& client) : m_client(client) {}

  bool signIn() {
    for (int attempt = 0; attempt < 60 && !m_client.isSignedIn(); ++attempt) {
      auto& model = m_client.signIn();
      if (model.step() == SignInModel::Step::password) {
        model.setPassword(marensPassword);
        model.submitPassword();
      } else {
        m_client.enterEmail(marensAddress);
      }
      if (!QTest::qWaitFor([&] { return !model.busy(); }, 20000)) return false;
      m_attempts += model.error().isEmpty() ? 0 : 1;
    }
    return m_client.isSignedIn();
  }

  bool seeCampaigns() {
    for (int attempt = 0; attempt < 60; ++attempt) {
      if (!signIn()) return false;
      m_client.campaigns().ensureLoaded();
      if (!settle()) return false;
      if (m_client.isSignedIn() && m_client.campaigns().list()->value()) return true;
      if (m_client.isSignedIn()) m_client.campaigns().refresh();
      if (!settle()) return false;
    }
    return false;
  }

  /// Starts everything that can be done to the first campaigns, at the same time.
  void doEverything() {
    auto& store = m_client.campaigns();
    const auto items = store.list()->value()->items;
    const auto id = [&](int row) { return items.value(row % items.size()).id; };
    store.pause(id(0));
    store.resume(id(1));
    store.duplicate(id(2));
    store.restore(id(3));
    store.downloadAnalytics(id(4));
    store.beginRename(id(5));
    store.rename()->setText(u"Renamed "_s + QString::number(++m_renames));
    store.rename()->submit();
    store.remove(id(6));
    auto& overlays = *m_client.app().overlays();
    if (overlays.asking()) overlays.answer(overlays.token(), true);
    store.refresh();
    m_client.app().refreshAccount();
  }

  /// Waits until nothing is under way any more. False when something never ends.
  bool settle() {
    return QTest::qWaitFor(
        [this] {
          if (!m_client.isSignedIn()) return !m_client.signIn().busy();
          auto& store = m_client.campaigns();
          return store.busy().ids().isEmpty() && !store.list()->refreshing() && !store.rename()->busy() &&
                 store.list()->stateName() != ResourceBase::State::Loading;
        },
        20000);
  }

  int failures() const { return m_attempts + int(m_client.told().size()); }

 private:
  Client& m_client;
  int m_attempts = 0;
  int m_renames = 0;
};

}  // namespace

/// The application against a service where half of everything goes wrong.
class FaultsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void nothingStaysUnderWay_data() {
    QTest::addColumn<QString>("kinds");
    QTest::addColumn<QString>("rate");
    for (const QString& name : demo::Faults::names()) QTest::newRow(qPrintable(name)) << name << u"0.5"_s;
    QTest::newRow("all kinds") << demo::Faults::names().join(u',') << u"0.4"_s;
  }
  void nothingStaysUnderWay() {
    QFETCH(QString, kinds);
    QFETCH(QString, rate);
    ServiceProcess service({u"--faults"_s, rate, u"--fault-kinds"_s, kinds, u"--seed"_s, u"5"_s, u"--late"_s, u"80"_s});
    Desk desk;
    Client client(desk, service.url());
    StubbornPerson person(client);
    for (int round = 0; round < 4; ++round) {
      QVERIFY(person.seeCampaigns());
      person.doEverything();
      QVERIFY(person.settle());
    }
    QVERIFY2(person.failures() > 0, "The run met no fault");
    QVERIFY(client.toasts().count() <= 3);
    if (!client.isSignedIn()) QCOMPARE(client.app().session(), nullptr);
  }

  /// The client dies while everything is under way; the sanitizers and the exit tell.
  void quittingInTheMiddleIsFine() {
    ServiceProcess service({u"--latency"_s, u"20"_s});
    Desk desk;
    auto client = std::make_unique<Client>(desk, service.url());
    StubbornPerson person(*client);
    QVERIFY(person.seeCampaigns());
    person.doEverything();
    QVERIFY(!client->campaigns().busy().ids().isEmpty());
    client.reset();
    orv::test::settle();
  }
};

QTEST_GUILESS_MAIN(FaultsTest)
#include "faults_test.moc"
