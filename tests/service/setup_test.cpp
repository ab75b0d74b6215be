#include <QTemporaryDir>
#include <QTest>

#include "app/setup/SetupProjectStore.h"
#include "kit/models/mailboxes/mailboxPage.h"
#include "kit/models/mailboxes/mailboxRequests.h"
#include "kit/models/setup/setupRequests.h"
#include "tests/service/Client.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

/// Inbox setup's whole way over HTTP, from a name and a column of domains to the inboxes' credentials.
class SetupJourneyTest : public QObject {
  Q_OBJECT

  static constexpr int aRunsTime = 40'000;
  // The service takes the same steps at the same pace on the same names.
  const QString finished = u"pier.example"_s, left = u"road.example"_s;

  std::unique_ptr<ServiceProcess> service;
  std::unique_ptr<Desk> desk;
  std::unique_ptr<Client> client;
  QTemporaryDir folder;

  InboxSetupStore& setup() { return *client->app().session()->store<InboxSetupStore>(); }
  SetupProjectStore& opened() {
    return *client->app().session()->item<SetupProjectStore>(Page::inboxSetup,
                                                             client->app().router()->openedItem(Page::inboxSetup));
  }
  template <class R>
  R send(Request<R> request) {
    return client->sendElsewhere(std::move(request));
  }
  SetupRun runElsewhere() { return *send(Requests::latestSetupRun(opened().id())).run; }
  bool isTold(const QString& sentence) { return client->told().contains(sentence); }

  void start(const QStringList& options = {}) {
    service = std::make_unique<ServiceProcess>(options);
    desk = std::make_unique<Desk>();
    desk->filePanel.folder = folder.path();
    client = std::make_unique<Client>(*desk, service->url());
    client->signInWithPassword();
    setup().list()->appear();
    setup().ensureLoaded();
    QTRY_VERIFY(setup().list()->hasContent());
  }
  /// Of inboxes that work already, because these are connected within seconds.
  void makeProject() {
    NewProject& form = *setup().newProject();
    setup().beginCreate();
    form.setMode(u"existing"_s);
    form.goOn();
    form.setName(u"  Quay / harbour "_s);
    form.goOn();
    QTRY_VERIFY2(!form.shown(), qPrintable(form.error()));
    opened().ensureLoaded();
    QTRY_VERIFY(opened().project()->hasContent());
    QCOMPARE(opened().name(), u"Quay / harbour"_s);
  }
  void fillIn() {
    SetupForm& form = *opened().form();
    QCOMPARE(opened().domains()->add(finished + u"\r\nEllen@Road.EXAMPLE\nnot a domain"_s), u"not a domain"_s);
    for (const auto& [field, value] : {std::pair(u"admin"_s, u"ellen"_s), std::pair(u"firstName"_s, u"Ellen"_s),
                                       std::pair(u"lastName"_s, u"Marsh"_s)})
      form.set(field, value);
    form.addTags({u"harbour"_s});
    form.password()->setText(u"canary-admin-password"_s);
  }
  void begin() {
    makeProject();
    fillIn();
    QVERIFY(opened().act(u"run"_s));
    QTRY_COMPARE(opened().runState(), u"ready"_s);
    QVERIFY(isTold(u"Run started on 2 domains"_s));
    QCOMPARE(opened().runText(), u"Running"_s);
    QVERIFY(send(Requests::getSetupProject(opened().id())).hasPassword && !opened().form()->dirty());
  }
  void terminate() {
    QVERIFY(opened().act(u"terminate"_s));
    Overlays& overlays = *client->app().overlays();
    QTRY_COMPARE(overlays.title(), u"Terminate this run?"_s);
    overlays.answer(overlays.token(), true);
    QTRY_COMPARE(opened().runText(), u"Stopped"_s);
  }

 private Q_SLOTS:
  void cleanup() {
    client.reset();
    desk.reset();
    service.reset();
  }

