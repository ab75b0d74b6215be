#include <QTest>

#include "app/accounts/AccountsStore.h"
#include "app/deliverability/DeliverabilityStore.h"
#include "app/rampup/RampupAccountStore.h"
#include "kit/models/deliverability/deliverabilityRequests.h"
#include "kit/models/mailboxes/mailboxRequests.h"
#include "kit/models/rampup/rampupDetail.h"
#include "kit/models/rampup/rampupRequests.h"
#include "tests/service/Client.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

/// Roadmaps over HTTP: one account's, those of many, their templates; and what the watcher sees of all of it.
class RampupJourneyTest : public QObject {
  Q_OBJECT

  std::unique_ptr<ServiceProcess> service;
  std::unique_ptr<Desk> desk;
  std::unique_ptr<Client> client;

  RampupStore& rampup() { return *client->app().session()->store<RampupStore>(); }
  RoadmapTemplates& templates() { return *rampup().templates(); }
  RampupAccountStore& account(const QString& id) {
    auto& page = *client->app().session()->item<RampupAccountStore>(Page::rampup, id);
    page.detail()->appear();
    page.ensureLoaded();
    return page;
  }
  RampupDetail elsewhere(const QString& id) { return client->sendElsewhere(Requests::getRampup(id)); }
  bool isTold(const QString& sentence) const { return client->told().contains(sentence); }
  /// Accounts whose roadmap runs, in the list's order.
  QStringList running() {
    QStringList ids;
    for (const QString& id : rampup().list()->shownIds()) {
      const RampupItem* item = rampup().find(id);
      if (item->plan && !item->plan->isPaused() && !item->plan->isDone() && !item->plan->isScheduled()) ids.append(id);
    }
    return ids;
  }
  static void setFirst(RoadmapEditor& editor, const QString& field, const QString& text) {
    editor.set(editor.stages()->records().front().id, field, text);
  }

 private Q_SLOTS:
  void init() {
    service = std::make_unique<ServiceProcess>();
    desk = std::make_unique<Desk>();
    client = std::make_unique<Client>(*desk, service->url());
    client->signInWithPassword();
    rampup().list()->appear();
    rampup().ensureLoaded();
    QTRY_VERIFY(rampup().list()->hasContent() && templates().list()->hasContent());
  }
  void cleanup() {
    client.reset();
    desk.reset();
    service.reset();
  }

  void oneAccountsRoadmap() {
    QVERIFY(!running().isEmpty());
    const QString id = running().first();
    RampupAccountStore& page = account(id);
    QTRY_VERIFY(page.detail()->hasContent());
    const qint64 before = elsewhere(id).plan->stages.first().days;

    QVERIFY(page.act(u"edit"_s));
    setFirst(*page.editor(), u"days"_s, QString::number(before + 2));
    page.editor()->submit();
    QTRY_VERIFY2(!page.editor()->shown(), qPrintable(page.editor()->error()));
    QCOMPARE(elsewhere(id).plan->stages.first().days, before + 2);
    QVERIFY(isTold(u"Roadmap saved"_s));

    // Somebody else was faster: nothing of theirs is overwritten, and what was typed stands.
    QVERIFY(page.act(u"edit"_s));
    setFirst(*page.editor(), u"days"_s, QString::number(before + 5));
    const RampupDetail theirs = elsewhere(id);
    QList<RoadmapStage> stages = theirs.plan->stages;
    stages.first().days = before + 3;
    client->sendElsewhere(Requests::editRoadmap(id, {stages}, theirs.plan->version));
    page.editor()->submit();
    QTRY_COMPARE(page.editor()->error(), u"This roadmap changed since you opened it. Close and try again."_s);
    QCOMPARE(elsewhere(id).plan->stages.first().days, before + 3);
    page.editor()->cancel();

    // Page and list say the same of a pause.
    QVERIFY(page.act(u"pause"_s));
    QTRY_VERIFY(page.paused());
    QVERIFY(rampup().find(id)->plan->isPaused() && elsewhere(id).plan->isPaused());
    QTRY_VERIFY(!page.busy());
    QVERIFY(page.act(u"resume"_s));
    QTRY_VERIFY(!page.paused() && !elsewhere(id).plan->isPaused());
  }

  void roadmapsOfMany() {
    const QStringList ids = running().first(std::min<qsizetype>(2, running().size()));
    QHash<QString, qint64> lengths;
    for (const QString& id : ids) {
      lengths[id] = elsewhere(id).plan->length;
      rampup().bulk()->selection()->toggle(id);
    }
    rampup().bulk()->extend();
    QTRY_VERIFY(rampup().bulk()->busy().isEmpty() && rampup().bulk()->selection()->isEmpty());
    for (const QString& id : ids) QCOMPARE(elsewhere(id).plan->length, lengths[id] + RampupBulk::extendedBy);
    QTRY_COMPARE(rampup().find(ids.first())->plan->length, lengths[ids.first()] + RampupBulk::extendedBy);

    // Warm-up goes account by account, and is told once.
    for (const QString& id : ids) rampup().bulk()->selection()->toggle(id);
    rampup().bulk()->switchWarmup(false);
    QTRY_COMPARE(client->app().jobs()->running(), 0);
    for (const QString& id : ids) QVERIFY(!elsewhere(id).settings.enabled && !rampup().find(id)->settings.enabled);
    QVERIFY(isTold(u"Warm-up paused on "_s + RampupWords::countedMailboxes(ids.size())));
  }

