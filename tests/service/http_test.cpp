#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "tests/service/Client.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto running = u"Fleet maintenance, Benelux"_s;

QByteArray browse(const QUrl& url) {
  QNetworkAccessManager browser;
  const std::unique_ptr<QNetworkReply> reply(browser.get(QNetworkRequest(url)));
  if (!QTest::qWaitFor([&] { return reply->isFinished(); }, 20000)) qFatal("The page does not come");
  return reply->readAll();
}

}  // namespace

/// The application and the service program, over HTTP.
class HttpTest : public QObject {
  Q_OBJECT

  std::unique_ptr<ServiceProcess> service;
  std::unique_ptr<Desk> desk;
  std::unique_ptr<Client> client;

  void start(const QStringList& options = {}) {
    service = std::make_unique<ServiceProcess>(options);
    desk = std::make_unique<Desk>();
    relaunch();
  }
  void relaunch() {
    client.reset();
    client = std::make_unique<Client>(*desk, service->url());
  }
  void openCampaigns(const QStringList& options = {}) {
    start(options);
    client->signInWithPassword();
    client->showCampaigns();
  }
  QString statusOf(const QString& name) { return client->find(name)->status.rawValue; }

 private Q_SLOTS:
  void cleanup() {
    client.reset();
    desk.reset();
    service.reset();
  }

  void aWrongPasswordThenTheRightOne() {
    start();
    client->enterEmail(u"  Maren@Northgate.EXAMPLE "_s);
    QTRY_COMPARE(client->signIn().step(), SignInModel::Step::password);
    client->signIn().setPassword(u"nearly"_s);
    client->signIn().submitPassword();
    QTRY_COMPARE(client->signIn().error(), u"That password isn’t right."_s);
    client->signIn().setPassword(marensPassword);
    client->signIn().submitPassword();
    QTRY_VERIFY(client->isSignedIn());
    QCOMPARE(client->app().userName(), u"Maren Kolbe"_s);
  }

  void aCodeFromTheEmail() {
    start();
    client->enterEmail(tomasAddress);
    QTRY_COMPARE(client->signIn().step(), SignInModel::Step::code);
    QVERIFY(client->signIn().resendIn() > 0);
    const QString code = service->codeFor(tomasAddress);
    client->signIn().setCode(code == u"000000"_s ? u"000001"_s : u"000000"_s);
    client->signIn().submitCode();
    QTRY_COMPARE(client->signIn().error(), u"That code isn’t right. 4 tries left."_s);
    client->signIn().setCode(code);
    client->signIn().submitCode();
    QTRY_VERIFY(client->isSignedIn());
    QCOMPARE(client->app().current()->role.rawValue, u"member"_s);
  }

  void googleInTheBrowser() {
    start();
    QTRY_VERIFY(client->signIn().offersGoogle());
    client->signIn().continueWithGoogle();
    QCOMPARE(desk->browser.opened.size(), 1);
    const auto page = QString::fromUtf8(browse(desk->browser.opened.first()));
    const QString link = QRegularExpression(u"href='([^']+)'"_s).match(page).captured(1);
    client->signIn().takeGoogleLink(link);
    QTRY_VERIFY(client->isSignedIn());
    QCOMPARE(client->app().userEmail(), marensAddress);

    // Another flow cannot use the link again: it was given for another challenge, and it is spent.
    client->app().signOut();
    QTRY_VERIFY(client->signIn().offersGoogle());
    client->signIn().continueWithGoogle();
    client->signIn().takeGoogleLink(link);
    QTRY_VERIFY(client->signIn().error().startsWith(u"This sign-in link is no longer valid"_s));
  }

  void aRelaunchKeepsTheSessionUntilSignOut() {
    start();
    client->signInWithPassword();
    client->app().openWorkspace(u"caldera"_s);
    const QString token = client->token();
    QTRY_VERIFY(desk->keychain.items[u"session"_s].contains("\"caldera\""));

    relaunch();
    QVERIFY(client->isSignedIn());
    QCOMPARE(client->token(), token);
    QCOMPARE(client->app().current()->slug, u"caldera"_s);
    client->showCampaigns();

    client->app().signOut();
    QTRY_VERIFY(desk->keychain.items.empty());
    relaunch();
    QVERIFY(!client->isSignedIn());
  }

