#include <QTest>

#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/LaunchQuestion.h"
#include "kit/models/mailboxes/mailbox.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto get = u"GET /campaigns/c1"_s;
const auto launched = u"POST /campaigns/c1/launch"_s;
const QByteArray refusal = R"({"title":"Not now","detail":"It is being checked."})";

QByteArray campaign(const QByteArray& status, const QByteArray& more = {}) {
  return R"({"id":"c1","name":"Acme Q3","status":")" + status + R"(","version":7)" + more + "}";
}

QByteArray checked(const QByteArray& checks, const QByteArray& more = {}) {
  return R"({"checkedAt":"2026-11-21T10:00:00Z","passed":true,"current":true,"checks":[)" + checks + "]" + more + "}";
}

QByteArray check(const QByteArray& key, const QByteArray& status) {
  return R"({"key":")" + key + R"(","label":"The )" + key + R"(","status":")" + status + R"(","detail":"Look at it."})";
}

}  // namespace

class CampaignTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<CampaignStore> store;
  int changes = 0;

  void load(const QByteArray& answer) {
    f->api.expect(get);
    store->ensureLoaded();
    f->api.answer(get, answer);
    f->navigator.openItem(Page::campaigns, u"c1"_s);
  }
  void act(const QString& verb) {
    if (verb == "launch"_L1) store->launch();
    if (verb == "pause"_L1) store->pause();
    if (verb == "duplicate"_L1) store->duplicate();
    if (verb == "remove"_L1) store->remove();
    if (verb == "restore"_L1) store->restore();
    if (verb == "rename"_L1) {
      store->beginRename();
      store->renameForm()->setText(u" New name "_s);
      store->renameForm()->submit();
    }
    if (f->overlays.asking()) f->overlays.answer(f->overlays.token(), true);
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    changes = 0;
    store = std::make_unique<CampaignStore>(u"c1"_s, *f->context);
    f->context->changes().watch<Campaign>(store.get(), [this](const Change<Campaign>& change) {
      changes += change.acted && change.kind != Change<Campaign>::Kind::stale;
    });
  }
  void cleanup() {
    store.reset();
    f.reset();
  }

  void theLaunchQuestion_data() {
    QTest::addColumn<Campaign>("campaign");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    const auto of = [](qint64 leads, int inboxes, const QString& status = u"draft"_s) {
      Campaign campaign;
      campaign.name = u"Q3"_s;
      campaign.status = {status};
      campaign.stats.emplace().leads.total = leads;
      campaign.senders.emplace().resize(inboxes);
      return campaign;
    };
    const auto soon = u". The first email goes out in about 2 minutes."_s;
    QTest::newRow("one of each") << of(1, 1) << u"Launch Q3?"_s << u"1 lead · 1 inbox"_s + soon;
    QTest::newRow("many, resumed") << of(12345, 2, u"paused"_s) << u"Resume Q3?"_s
                                   << u"12,345 leads · 2 inboxes"_s + soon;
    Campaign bare;
    bare.name = u"Q3"_s;
    QTest::newRow("nothing known") << bare << u"Launch Q3?"_s << u"0 leads · 0 inboxes"_s + soon;

    Campaign outside = of(3, 2);
    outside.qc.emplace().external = {1, {}};
    QTest::newRow("one person") << outside << u"Launch Q3?"_s
                                << u"3 leads · 2 inboxes"_s + soon +
                                       u"\n\nGoes to 1 real person outside your own inboxes."_s;
    outside.qc->external = {3, {u"a@x.com"_s, u"b@x.com"_s, u"c@x.com"_s}};
    QTest::newRow("two are named")
        << outside << u"Launch Q3?"_s
        << u"3 leads · 2 inboxes"_s + soon +
               u"\n\nGoes to 3 real people outside your own inboxes, like a@x.com, b@x.com."_s;
    outside.qc->external = {0, {u"a@x.com"_s}};
    outside.qc->checks = {{u"a"_s, u"Links"_s, u"warn"_s, u"Two. Or three.."_s, {}},
                          {u"b"_s, u"Fine"_s, u"pass"_s, u"x"_s, {}},
                          {u"c"_s, u"Subject"_s, u"warn"_s, u"Long"_s, {}}};
    QTest::newRow("tips") << outside << u"Launch Q3?"_s
                          << u"3 leads · 2 inboxes"_s + soon +
                                 u"\n\nTips, it still sends: Links (Two. Or three.); Subject (Long)."_s;
  }
  void theLaunchQuestion() {
    QFETCH(Campaign, campaign);
    const ConfirmRequest question = launchQuestion(campaign);
    QTEST(question.title, "title");
    QTEST(question.text, "text");
    QCOMPARE(question.confirm, question.title.section(u' ', 0, 0));
    QCOMPARE(question.cancel, u"Cancel"_s);
  }

  void actions_data() {
    QTest::addColumn<QString>("verb");
    QTest::addColumn<QByteArray>("shown");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("success");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QString>("status");
    const QByteArray ready = R"(,"qc":)" + checked(check("steps", "pass"));
    QTest::newRow("launch") << u"launch"_s << campaign("draft", ready) << launched << campaign("running")
                            << u"Campaign launched. The first email goes out in about 2 minutes."_s << QString()
                            << u"running"_s;
    QTest::newRow("resume") << u"launch"_s << campaign("paused") << launched << campaign("running")
                            << u"Campaign resumed. Sends are being booked."_s << QString() << u"running"_s;
    QTest::newRow("pause") << u"pause"_s << campaign("running") << u"POST /campaigns/c1/pause"_s << campaign("paused")
                           << u"Campaign paused. Booked sends were cancelled."_s << u"Couldn’t pause the campaign."_s
                           << u"paused"_s;
    QTest::newRow("duplicate") << u"duplicate"_s << campaign("running") << u"POST /campaigns/c1/duplicate"_s
                               << QByteArray(R"-({"id":"c9","name":"Acme Q3 (copy)","status":"draft"})-")
                               << u"Acme Q3 (copy) created"_s << u"Couldn’t duplicate the campaign."_s << u"running"_s;
    QTest::newRow("remove") << u"remove"_s << campaign("running") << u"DELETE /campaigns/c1"_s << QByteArray()
                            << u"Deleted “Acme Q3”. It’s in Archived."_s << u"Couldn’t delete the campaign."_s
                            << u"running"_s;
    QTest::newRow("restore") << u"restore"_s << campaign("archived") << u"POST /campaigns/c1/restore"_s
                             << campaign("paused") << u"Acme Q3 restored"_s << u"Couldn’t restore the campaign."_s
                             << u"paused"_s;
    QTest::newRow("rename") << u"rename"_s << campaign("running") << u"PATCH /campaigns/c1"_s
                            << QByteArray(R"({"id":"c1","name":"New name","status":"running","version":8})")
                            << QString() << u"Couldn’t rename the campaign."_s << u"running"_s;
  }
  void actions() {
    QFETCH(QString, verb);
    QFETCH(QString, label);
    QFETCH(QByteArray, shown);
    QFETCH(QByteArray, answer);
    QFETCH(QString, failure);
    QFETCH(QString, success);
    QFETCH(QString, status);
    load(shown);
    const Campaign before = *store->campaign()->value();

    f->api.expect(label);
    act(verb);
    QVERIFY(store->busy());
    // A second press while the first is on its way does nothing.
    act(verb);
    f->api.answer(label, refusal, 422);
    QVERIFY(!store->busy());
    QVERIFY(*store->campaign()->value() == before);
    QCOMPARE(changes, 0);
    const auto told = f->toasts.toasts().last();
    QCOMPARE(told.message, failure.isEmpty() ? u"Not now: It is being checked."_s : failure);
    QCOMPARE(told.detail, failure.isEmpty() ? QString() : u"Not now: It is being checked."_s);

    f->toasts.clear();
    f->api.expect(label);
    act(verb);
    f->api.answer(label, answer, answer.isEmpty() ? 204 : 200);
    QVERIFY(!store->busy());
    QCOMPARE(store->statusWord(), status);
    QCOMPARE(changes, 1);
    QCOMPARE(f->toasts.count(), success.isEmpty() ? 0 : 1);
    if (!success.isEmpty()) QCOMPARE(f->toasts.toasts().last().message, success);
    QCOMPARE(store->name(), verb == "rename"_L1 ? u"New name"_s : u"Acme Q3"_s);
    QCOMPARE(f->navigator.openedItem(Page::campaigns).isEmpty(), verb == "remove"_L1);
  }

  void aStoreDroppedWhileWaiting_data() { actions_data(); }
  void aStoreDroppedWhileWaiting() {
    QFETCH(QString, verb);
    QFETCH(QString, label);
    QFETCH(QByteArray, shown);
    load(shown);
    f->api.expect(label);
    act(verb);
    store.reset();
    QCOMPARE(f->api.cancelled(), QStringList{label});
    settle();
    QCOMPARE(f->toasts.count(), 0);
    QCOMPARE(changes, 0);
  }

  void aLaunchIsCheckedFirst() {
    const auto qc = u"POST /campaigns/c1/qc"_s;
    load(campaign("draft",
                  R"(,"qc":)" + checked(check("steps", "pass")).replace("\"current\":true", "\"current\":false")));
    QCOMPARE(store->mainAction(), u"launch"_s);
    f->api.expect(qc);
    store->launch();
    f->api.answer(qc, checked(check("other", "fail") + "," + check("leads", "fail")));
    QCOMPARE(f->overlays.title(), u"Acme Q3 can’t launch yet"_s);
    QVERIFY(f->overlays.text().contains(u"The leads: Look at it."_s));
    f->overlays.answer(f->overlays.token(), true);
    QCOMPARE(store->tab(), CampaignStore::Tab::leads);
    QVERIFY(!store->busy());

    // Mended and checked again: whoever was named in the question is confirmed with it.
    f->api.expect(get);
    store->refresh();
    f->api.answer(get, campaign("draft"));
    f->api.expect(qc);
    store->launch();
    f->api.answer(qc, checked(check("leads", "warn"), R"(,"external":{"count":2,"sample":["a@x.com"]})"));
    QVERIFY(f->overlays.text().contains(u"2 real people"_s));
    f->api.expect(launched);
    f->overlays.answer(f->overlays.token(), true);
    QCOMPARE(f->api.last().request.body, R"({"confirmExternal":true})"_ba);
    f->api.answer(launched, campaign("running"));
    QCOMPARE(store->mainAction(), u"pause"_s);
  }

  void whatIsWrittenBehindTheQuestionIsLaunchedToo() {
    const auto put = u"PUT /campaigns/c1/steps"_s;
    const QByteArray ready = R"(,"qc":)" + checked(check("steps", "pass"));
    const auto saved = [&ready](const QByteArray& body) {
      return campaign("draft", ready + R"(,"steps":[{"id":"s1","position":1,"delayMinutes":0,"sameThread":false,)" +
                                   R"("variants":[{"id":"v1","label":"A","subject":"","body":")" + body +
                                   R"(","weight":1,"enabled":true}]}])");
    };
    load(saved("Hello"));
    const auto writeAndConfirm = [&](const QString& body) {
      QVERIFY(f->overlays.asking());
      store->sequence()->setBody(body);
      f->api.expect(put);
      f->overlays.answer(f->overlays.token(), true);
    };
    store->launch();
    writeAndConfirm(u"Hello there"_s);
    f->api.answer(put, refusal, 422);
    QCOMPARE(f->toasts.toasts().last().message, u"Couldn’t launch the campaign."_s);
    QCOMPARE(store->tab(), CampaignStore::Tab::sequence);
    QVERIFY(!store->busy());

    f->api.expect(put);
    store->launch();
    f->api.answer(put, saved("Hello there"));
    writeAndConfirm(u"Hello again"_s);
    f->api.expect(launched);
    f->api.answer(put, saved("Hello again"));
    f->api.answer(launched, campaign("running"));
    QCOMPARE(store->mainAction(), u"pause"_s);
  }

  void whoPausedItResumesItAfterThePageHasGone() {
    const auto pause = u"POST /campaigns/c1/pause"_s;
    load(campaign("running"));
    f->api.expect(pause);
    act(u"pause"_s);
    f->api.answer(pause, campaign("paused"));
    store.reset();
    f->api.expect(launched);
    f->toasts.act(f->toasts.toasts().last().id);
    f->api.answer(launched, campaign("running"));
    QCOMPARE(f->toasts.toasts().last().message, u"Campaign resumed. Sends are being booked."_s);
  }

  void aRenameCarriesTheVersionAndAConflictIsReadAgain() {
    load(campaign("running"));
    const auto patch = u"PATCH /campaigns/c1"_s;
    f->api.expect(patch);
    act(u"rename"_s);
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(7));
    QCOMPARE(f->api.last().request.body, R"({"name":"New name"})"_ba);
    f->api.expect(get);
    f->api.answer(patch, refusal, 409);
    QVERIFY(store->renameForm()->shown());
    QCOMPARE(store->renameForm()->text(), u" New name "_s);
    // The name that somebody else gave is seen by now, and may be replaced.
    f->api.answer(get, R"({"id":"c1","name":"Theirs","status":"running","version":9})");
    QCOMPARE(store->name(), u"Theirs"_s);
    f->api.expect(patch);
    store->renameForm()->submit();
    QCOMPARE(f->api.last().request.ifMatch, std::optional<qint64>(9));
    QCOMPARE(f->api.last().request.body, R"({"name":"New name"})"_ba);
    f->api.answer(patch, R"({"id":"c1","name":"New name","status":"running","version":10})");
    QVERIFY(!store->renameForm()->shown());
  }

  void deletionIsUndone() {
    load(campaign("running"));
    f->api.expect(u"DELETE /campaigns/c1"_s);
    store->remove();
    QCOMPARE(f->overlays.title(), u"Delete Acme Q3?"_s);
    QCOMPARE(f->overlays.text(),
             u"Stops sending at once. The campaign waits in Archived for 30 days, so you can restore it."_s);
    f->overlays.answer(f->overlays.token(), true);
    f->api.answer(u"DELETE /campaigns/c1"_s, {}, 204);
    f->api.expect(u"POST /campaigns/c1/restore"_s);
    f->toasts.act(f->toasts.toasts().last().id);
    f->api.answer(u"POST /campaigns/c1/restore"_s, campaign("paused"));
    QCOMPARE(f->toasts.toasts().last().message, u"Acme Q3 restored"_s);
  }

  void whatBecameOfItsAccountsIsReadAndTakesNothingThatWasTyped() {
    load(campaign("draft"));
    store->sequence()->insertStep(0);
    store->sequence()->setBody(u"Hello"_s);
    f->context->changes().stale<Mailbox>(u"m1"_s);
    f->api.expect(get);
    store->ensureLoaded();
    f->api.answer(get, campaign("draft"));
    QCOMPARE(store->sequence()->body(), u"Hello"_s);
  }

  void aDraftShowsItsPath() {
    const auto path = [this] {
      QStringList steps;
      for (const Choice& step : store->launchPath())
        steps.append((step.ticked ? u"+ "_s : u"- "_s) + step.label + u' ' +
                     (step.count < 0 ? step.detail : QString::number(step.count)));
      return steps.join(u"; "_s);
    };
    // Nobody knows yet what there is to write in.
    store->sequence()->insertStep(0);
    QCOMPARE(store->sequence()->stepCount(), 0);
    load(campaign("draft"));
    QCOMPARE(path(), u"- Emails 0; - Leads 0; - Senders 0; - Schedule not set"_s);
    QVERIFY(!store->readyToLaunch());

    // An email without a text is none that could go out; what is being written counts at once.
    store->sequence()->insertStep(0);
    QVERIFY2(path().startsWith("- Emails 1;"_L1), qPrintable(path()));
    store->sequence()->setBody(u"Hello"_s);
    QVERIFY2(path().startsWith("+ Emails 1;"_L1), qPrintable(path()));

    store->openLaunchStep(u"senders"_s);
    QCOMPARE(store->tab(), CampaignStore::Tab::settings);
    QCOMPARE(store->settings()->takeAsked(), u"senders"_s);
    store->openLaunchStep(u"leads"_s);
    QCOMPARE(store->tab(), CampaignStore::Tab::leads);

    const QByteArray sender =
        R"({"mailboxId":"m","address":"a@b.c","displayName":"A","status":"active","ready":true,"capToday":1,"sentToday":0,"viaTag":false})";
    const QByteArray whole =
        R"(,"senders":[)" + sender +
        R"(],"stats":{"leads":{"total":3,"queued":3,"active":0,"paused":0,"completed":0,)"
        R"("replied":0,"bounced":0,"unsubscribed":0,"stopped":0},"sent":0,"delivered":0,"bounced":0,"replied":0,)"
        R"("positive":0,"scheduled":0,"failed":0},"schedule":{"schedules":[{"name":"Main","days":[1,2,3,5],)"
        R"("start":"09:00:00","end":"24:00","timeZone":"UTC"}]})";
    f->api.expect(get);
    store->refresh();
    f->api.answer(get, campaign("draft", whole));
    QCOMPARE(path(), u"+ Emails 1; + Leads 3; + Senders 1; + Schedule Mon–Wed, Fri 09:00–24:00"_s);
    QVERIFY(store->readyToLaunch());

    f->api.expect(get);
    store->refresh();
    f->api.answer(get, campaign("running", R"(,"launchedAt":"2026-11-01T08:00:00Z")"));
    QVERIFY2(path().isEmpty() && !store->readyToLaunch(), qPrintable(path()));

    // A date that cannot be read is none.
    f->api.expect(get);
    store->refresh();
    f->api.answer(get, campaign("draft", R"(,"launchedAt":"soon")"));
    QCOMPARE(store->mainAction(), u"launch"_s);
    store->close();
  }

  void theLinkAndTheTabs() {
    load(campaign("draft", R"(,"parent":{"id":"p1","name":"Parent"})"));
    store->copyLink();
    QCOMPARE(f->clipboard.text, u"https://app.orvella.example/campaigns/c1"_s);
    QCOMPARE(store->parentName(), u"Parent"_s);
    store->setTab(u"stats"_s);
    store->setTab(u"nonsense"_s);
    QCOMPARE(store->tabName(), u"stats"_s);
    QCOMPARE(store->tabs().size(), 4);
  }
};

QTEST_GUILESS_MAIN(CampaignTest)
#include "campaign_test.moc"