  void aTemplateFromItsNameToTheArchive() {
    templates().beginCreate();
    templates().newTemplate()->setText(u"Spring domains"_s);
    templates().newTemplate()->submit();
    // The next screen is its schedule.
    QTRY_VERIFY(rampup().editor()->shown());
    setFirst(*rampup().editor(), u"days"_s, u"3"_s);
    rampup().editor()->submit();
    QTRY_VERIFY2(!rampup().editor()->shown(), qPrintable(rampup().editor()->error()));
    QString made;
    for (const RoadmapTemplate& each : client->sendElsewhere(Requests::listTemplates(false)).items)
      if (each.name == u"Spring domains"_s && each.stages.first().days == 3) made = each.id;
    QVERIFY(!made.isEmpty());

    const QString id = running().first();
    QVERIFY(templates().act(u"add"_s, made));
    rampup().adding()->toggle(id);
    rampup().adding()->submit();
    QTRY_VERIFY2(!rampup().adding()->form()->shown(), qPrintable(rampup().adding()->form()->error()));
    const auto plan = elsewhere(id).plan;
    QCOMPARE(plan->templateId, std::optional(made));
    QCOMPARE(plan->dayIndex, 1);
    QTRY_COMPARE(rampup().find(id)->plan->templateId, std::optional(made));

    QVERIFY(templates().act(u"archive"_s, made));
    QTRY_VERIFY(!templates().find(made));
    QCOMPARE(elsewhere(id).plan->templateId, std::optional(made));
    const auto& toasts = client->toasts().toasts();
    const auto undo = std::ranges::find(toasts, u"Undo"_s, &Toasts::Toast::actionLabel);
    QVERIFY(undo != toasts.end());
    client->toasts().act(undo->id);
    QTRY_VERIFY(templates().find(made));
  }

  void anEmptyWorkspaceGetsAnAccountThatRampsUp() {
    const QString address = u"ana@fresh.example"_s;
    client->app().openWorkspace(u"fresh"_s);
    AccountsStore& accounts = *client->app().session()->store<AccountsStore>();
    accounts.list()->appear();
    accounts.ensureLoaded();
    QTRY_COMPARE(accounts.list()->stateName(), ResourceBase::State::Empty);
    AddAccount& adding = *accounts.adding();
    adding.show();
    adding.choose(u"smtp"_s);
    adding.connection()->set(u"address"_s, address);
    adding.connection()->setPassword(u"an app password"_s);
    adding.submit();
    QTRY_VERIFY2(!adding.shown(), qPrintable(adding.error()));
    QTRY_VERIFY_WITH_TIMEOUT(isTold(address + u" connected"_s), 30000);
    QCOMPARE(accounts.list()->shownCount(), 1);
    const QString id = accounts.list()->shownIds().first();
    QCOMPARE(accounts.list()->find(id)->record().rampup->state, u"running"_s);

    rampup().list()->appear();
    rampup().ensureLoaded();
    QTRY_COMPARE(rampup().list()->shownIds(), QStringList{id});
    QCOMPARE(running(), QStringList{id});
    RampupAccountStore& page = account(id);
    QTRY_VERIFY(page.detail()->hasContent());
    QCOMPARE(page.phase(), u"Warm-up"_s);
    QVERIFY2(page.stateLine().startsWith(u"Day 1 of "_s), qPrintable(page.stateLine()));
    // From its second day on it may send: the campaigns’ share grows from there.
    QVERIFY(page.act(u"edit"_s));
    setFirst(*page.editor(), u"days"_s, u"1"_s);
    page.editor()->submit();
    QTRY_VERIFY2(!page.editor()->shown(), qPrintable(page.editor()->error()));
    const RampupDetail planned = client->sendElsewhere(Requests::getRampup(id), u"fresh"_s);
    QCOMPARE(planned.days.at(0).campaign, 0);
    QVERIFY(planned.days.at(1).campaign > 0 && planned.days.last().campaign > planned.days.at(1).campaign);
  }

  void theWatcherSeesWhatBecomesOfAnAccount() {
    auto& watcher = *client->app().session()->store<DeliverabilityStore>();
    watcher.report()->appear();
    watcher.ensureLoaded();
    QTRY_VERIFY(watcher.report()->hasContent());
    const qsizetype all = watcher.report()->value()->inboxes.size();
    QVERIFY(all > 0 && !watcher.summary().isEmpty());
    const QString id = watcher.report()->value()->inboxes.first().id;
    watcher.open(id);
    QTRY_VERIFY(watcher.inbox()->detail()->hasContent());
    QCOMPARE(client->sendElsewhere(Requests::deliverabilityInbox(id)).inbox.stage,
             watcher.report()->value()->inboxes.first().stage);
    // Removed as an account, it is no inbox to the watcher, and no page shows it any longer.
    client->sendElsewhere(Requests::deleteMailbox(id, false));
    watcher.refresh();
    QTRY_COMPARE(watcher.report()->value()->inboxes.size(), all - 1);
    QTRY_VERIFY(watcher.inbox()->address().isEmpty());
  }
};

QTEST_GUILESS_MAIN(RampupJourneyTest)
#include "rampup_test.moc"