  void signingOutEndsTheSessionOnTheService() {
    start();
    client->signInWithPassword();
    const QString token = client->token();
    client->app().signOut();
    QTRY_COMPARE(client->refusalElsewhere(Requests::me(), token), APIError::of(APIError::Kind::unauthorized));
  }

  void pausingAndResumingAreTrueOnTheService() {
    openCampaigns();
    const QString id = client->find(running)->id;
    client->campaigns().pause(id);
    QVERIFY(client->campaigns().busy().contains(id));
    QTRY_COMPARE(client->told(), QStringList{running + u" paused"_s});
    QVERIFY(!client->campaigns().busy().contains(id));
    QCOMPARE(client->sendElsewhere(Requests::getCampaign(id)).status.rawValue, u"paused"_s);
    client->campaigns().resume(id);
    QTRY_COMPARE(statusOf(running), u"running"_s);
    QCOMPARE(client->sendElsewhere(Requests::getCampaign(id)).status.rawValue, u"running"_s);
  }

  void anEditOfAStaleCampaignIsRefusedAndTheListCatchesUp() {
    openCampaigns();
    const QString id = client->find(running)->id;
    CampaignPatch patch;
    patch.name = u"Renamed elsewhere"_s;
    client->sendElsewhere(Requests::updateCampaign(id, patch, {}));

    client->campaigns().beginRename(id);
    client->campaigns().rename()->setText(u"Renamed here"_s);
    client->campaigns().rename()->submit();
    QTRY_VERIFY(client->told().contains(u"Couldn’t rename the campaign."_s));
    QTRY_VERIFY(client->find(u"Renamed elsewhere"_s));
    QVERIFY(client->campaigns().busy().ids().isEmpty());

    client->campaigns().beginRename(id);
    client->campaigns().rename()->setText(u"Renamed here"_s);
    client->campaigns().rename()->submit();
    QTRY_VERIFY(client->find(u"Renamed here"_s));
  }

  void aDeletedCampaignComesBackOrGoesForGood() {
    openCampaigns();
    auto& store = client->campaigns();
    const QString id = client->find(running)->id;
    const auto confirm = [&] {
      QTRY_VERIFY(client->app().overlays()->asking());
      client->app().overlays()->answer(client->app().overlays()->token(), true);
    };
    store.remove(id);
    confirm();
    QTRY_VERIFY(!client->find(running));
    client->toasts().act(client->toasts().toasts().last().id);
    QTRY_VERIFY(client->find(running));
    QCOMPARE(statusOf(running), u"paused"_s);

    QTRY_VERIFY(store.busy().ids().isEmpty());
    store.remove(id);
    confirm();
    QTRY_VERIFY(!client->find(running));
    store.setShowArchived(true);
    QTRY_VERIFY(store.archived()->value());
    store.removeForGood(id);
    confirm();
    QTRY_VERIFY(client->told().contains(running + u" deleted for good"_s));
    QCOMPARE(client->refusalElsewhere(Requests::getCampaign(id), client->token())->code(), u"not_found"_s);
  }

  void aNewCampaignIsThereForEverybodyAndIsOpened() {
    openCampaigns();
    client->campaigns().beginCreate();
    client->campaigns().newCampaign()->setText(u"  Dairy farms, Jutland "_s);
    client->campaigns().newCampaign()->submit();
    QTRY_VERIFY(client->find(u"Dairy farms, Jutland"_s));
    const QString id = client->find(u"Dairy farms, Jutland"_s)->id;
    QTRY_COMPARE(client->app().router()->campaign(), id);
    QCOMPARE(client->sendElsewhere(Requests::getCampaign(id)).status.rawValue, u"draft"_s);
  }