  void fromANameToCredentials() {
    start();
    makeProject();
    QFile photo(folder.filePath(u"face.png"_s));
    const QByteArray picture = "\x89PNG\r\n\x1a\n" + QByteArray(mostPhotoBytes - 8, 'x');
    QVERIFY(photo.open(QIODevice::WriteOnly) && photo.write(picture) == picture.size());
    photo.close();
    desk->filePanel.opened = photo.fileName();
    opened().photo()->choose();
    QTRY_VERIFY(isTold(u"Photo saved"_s));
    QCOMPARE(send(Requests::setupPhoto(opened().id(), 7)).data, picture);
    fillIn();
    opened().domains()->lookUp();
    QTRY_VERIFY(!opened().domains()->rows()->records()[0].detail.isEmpty());

    QVERIFY(opened().act(u"run"_s));
    QTRY_COMPARE(opened().runState(), u"ready"_s);
    QVERIFY(opened().act(u"pause"_s));
    QTRY_COMPARE(opened().runText(), u"Paused"_s);
    QVERIFY(runElsewhere().control.isPaused());
    QVERIFY(opened().act(u"resume"_s));
    QTRY_COMPARE(opened().runText(), u"Running"_s);
    terminate();
    QCOMPARE(opened().runHeadline(), u"0 of 6 inboxes connected"_s);

    opened().retryDomain(finished);
    QTRY_COMPARE_WITH_TIMEOUT(opened().runHeadline(), u"3 of 6 inboxes connected"_s, aRunsTime);
    for (const SetupRow& row : runElsewhere().rows) QCOMPARE(row.state.isDone(), row.domain == finished);
    // The list counts it as well, and whoever looks for accounts finds them.
    QTRY_COMPARE_WITH_TIMEOUT(setup().find(opened().id())->lastRun->connected, 3, 15'000);
    const auto accounts = send(Requests::listMailboxes()).items;
    QCOMPARE(std::ranges::count_if(accounts,
                                   [&](const Mailbox& each) {
                                     return each.address.endsWith(finished) &&
                                            each.tags == QList<QString>{u"harbour"_s};
                                   }),
             3);

    opened().select(u"domain:"_s + finished);
    QTRY_VERIFY_WITH_TIMEOUT(!opened().checks()->checking() && !opened().checks()->lines().isEmpty(), 15'000);
    for (const QVariant& inbox : opened().checks()->inboxes()) QCOMPARE(inbox.value<InboxCheck>().connected, u"yes"_s);

    QVERIFY(opened().act(u"credentials"_s));
    QTRY_VERIFY(isTold(u"Saved Quay - harbour inboxes.csv"_s));
    QFile csv(folder.filePath(u"Quay - harbour inboxes.csv"_s));
    QCOMPARE(csv.permissions() & ~(QFile::ReadUser | QFile::WriteUser), QFile::ReadOwner | QFile::WriteOwner);
    QVERIFY(csv.open(QIODevice::ReadOnly));
    const QByteArray lines = csv.readAll();
    for (const auto& name : {"ellen@", "e.marsh@", "marsh@"}) QVERIFY(lines.contains(name + finished.toUtf8() + ','));
    QVERIFY(!lines.contains(left.toUtf8()) && desk->revealer.revealed.isEmpty());
    for (const QString& told : client->told()) QVERIFY(!told.contains("canary"_L1));
  }

  void aServiceThatDiesMidRun() {
    start({u"--hold"_s, u"/pause"_s});
    begin();
    QVERIFY(opened().act(u"pause"_s));
    QVERIFY(opened().busy());
    opened().domains()->add(u"later.example"_s);
    service->kill();
    QTRY_VERIFY(!opened().busy());
    QVERIFY(isTold(u"Couldn’t stop the run."_s));
    // What was seen and typed stays; that nothing answers is said once, however often it is asked.
    QTRY_VERIFY(!opened().runFailure().isEmpty());
    const auto told = client->told().size();
    QCOMPARE(opened().runState(), u"ready"_s);
    QCOMPARE(opened().runText(), u"Running"_s);
    QVERIFY(opened().form()->dirty());

    // Another takes its place and knows nobody: the run's poller learns of it.
    const QString port = QString::number(service->url().port());
    service = std::make_unique<ServiceProcess>(QStringList{u"--port"_s, port});
    QTRY_VERIFY_WITH_TIMEOUT(!client->isSignedIn(), 15'000);
    QVERIFY(client->told().size() <= told + 1);
    QVERIFY(!client->signIn().notice().isEmpty());
    client->signInWithPassword();
    setup().ensureLoaded();
    QTRY_COMPARE(setup().rows()->count(), 3);
  }
};

QTEST_GUILESS_MAIN(SetupJourneyTest)
#include "setup_test.moc"
