#include <QTest>

#include "app/campaigns/CampaignStore.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/sequence.h"
#include "tests/service/Client.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

/// A campaign's whole way, from a name to what it has sent, over HTTP.
class CampaignJourneyTest : public QObject {
  Q_OBJECT

  std::unique_ptr<ServiceProcess> service;
  std::unique_ptr<Desk> desk;
  std::unique_ptr<Client> client;

  CampaignStore* create(const QString& name) {
    client->campaigns().beginCreate();
    client->campaigns().newCampaign()->setText(name);
    client->campaigns().newCampaign()->submit();
    if (!QTest::qWaitFor([&] { return !client->campaigns().newCampaign()->shown(); })) return nullptr;
    // As its page does when it is next shown.
    client->campaigns().ensureLoaded();
    if (!QTest::qWaitFor([&] { return client->find(name) != nullptr; })) return nullptr;
    auto* store = client->app().session()->item<CampaignStore>(Page::campaigns, client->find(name)->id);
    store->campaign()->appear();
    store->ensureLoaded();
    return QTest::qWaitFor([&] { return store->campaign()->hasContent(); }) ? store : nullptr;
  }
  void write(SequenceEditor& editor) {
    while (editor.stepCount() > 0) editor.removeStep(editor.stepKey());
    editor.insertStep(0);
    editor.setSameThread(false);
    editor.setSubject(u"{{company}} and the waiting list"_s);
    editor.setBody(
        u"{Hi|Hello} {{firstName}},\n\nשלום e\u0301 👩🏽‍💻\n\nReply “unsubscribe” to hear no more."_s);
    editor.insertStep(1);
    editor.setBody(u"Still on your list?"_s);
  }
  void answerYes() {
    QTRY_VERIFY(client->app().overlays()->asking());
    client->app().overlays()->answer(client->app().overlays()->token(), true);
  }

 private Q_SLOTS:
  void init() {
    service = std::make_unique<ServiceProcess>(QStringList());
    desk = std::make_unique<Desk>();
    client = std::make_unique<Client>(*desk, service->url());
    client->signInWithPassword();
    client->showCampaigns();
  }
  void cleanup() {
    client.reset();
    desk.reset();
    service.reset();
  }

  void fromANameToItsFirstFigures() {
    CampaignStore* store = create(u"Journey"_s);
    QVERIFY(store);
    write(*store->sequence());

    // Nobody to write to and nobody who writes: the check says so and leads to where that is mended.
    store->launch();
    QTRY_VERIFY(client->app().overlays()->asking());
    QCOMPARE(client->app().overlays()->title(), u"Journey can’t launch yet"_s);
    answerYes();
    QTRY_VERIFY(!store->busy());
    QCOMPARE(store->tabName(), u"settings"_s);
    QVERIFY(store->unsavedWork().isEmpty());

    CampaignSettings& settings = *store->settings();
    settings.ensureLoaded();
    QTRY_VERIFY(settings.senders()->mailboxes()->hasContent());
    const auto* rows = settings.senders()->rows();
    settings.senders()->toggle(rows->index(0, 0).data(rows->roleNames().key("id")).toString());
    QVERIFY(settings.dirty());
    settings.save();
    QTRY_VERIFY(client->told().contains(u"Settings saved"_s));
    QVERIFY(!settings.dirty());

    LeadAdding& adding = *store->leads()->adding();
    store->leads()->ensureLoaded();
    for (const auto& email : {u"jo@lead.example"_s, u"li@lead.example"_s}) {
      adding.show(u"manual"_s);
      adding.draft()->set(u"email"_s, email);
      adding.draft()->set(u"firstName"_s, u"Jo"_s);
      adding.draft()->set(u"company"_s, u"Lead"_s);
      adding.submit();
      QTRY_COMPARE(adding.draft()->typed().email, QString());
    }
    QTRY_COMPARE(store->leads()->rows()->count(), 2);
    QTRY_COMPARE(store->campaign()->value()->stats->leads.total, 2);

    store->launch();
    QTRY_VERIFY(client->app().overlays()->asking());
    QCOMPARE(client->app().overlays()->title(), u"Launch Journey?"_s);
    QVERIFY(client->app().overlays()->text().startsWith(
        u"2 leads · 1 inbox. The first email goes out in about 2 minutes."_s));
    answerYes();
    QTRY_COMPARE(store->statusWord(), u"running"_s);

    // As another device sees it: the very text, and emails that are booked.
    const Campaign seen = client->sendElsewhere(Requests::getCampaign(store->id()));
    QCOMPARE(textsOf(seen), textsOf(*store->campaign()->value()));
    QCOMPARE(seen.steps->first().variants.first().body,
             store->sequence()->draft().steps().first().variants.first().body);
    QVERIFY(seen.stats->scheduled > 0);

    CampaignStatsStore& stats = *store->stats();
    stats.ensureLoaded();
    QTRY_VERIFY(stats.summary()->hasContent() || stats.summary()->stateName() == ResourceBase::State::Empty);
    QVERIFY2(stats.headLine().contains(u"2 leads"_s), qPrintable(stats.headLine()));
    client->campaigns().refresh();
    QTRY_COMPARE(client->find(u"Journey"_s)->status.rawValue, u"running"_s);
  }

  void whatIsUnsavedIsSavedBeforeAnybodyGoes() {
    CampaignStore* store = create(u"Left in a hurry"_s);
    QVERIFY(store);
    const QString id = store->id();
    write(*store->sequence());
    client->app().signOut();
    QTRY_COMPARE(client->app().phase(), AppModel::Phase::signedOut);
    client->signInWithPassword();
    QCOMPARE(client->sendElsewhere(Requests::getCampaign(id)).steps->size(), 2);
  }

 private:
  static QList<QString> textsOf(const Campaign& campaign) {
    QList<QString> texts;
    for (const CampaignStep& step : campaign.steps.value_or(QList<CampaignStep>()))
      for (const CampaignVariant& variant : step.variants) texts += {variant.subject, variant.body};
    return texts;
  }
};

QTEST_GUILESS_MAIN(CampaignJourneyTest)
#include "campaign_test.moc"