  void theAnalyticsOfACampaignAreSavedAsAFile() {
    // One that sends no more: towards midnight the workspace's day is another one than this machine's.
    const auto ended = u"Payroll switchers, Ireland"_s;
    openCampaigns();
    QTemporaryDir folder;
    desk->filePanel.folder = folder.path();
    client->campaigns().downloadAnalytics(client->find(ended)->id);
    QTRY_VERIFY(!client->told().isEmpty());
    QFile file(folder.filePath(desk->filePanel.suggested));
    QCOMPARE(client->told().last(), u"Saved "_s + desk->filePanel.suggested);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    QVERIFY(lines.value(1).startsWith(u"\"%1\","_s.arg(ended)));
    QVERIFY(lines[1].contains(u",%1,"_s.arg(client->find(ended)->sent)));
  }

  void aSessionEndedElsewhereSaysSo() {
    openCampaigns();
    client->sendElsewhere(Requests::logOut());
    const QPointer<CampaignsStore> old(&client->campaigns());
    client->campaigns().pause(client->find(running)->id);
    QTRY_VERIFY(!client->isSignedIn());
    QCOMPARE(client->signIn().notice(), u"Your session ended. Sign in again."_s);
    QCOMPARE(client->app().session(), nullptr);
    QTRY_VERIFY(desk->keychain.items.empty());
    QTRY_VERIFY(!old);
    QVERIFY(client->told().isEmpty());
    client->signInWithPassword();
    client->showCampaigns();
    QCOMPARE(statusOf(running), u"running"_s);
  }

  void eachWorkspaceHasItsOwnCampaigns() {
    openCampaigns();
    client->app().openWorkspace(u"caldera"_s);
    client->showCampaigns();
    QCOMPARE(client->campaigns().list()->value()->items.size(), 3);
    QVERIFY(!client->find(running));
    client->app().openWorkspace(u"fresh"_s);
    client->campaigns().ensureLoaded();
    QTRY_COMPARE(client->campaigns().list()->stateName(), ResourceBase::State::Empty);
    client->app().openWorkspace(u"northgate"_s);
    QVERIFY(client->find(running));
    QTRY_COMPARE(client->sendElsewhere(Requests::me()).lastWorkspace, u"northgate"_s);
  }

  void aServiceThatDiesLeavesNothingWaiting() {
    openCampaigns({u"--log"_s, u"--hold"_s, u"/pause"_s});
    auto& store = client->campaigns();
    const QString id = client->find(running)->id;
    const auto rows = store.rows()->rowCount();
    store.pause(id);
    service->waitFor(u"POST /api/v1/w/northgate/campaigns/"_s + id + u"/pause"_s);
    service->kill();
    QTRY_VERIFY(store.busy().ids().isEmpty());
    QVERIFY(client->told().contains(u"You’re offline. Connect to the internet and try again."_s));
    // The outcome is unknown, so the list was asked for again, and there is nobody to ask.
    QTRY_VERIFY(!store.list()->refreshing());
    QTRY_VERIFY(client->told().contains(u"Orvella can’t be reached right now. Try again in a moment."_s));
    QCOMPARE(statusOf(running), u"running"_s);
    QCOMPARE(store.rows()->rowCount(), rows);
    QVERIFY(client->isSignedIn());
  }

  void aServiceThatIsNotThereIsToldOnTheFirstScreenToo() {
    openCampaigns();
    service->kill();
    client->app().openWorkspace(u"caldera"_s);
    client->campaigns().ensureLoaded();
    QTRY_COMPARE(client->campaigns().list()->stateName(), ResourceBase::State::Error);
    QCOMPARE(client->campaigns().list()->message(), u"Orvella can’t be reached right now. Try again in a moment."_s);
    client->app().signOut();
    client->enterEmail(marensAddress);
    QTRY_COMPARE(client->signIn().error(), u"Orvella can’t be reached right now. Try again in a moment."_s);
    QVERIFY(!client->signIn().busy());
  }
};

QTEST_GUILESS_MAIN(HttpTest)
#include "http_test.moc"
