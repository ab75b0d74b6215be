#include <QAbstractItemModelTester>
#include <random>

#include "tests/app/accounts/AccountFixture.h"
#include "tests/support/seed.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto create = u"POST /mailboxes"_s;
const auto statusCall = u"GET /google-workspace"_s;
const auto directoryCall = u"POST /google-workspace/directory"_s;
const auto connectCall = u"POST /google-workspace/connect"_s;

const QByteArray ready = R"({"ready":true,"clientId":"1090","scope":"s1,s2","adminUrl":"https://admin.example/",)"
                         R"("canUpload":false})";
const QByteArray missing = R"({"code":"admin_step_missing","domain":"a.example","addresses":[],"existing":[]})";
const QByteArray people = R"({"domain":"a.example","addresses":["ana@a.example","ben@a.example","cy@a.example"],)"
                          R"("existing":["BEN@a.example"]})";

QByteArray coded(const QByteArray& code, const QByteArray& message = {}) {
  return R"({"code":")" + code + R"(",)" + (message.isEmpty() ? "" : R"("message":")" + message + R"(",)") +
         R"("domain":"a.example","addresses":[],"existing":[]})";
}

}  // namespace

class AddingTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AccountFixture> f;
  std::unique_ptr<AddAccount> adding;

  void choose(const QString& way) {
    if (way == "google"_L1) f->api.expect(statusCall);
    adding->show();
    adding->choose(way);
  }
  void openGoogle() {
    choose(u"google"_s);
    f->api.answer(statusCall, ready);
  }
  void find(const QByteArray& answer) {
    f->api.expect(directoryCall);
    adding->google()->find(u" it@a.example "_s);
    f->api.answer(directoryCall, answer);
  }
  QString field(const QString& name) const { return adding->connection()->draft()->values().value(name).toString(); }
  void type(const QString& name, const QVariant& value) { adding->connection()->set(name, value); }
  void fillSmtp() {
    choose(u"smtp"_s);
    type(u"address"_s, u"ana@a.example"_s);
    type(u"displayName"_s, u"Ana"_s);
    adding->connection()->setPassword(u"Tell-nobody"_s);
  }
  void tick(int times = 1) {
    for (int i = 0; i < times; ++i) {
      f->clock.advance(4s);
      settle();
    }
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AccountFixture>();
    adding = std::make_unique<AddAccount>(*f->context, f->actions);
  }
  void cleanup() {
    adding.reset();
    f.reset();
  }

  void serversAreGuessed_data() {
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("smtp");
    QTest::addColumn<QString>("imap");
    const QString gmail = u"smtp.gmail.com"_s, outlook = u"smtp-mail.outlook.com"_s;
    for (const char* domain : {"gmail.com", "googlemail.com", "GMail.com"})
      QTest::newRow(domain) << u"a@"_s + QLatin1String(domain) << gmail << u"imap.gmail.com"_s;
    for (const char* domain : {"outlook.com", "hotmail.com", "live.com"})
      QTest::newRow(domain) << u"a@"_s + QLatin1String(domain) << outlook << u"outlook.office365.com"_s;
    QTest::newRow("of one's own") << u"a@Mail.example"_s << u"smtp.mail.example"_s << u"imap.mail.example"_s;
    QTest::newRow("the last at") << u"\"a@b\"@c.example"_s << u"smtp.c.example"_s << u"imap.c.example"_s;
    QTest::newRow("no domain yet") << u"a@b"_s << QString() << QString();
    QTest::newRow("no address") << u"a.example"_s << QString() << QString();
  }
  void serversAreGuessed() {
    QFETCH(QString, address);
    choose(u"smtp"_s);
    type(u"address"_s, address);
    QTEST(field(u"smtpHost"_s), "smtp");
    QTEST(field(u"imapHost"_s), "imap");
  }

  void whatWasTypedIsNeverGuessedOver() {
    choose(u"smtp"_s);
    type(u"address"_s, u"a@outlook.com"_s);
    QCOMPARE(field(u"username"_s), u"a@outlook.com"_s);
    type(u"address"_s, u"a@b.example"_s);
    QCOMPARE(field(u"smtpHost"_s), u"smtp.b.example"_s);
    type(u"smtpHost"_s, u"mail.b.example"_s);
    type(u"username"_s, u"ana"_s);
    type(u"address"_s, u"a@c.example"_s);
    QCOMPARE(field(u"smtpHost"_s), u"mail.b.example"_s);
    QCOMPARE(field(u"imapHost"_s), u"imap.c.example"_s);
    QCOMPARE(field(u"username"_s), u"ana"_s);
    // Taken away again, there is nothing left to keep.
    type(u"smtpHost"_s, QString());
    type(u"address"_s, u"a@d.example"_s);
    QCOMPARE(field(u"smtpHost"_s), u"smtp.d.example"_s);
  }

  void portsAreWholeNumbers_data() {
    QTest::addColumn<QString>("port");
    QTest::addColumn<bool>("good");
    for (const char* good : {"1", "65535", " 587 ", "+25"}) QTest::newRow(good) << QString::fromLatin1(good) << true;
    for (const char* bad : {"", "0", "65536", "-1", "5.5", "587a", "0x1f"})
      QTest::newRow(bad) << QString::fromLatin1(bad) << false;
  }
  void portsAreWholeNumbers() {
    QFETCH(QString, port);
    QFETCH(bool, good);
    fillSmtp();
    type(u"imapPort"_s, port);
    if (good) f->api.expect(create);
    adding->submit();
    const auto problems = adding->connection()->draft()->problems();
    QCOMPARE(problems.value(u"imapPort"_s).toString(), good ? QString() : u"Enter a port from 1 to 65535"_s);
    QVERIFY(!problems.contains(u"smtpPort"_s));
    if (good) QCOMPARE(f->sentBody()["connection"_L1]["imap"_L1]["port"_L1].toInt(), port.trimmed().toInt());
    QCOMPARE(adding->busy(), good);
  }

  void readingMayHaveALoginOfItsOwn() {
    fillSmtp();
    type(u"sameLogin"_s, false);
    type(u"imapUsername"_s, u"reader"_s);
    type(u"smtpSecure"_s, true);
    adding->connection()->setImapPassword(u" r "_s);
    f->api.expect(create);
    adding->submit();
    const QJsonObject sent = f->sentBody()["connection"_L1].toObject();
    QCOMPARE(sent["imapUsername"_L1].toString(), u"reader"_s);
    QCOMPARE(sent["imapPassword"_L1].toString(), u" r "_s);
    QCOMPARE(sent["smtp"_L1]["secure"_L1].toBool(), true);
  }

  void aFailureKeepsWhatWasTyped_data() {
    QTest::addColumn<QString>("way");
    QTest::addColumn<QByteArray>("refusal");
    QTest::addColumn<QString>("told");
    const QByteArray mute = R"({"code":"no_way"})", said = R"({"detail":"It is connected already."})";
    QTest::newRow("smtp") << u"smtp"_s << said << u"Couldn’t add the account. It is connected already."_s;
    QTest::newRow("smtp, no reason")
        << u"smtp"_s << mute
        << u"Couldn’t add the account. Check the server names, the port and the app password, then try again."_s;
    QTest::newRow("microsoft, no reason")
        << u"microsoft"_s << mute << u"Couldn’t add the account. Check the details and try again."_s;
  }
  void aFailureKeepsWhatWasTyped() {
    QFETCH(QString, way);
    QFETCH(QByteArray, refusal);
    choose(way);
    type(u"address"_s, u"ana@a.example"_s);
    adding->connection()->setPassword(u"p"_s);
    adding->connection()->setClientSecret(u"s"_s);
    f->api.expect(create);
    adding->submit();
    QVERIFY(adding->busy());
    f->api.answer(create, refusal, 422);
    QTEST(adding->error(), "told");
    QVERIFY(adding->shown() && !adding->busy());
    QCOMPARE(field(u"address"_s), u"ana@a.example"_s);
    QCOMPARE(adding->connection()->password(), u"p"_s);
    QCOMPARE(adding->connection()->clientSecret(), u"s"_s);
    QCOMPARE(f->toasts.count(), 0);
  }

  void secretsGoWithTheDialog() {
    f->journal.open({u"u1"_s, u"https://service.example"_s});
    fillSmtp();
    adding->connection()->setClientSecret(u"s"_s);
    f->clock.advance(5s);
    settle();
    f->journal.write();
    for (const QByteArray& bytes : std::as_const(f->journalFiles.files)) QVERIFY(!bytes.contains("Tell-nobody"));
    QVERIFY(!f->journalFiles.files.isEmpty());
    adding->cancel();
    QVERIFY(adding->connection()->password().isEmpty() && adding->connection()->clientSecret().isEmpty());
    adding->show();
    adding->choose(u"smtp"_s);
    QVERIFY(adding->connection()->password().isEmpty());
    QCOMPARE(field(u"address"_s), QString());
  }

  void anAddedAccountIsLookedAfter() {
    fillSmtp();
    f->api.expect(create);
    adding->submit();
    f->api.answer(create, f->mailbox(1, {}, "verifying"), 201);
    QVERIFY(!adding->shown());
    QCOMPARE(f->lastToast(), u"ana@a.example added. Checking the connection…"_s);
    for (int look = 0; look < 2; ++look) {
      f->clock.advance(5999ms);
      QCOMPARE(f->api.waiting(), 0);
      f->api.expect(f->get);
      f->clock.advance(1ms);
      f->api.answer(f->get, look == 0 ? f->mailbox(1, {}, "verifying") : f->mailbox(2));
    }
    QCOMPARE(f->lastToast(), u"ana@a.example connected"_s);
    f->clock.advance(60s);
    QCOMPARE(f->asked(f->get), 2);
  }

  void anAddedAccountIsLookedAfterFiveTimes() {
    fillSmtp();
    f->api.expect(create);
    adding->submit();
    f->api.answer(create, f->mailbox(1, {}, "verifying"), 201);
    for (int look = 0; look < 5; ++look) {
      f->api.expect(f->get);
      f->clock.advance(6s);
      // A reading that is lost is one of the five.
      if (look == 2)
        f->api.fail(f->get, TransportFailure::offline);
      else
        f->api.answer(f->get, f->mailbox(1, {}, "verifying"));
    }
    f->clock.advance(60s);
    QCOMPARE(f->asked(f->get), 5);
  }

  void whatIsClosedWhileBusyIsToldAllTheSame() {
    fillSmtp();
    f->api.expect(create);
    adding->submit();
    adding->cancel();
    QVERIFY(adding->connection()->password().isEmpty());
    f->api.answer(create, R"({"detail":"No."})", 422);
    QCOMPARE(f->lastToast(), u"Couldn’t add the account. No."_s);
    QVERIFY(!adding->shown() && !adding->busy());
  }

  void viewersAddNothing() {
    f->context->setWorkspace({u"w1"_s, u"acme"_s, u"Acme"_s, {u"viewer"_s}, {}, {}});
    adding->show();
    adding->choose(u"smtp"_s);
    QCOMPARE(adding->way(), AddAccount::Way::none);
  }

  void googleSaysWhatStandsInTheWay_data() {
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("problem");
    QTest::newRow("no admin")
        << coded("need_admin")
        << u"That address is not a Google Workspace admin. Use the account that signs in to admin.google.com."_s;
    QTest::newRow("private") << coded("personal_gmail")
                             << u"That is a personal Gmail address. Google Workspace only."_s;
    QTest::newRow("other") << coded("suspended", "The domain is suspended.")
                           << u"Google answered with The domain is suspended."_s;
    QTest::newRow("in two lines") << coded("suspended", R"(The domain\nis suspended.)")
                                  << u"Google answered with The domain is suspended."_s;
  }
  void googleSaysWhatStandsInTheWay() {
    QFETCH(QByteArray, answer);
    openGoogle();
    find(answer);
    QCOMPARE(f->sentBody()["address"_L1].toString(), u"it@a.example"_s);
    QTEST(adding->google()->problem(), "problem");
    QCOMPARE(adding->google()->stage(), GoogleConnect::Stage::asking);
    QVERIFY(!adding->google()->looking() && !adding->google()->waiting());
  }

  void anEmptyCodeStandsInNobodysWay() {
    openGoogle();
    find(QByteArray(people).replace(R"({"domain")", R"({"code":"","domain")"));
    QCOMPARE(adding->google()->stage(), GoogleConnect::Stage::directory);
  }

  void googleIsNotSetUpEverywhere() {
    choose(u"google"_s);
    f->api.fail(statusCall, TransportFailure::offline);
    QCOMPARE(adding->google()->stage(), GoogleConnect::Stage::checking);
    f->api.expect(statusCall);
    adding->google()->retry();
    f->api.answer(statusCall, R"({"ready":false,"scope":"","adminUrl":"","canUpload":false})");
    QCOMPARE(adding->google()->stage(), GoogleConnect::Stage::unavailable);
  }

  void theWaitEndsAfterTheLastOf225Polls() {
    openGoogle();
    find(missing);
    GoogleConnect& flow = *adding->google();
    for (int poll = 1; poll <= 225; ++poll) {
      QVERIFY(flow.waiting());
      QCOMPARE(flow.waitedText(), u"Checked %1 times · stops after 15 minutes"_s.arg(poll - 1));
      f->api.expect(directoryCall);
      tick();
      f->api.answer(directoryCall, missing);
    }
    QVERIFY(!flow.waiting());
    QCOMPARE(flow.waitedSeconds(), 900);
    QCOMPARE(flow.problem(),
             u"No Authorize click seen in 15 minutes. Do the step in Google Admin, then press Find inboxes again."_s);
    tick(5);
    QCOMPARE(f->asked(directoryCall), 226);
  }

  void noTimeCountsWhileTheMachineSleeps() {
    openGoogle();
    find(missing);
    f->clock.jump(2h);
    settle();
    QCOMPARE(adding->google()->waitedSeconds(), 0);
    f->api.expect(directoryCall);
    tick();
    f->api.answer(directoryCall, people);
    QCOMPARE(adding->google()->stage(), GoogleConnect::Stage::directory);
  }

  /// Whatever is answered and pressed, in any order: one question at a time, none after the end, and what is shown is
  /// what was answered last.
  void anyAnswerInAnyOrder() {
    std::mt19937 random(printedSeed());
    const auto oneOf = [&random](int count) { return int(random() % uint(count)); };
    GoogleConnect& flow = *adding->google();
    openGoogle();
    for (int step = 0; step < 600; ++step) {
      QVERIFY(f->api.waiting() <= 1);
      QVERIFY(!(flow.looking() && flow.waiting()));
      if (f->api.isWaiting(directoryCall)) {
        switch (oneOf(6)) {
          case 0:
          case 1:
            f->api.answer(directoryCall, missing);
            break;
          case 2:
            f->api.answer(directoryCall, people);
            break;
          case 3:
            f->api.answer(directoryCall, coded("need_admin"));
            break;
          case 4:
            f->api.answer(directoryCall, R"({"detail":"No."})", 422);
            break;
          default: {
            const bool waits = flow.waiting();
            f->api.fail(directoryCall, TransportFailure::offline);
            // A lost reading ends no wait, and begins none.
            QCOMPARE(flow.waiting(), waits && flow.waitedSeconds() < 900);
          }
        }
        continue;
      }
      const int polls = f->asked(directoryCall);
      switch (oneOf(5)) {
        case 0:
          f->api.expect(directoryCall);
          flow.find(u"it@a.example"_s);
          QVERIFY(flow.looking() && flow.waitedSeconds() == 0);
          break;
        case 1:
          flow.cancelWait();
          f->clock.advance(60s);
          settle();
          QCOMPARE(f->asked(directoryCall), polls);
          break;
        default: {
          const bool waits = flow.waiting();
          if (waits) f->api.expect(directoryCall);
          tick();
          QCOMPARE(f->asked(directoryCall), polls + waits);
        }
      }
    }
    adding->cancel();
    const int asked = f->asked(directoryCall);
    f->clock.advance(60s);
    settle();
    QCOMPARE(f->asked(directoryCall), asked);
    QVERIFY(!flow.waiting() && !flow.looking());
  }

  void newInboxesArePickedAndConnected() {
    openGoogle();
    GoogleConnect& flow = *adding->google();
    const QAbstractItemModelTester tester(flow.inboxes(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    find(people);
    QCOMPARE(flow.directoryText(), u"2 new on a.example, 1 already connected"_s);
    QCOMPARE(flow.connectLabel(), u"Connect 2 inboxes"_s);
    flow.toggle(u"ben@a.example"_s);
    QCOMPARE(flow.pickedCount(), 2);
    flow.toggle(u"cy@a.example"_s);
    QCOMPARE(flow.connectLabel(), u"Connect 1 inbox"_s);
    f->api.expect(connectCall);
    flow.connectPicked();
    flow.connectPicked();
    QCOMPARE(f->sentBody()["addresses"_L1].toArray(), QJsonArray{u"ana@a.example"_s});
    f->api.answer(connectCall,
                  R"({"results":[{"address":"ana@a.example","domain":"a.example","status":"failed","message":"Off"}],)"
                  R"("connected":0})");
    QCOMPARE(flow.outcomeText(), u"0 of 1 connected"_s);
    QCOMPARE(flow.inboxes()->records().front().statusText, u"Failed"_s);
  }

  void whatIsConnectedAfterTheDialogIsTold() {
    openGoogle();
    find(people);
    f->api.expect(connectCall);
    adding->google()->connectPicked();
    adding->cancel();
    adding->show();
    f->api.answer(connectCall, R"({"results":[],"connected":2})");
    QCOMPARE(f->lastToast(), u"2 of 0 connected"_s);
    QVERIFY(!adding->google()->outcome());
  }

  void aDomainWithNobodyNewOffersNothing() {
    openGoogle();
    find(R"({"domain":"a.example","addresses":["a@a.example"],"existing":["a@a.example"]})");
    QCOMPARE(adding->google()->pickable(), 0);
    adding->google()->pickAll(true);
    QVERIFY(!adding->google()->canConnect());
  }

  void whatIsToBePastedIsCopied() {
    openGoogle();
    find(missing);
    GoogleConnect& flow = *adding->google();
    flow.copy(u"scope"_s);
    QCOMPARE(f->clipboard.text, u"s1,s2"_s);
    QCOMPARE(flow.copied(), u"scope"_s);
    f->clock.advance(2s);
    settle();
    QCOMPARE(flow.copied(), QString());
    flow.openAdmin();
    QCOMPARE(f->browser.opened.last(), QUrl(u"https://admin.example/"_s));
  }
};

QTEST_GUILESS_MAIN(AddingTest)
#include "adding_test.moc"
