#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/inbox/AgentSettingsStore.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/inbox/draft.h"
#include "kit/models/inbox/inboxThread.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto getSettings = u"GET /setter/settings"_s, getTraining = u"GET /setter/training"_s;
const auto getModes = u"GET /setter/campaigns"_s, getLessons = u"GET /setter/lessons"_s,
           getCampaigns = u"GET /campaigns"_s;
const auto patchSettings = u"PATCH /setter/settings"_s;

QByteArray settings(const QJsonObject& changed = {}) {
  QJsonObject all{{u"repName"_s, u"Ellen"_s},
                  {u"signature"_s, QJsonObject{{u"name"_s, u"Ellen Marsh"_s}, {u"phone"_s, u""_s}}},
                  {u"knowledgeBase"_s, u"We sell vans."_s},
                  {u"instructions"_s, u""_s},
                  {u"training"_s, u""_s},
                  {u"bookingUrl"_s, u"https://book.example/ellen"_s},
                  {u"tone"_s, u"dry"_s},
                  {u"defaultMode"_s, u"draft"_s},
                  {u"autoSendEnabled"_s, false},
                  {u"followupIntervalMinutes"_s, 2880},
                  {u"followupMax"_s, 2},
                  {u"hasOpenAiKey"_s, true},
                  {u"version"_s, 4}};
  for (auto member = changed.begin(); member != changed.end(); ++member) all.insert(member.key(), member.value());
  return QJsonDocument(all).toJson(QJsonDocument::Compact);
}

QByteArray training(int reviewed, int matched) {
  return R"({"reviewed":)" + QByteArray::number(reviewed) + R"(,"matched":)" + QByteArray::number(matched) +
         R"(,"window":20,"target":17,"record":{"total":84,"asWritten":51,"edited":19,"picked":6,"skipped":8,)"
         R"("rules":6,"fromYou":1,"usedIn":63},"lastFlip":{"auto":false,"by":"Maren Kolbe",)"
         R"("at":"2026-11-12T12:00:00Z","reviewed":20,"matched":9}})";
}

QByteArray lessonList() {
  return R"({"items":[{"id":"l1","text":"Be brief.","source":"review","status":"active","times":4,)"
         R"("fromName":"Tomas Brandl","createdAt":"2026-11-01T00:00:00Z"},)"
         R"({"id":"l2","text":"No jokes.","source":"member","status":"off","times":0,)"
         R"("createdAt":"2026-11-01T00:00:00Z"}]})";
}

QByteArray campaign(const QByteArray& id) {
  return R"({"id":")" + id + R"(","name":"Campaign )" + id +
         R"(","status":"running","senders":1,"steps":1,"leads":1,"sent":0,"replied":0,"positive":0,"bounced":0,)"
         R"("createdAt":"2026-11-01T00:00:00Z"})";
}

struct Agent : AppFixture {
  Agent(const QByteArray& stored = settings(), const QByteArray& record = training(16, 13), bool hasCampaigns = true) {
    context->changes().watch<InboxThread>(&store,
                                          [this](const auto& change) { conversationsTold += change.id.isEmpty(); });
    for (const QString& label : {getSettings, getTraining, getModes, getCampaigns, getLessons}) api.expect(label);
    store.appear();
    store.ensureLoaded();
    api.answer(getSettings, stored);
    api.answer(getTraining, record);
    api.answer(getModes, R"({"items":[{"campaignId":"c1"},{"campaignId":"c2","mode":"off"}]})");
    if (hasCampaigns)
      answerCampaigns();
    else
      api.answer(getCampaigns, R"({"title":"Not now","status":503})", 503);
    api.answer(getLessons, lessonList());
  }
  ~Agent() { store.close(); }

  AgentSettingsStore store{*context};
  /// Each says how the agent goes about it.
  int conversationsTold = 0;
  void answerCampaigns() {
    api.answer(getCampaigns, R"({"items":[)" + campaign("c1") + "," + campaign("c2") + "," + campaign("c3") + "]}");
  }
  AgentForm& form() { return *store.form(); }
  QJsonObject sentBody() { return QJsonDocument::fromJson(api.last().request.body.value_or("{}")).object(); }
  static QStringList ids(AgentCampaignRows* rows) {
    QStringList ids;
    for (const AgentCampaignRow& row : rows->records()) ids.append(row.id.isEmpty() ? row.hint : row.id);
    return ids;
  }
  QString lastToast() const { return toasts.toasts().isEmpty() ? QString() : toasts.toasts().last().message; }
};

}  // namespace

class AgentTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void onlyWhatChangedIsSaved() {
    Agent f;
    f.form().set(u"repName"_s, u" Nora "_s);
    f.form().set(u"bookingUrl"_s, u"  "_s);
    f.form().set(u"phone"_s, u"+32 9"_s);
    QCOMPARE(f.form().dirtySections().size(), 2);
    f.api.expect(patchSettings);
    f.form().save();
    QCOMPARE(f.api.last().request.ifMatch, std::optional<qint64>(4));
    QCOMPARE(f.sentBody(),
             (QJsonObject{{u"repName"_s, u"Nora"_s},
                          {u"bookingUrl"_s, QJsonValue()},
                          {u"signature"_s, QJsonObject{{u"name"_s, u"Ellen Marsh"_s}, {u"phone"_s, u"+32 9"_s}}}}));
    f.form().set(u"title"_s, u"Typed meanwhile"_s);
    f.api.answer(patchSettings,
                 settings({{u"repName"_s, u"Nora"_s}, {u"bookingUrl"_s, QJsonValue()}, {u"version"_s, 5}}));
    QCOMPARE(f.form().draft()->typed().repName, u"Nora"_s);
    QCOMPARE(f.form().draft()->typed().title, u"Typed meanwhile"_s);
    QVERIFY(f.form().dirty());
    f.form().discard();
    QVERIFY(!f.form().dirty());
  }

  void aNumberIsRefused_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("fine");
    const auto row = [](const char* name, const QString& field, const QString& text, bool fine) {
      QTest::newRow(name) << field << text << fine;
    };
    row("no follow-up", u"followupMax"_s, u"0"_s, false);
    row("five", u"followupMax"_s, u"5"_s, false);
    row("a word", u"followupMax"_s, u"two"_s, false);
    row("four", u"followupMax"_s, u" 4 "_s, true);
    row("no wait", u"followupInterval"_s, u"0"_s, false);
    row("a minute", u"followupInterval"_s, u"1"_s, true);
  }
  void aNumberIsRefused() {
    QFETCH(QString, field);
    QFETCH(QString, text);
    QFETCH(bool, fine);
    Agent f;
    f.form().set(field, text);
    if (fine) f.api.expect(patchSettings);
    f.form().save();
    QCOMPARE(f.form().draft()->problems().contains(field), !fine);
    if (fine) f.api.answer(patchSettings, settings({{u"version"_s, 5}}));
  }

  void aConflictKeepsTheForm() {
    Agent f;
    f.form().set(u"repName"_s, u"Nora"_s);
    f.api.expect(patchSettings);
    f.form().save();
    f.api.expect(getSettings);
    f.api.answer(patchSettings, R"({"title":"Changed meanwhile","status":409})", 409);
    QCOMPARE(f.form().problem(), u"Changed meanwhile"_s);
    QCOMPARE(f.lastToast(), QString());
    f.api.answer(getSettings, settings({{u"repName"_s, u"Theirs"_s}, {u"version"_s, 5}}));
    QCOMPARE(f.form().draft()->typed().repName, u"Nora"_s);
    QVERIFY(f.form().conflict().contains(u"Rep name"_s));
    // Told, it may be overwritten.
    f.api.expect(patchSettings);
    f.form().save();
    QCOMPARE(f.api.last().request.ifMatch, std::optional<qint64>(5));
    f.api.answer(patchSettings, settings({{u"repName"_s, u"Nora"_s}, {u"version"_s, 6}}));
    QVERIFY(!f.form().dirty());
  }

  void aSaveThatWasGivenUpForLost() {
    Agent f;
    f.form().set(u"repName"_s, u"Nora"_s);
    f.api.expect(patchSettings);
    f.form().save();
    f.store.disappear();
    f.api.expect(getSettings);
    f.api.fail(patchSettings, TransportFailure::timedOut);
    // Whoever has left the section does not see it there.
    QCOMPARE(f.lastToast(), u"Couldn’t save the agent settings"_s);
    QVERIFY(!f.form().problem().isEmpty());
    // It had come through.
    f.api.answer(getSettings, settings({{u"repName"_s, u"Nora"_s}, {u"version"_s, 5}}));
    QVERIFY(!f.form().dirty());
    QCOMPARE(f.form().problem(), QString());
  }

  void autoModeIsAskedFor_data() {
    QTest::addColumn<int>("matched");
    QTest::addColumn<bool>("warns");
    QTest::newRow("short of it") << 13 << true;
    QTest::newRow("just short") << 16 << true;
    QTest::newRow("ready") << 17 << false;
  }
  void autoModeIsAskedFor() {
    QFETCH(int, matched);
    QFETCH(bool, warns);
    Agent f(settings(), training(20, matched));
    f.store.mode()->choose(u"auto"_s);
    QCOMPARE(f.overlays.title(), u"Switch to Auto mode?"_s);
    QVERIFY(f.overlays.text().startsWith(u"You’ve reviewed 20 of your last 20"_s));
    QCOMPARE(f.overlays.text().endsWith(u". Switch anyway?"_s), warns);
    f.overlays.answer(f.overlays.token(), false);
    settle();
    QVERIFY(!f.store.mode()->flipping());

    f.store.mode()->choose(u"auto"_s);
    f.api.expect(patchSettings);
    f.overlays.answer(f.overlays.token(), true);
    settle();
    QCOMPARE(f.sentBody(), (QJsonObject{{u"defaultMode"_s, u"auto"_s}}));
    f.api.expect(getTraining);
    f.api.answer(patchSettings, settings({{u"defaultMode"_s, u"auto"_s}, {u"version"_s, 5}}));
    f.api.answer(getTraining, training(20, matched));
    QCOMPARE(f.store.mode()->mode(), u"auto"_s);
    // Back needs no question.
    f.api.expect(patchSettings);
    f.store.mode()->choose(u"draft"_s);
    QVERIFY(!f.overlays.asking());
    QCOMPARE(f.api.last().request.ifMatch, std::optional<qint64>(5));
    f.api.expect(getTraining);
    f.api.answer(patchSettings, settings({{u"version"_s, 6}}));
    f.api.answer(getTraining, training(20, matched));
    QCOMPARE(f.lastToast(), u"Draft mode on"_s);
    QCOMPARE(f.conversationsTold, 2);
  }

  void readiness_data() {
    QTest::addColumn<int>("reviewed");
    QTest::addColumn<int>("matched");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << 0 << 0 << u"Review 20 drafts to see how close your AI is to your standard."_s;
    QTest::newRow("some") << 16 << 13 << u"4 more to review. Ready at 17"_s;
    QTest::newRow("all, not matching") << 20 << 16 << u"Ready at 17"_s;
    QTest::newRow("ready") << 20 << 17 << u"Your AI is ready for Auto mode when you are."_s;
  }
  void readiness() {
    QFETCH(int, reviewed);
    QFETCH(int, matched);
    Agent f(settings(), training(reviewed, matched));
    QTEST(f.store.mode()->readiness(), "text");
    QCOMPARE(f.store.mode()->lastFlip(), u"Switched to Draft mode on 12 Nov, at 9 of 20 by Maren Kolbe"_s);
    QCOMPARE(f.store.mode()->record().last().detail, u"63"_s);
  }
  void aDecisionCountsAtOnce() {
    Agent f;
    f.context->changes().publish(Draft{.id = u"d1"_s, .threadId = u"t1"_s}, f.context->changes().stamp(), true);
    f.api.expect(getTraining);
    f.store.ensureLoaded();
    f.api.answer(getTraining, training(17, 13));
    QCOMPARE(f.store.mode()->readiness(), u"3 more to review. Ready at 17"_s);
  }

  void campaignsFollowTheDefault() {
    Agent f;
    QCOMPARE(f.ids(f.store.campaigns()->active()), (QStringList{u"Active by default"_s, u"c1"_s, u"c3"_s}));
    QCOMPARE(f.ids(f.store.campaigns()->inactive()), QStringList{u"c2"_s});
    f.api.expect(u"PUT /setter/campaigns/c1/mode"_s);
    f.store.campaigns()->move(u"c1"_s);
    QCOMPARE(f.sentBody(), (QJsonObject{{u"mode"_s, u"off"_s}}));
    f.api.expect(getModes);
    f.api.answer(u"PUT /setter/campaigns/c1/mode"_s, "{}");
    QVERIFY(f.ids(f.store.campaigns()->inactive()).contains(u"c1"_s));
    f.api.answer(getModes, R"({"items":[{"campaignId":"c1","mode":"off"},{"campaignId":"c2","mode":"off"}]})");
    // Back to the default.
    f.api.expect(u"PUT /setter/campaigns/c2/mode"_s);
    f.store.campaigns()->move(u"c2"_s);
    QCOMPARE(f.sentBody(), QJsonObject());
    f.api.answer(u"PUT /setter/campaigns/c2/mode"_s, R"({"title":"No","status":422})", 422);
    QVERIFY(f.ids(f.store.campaigns()->inactive()).contains(u"c2"_s));
    QCOMPARE(f.conversationsTold, 1);
  }

  void withoutTheCampaignsNobodySaysThatThereAreNone() {
    Agent f(settings(), training(16, 13), false);
    AgentCampaigns& campaigns = *f.store.campaigns();
    QCOMPARE(campaigns.campaigns()->stateName(), ResourceBase::State::Error);
    QCOMPARE(f.ids(campaigns.active()) + f.ids(campaigns.inactive()), QStringList());
    f.api.expect(getCampaigns);
    campaigns.campaigns()->load();
    f.answerCampaigns();
    QCOMPARE(f.ids(campaigns.active()), (QStringList{u"Active by default"_s, u"c1"_s, u"c3"_s}));
    // There may be none, which is content as well.
    f.api.expect(getCampaigns);
    campaigns.campaigns()->load();
    f.api.answer(getCampaigns, R"({"items":[]})");
    QVERIFY(campaigns.campaigns()->hasContent());
  }

  void aCampaignThatIsBackHasTheModeItHad() {
    Agent f;
    f.context->changes().stale<Campaign>(u"c4"_s);
    f.api.expect(getModes);
    f.api.expect(getCampaigns);
    f.store.ensureLoaded();
    f.api.answer(getModes, R"({"items":[{"campaignId":"c1"},{"campaignId":"c4","mode":"off"}]})");
    f.api.answer(getCampaigns, R"({"items":[)" + campaign("c1") + "," + campaign("c4") + "]}");
    QCOMPARE(f.ids(f.store.campaigns()->active()), (QStringList{u"Active by default"_s, u"c1"_s}));
    QCOMPARE(f.ids(f.store.campaigns()->inactive()), QStringList{u"c4"_s});
  }

  void whereTheDefaultIsOff() {
    Agent f(settings({{u"defaultMode"_s, u"off"_s}}));
    QCOMPARE(f.ids(f.store.campaigns()->active()), QStringList());
    f.api.expect(u"PUT /setter/campaigns/c1/mode"_s);
    f.store.campaigns()->move(u"c1"_s);
    QCOMPARE(f.sentBody(), (QJsonObject{{u"mode"_s, u"draft"_s}}));
    f.api.expect(getModes);
    f.api.answer(u"PUT /setter/campaigns/c1/mode"_s, "{}");
    f.api.answer(getModes, R"({"items":[{"campaignId":"c1","mode":"draft"}]})");
    QCOMPARE(f.ids(f.store.campaigns()->active()), QStringList{u"c1"_s});
  }

  void lessons() {
    Agent f;
    const auto& rows = f.store.lessons()->rows()->records();
    QCOMPARE(rows[0].origin, u"From your review of Tomas Brandl, seen 4 times"_s);
    QCOMPARE(rows[1].origin, u"You typed"_s);
    QVERIFY(!rows[1].active);

    f.store.act(u"new"_s);
    f.store.lessons()->adding()->setText(u" One question at most. "_s);
    f.api.expect(u"POST /setter/lessons"_s);
    f.store.lessons()->adding()->submit();
    QCOMPARE(f.sentBody(), (QJsonObject{{u"text"_s, u"One question at most."_s}}));
    f.api.answer(u"POST /setter/lessons"_s, R"({"title":"Too many","status":422})", 422);
    QVERIFY(f.store.lessons()->adding()->shown());
    f.api.expect(u"POST /setter/lessons"_s);
    f.store.lessons()->adding()->submit();
    f.api.expect(getLessons);
    f.api.answer(u"POST /setter/lessons"_s, "{}");
    QVERIFY(!f.store.lessons()->adding()->shown());
    f.api.answer(getLessons, lessonList());

    f.store.act(u"change"_s, u"l1"_s);
    f.store.lessons()->changing()->setText(u"Be very brief."_s);
    f.api.expect(u"PATCH /setter/lessons/l1"_s);
    f.store.lessons()->changing()->submit();
    QCOMPARE(f.sentBody(), (QJsonObject{{u"text"_s, u"Be very brief."_s}}));
    f.api.expect(getLessons);
    f.api.answer(u"PATCH /setter/lessons/l1"_s, "{}");
    f.api.answer(getLessons, lessonList());

    f.api.expect(u"PATCH /setter/lessons/l1"_s);
    f.store.act(u"off"_s, u"l1"_s);
    QCOMPARE(f.sentBody(), (QJsonObject{{u"status"_s, u"off"_s}}));
    f.api.expect(getLessons);
    f.api.answer(u"PATCH /setter/lessons/l1"_s, "{}");
    f.api.answer(getLessons, lessonList());
    QVERIFY2(f.store.training()->needsLoad(), "it counts the rules");
  }

  void withoutAKeyItWarns() {
    QCOMPARE(Agent().store.warning(), QString());
    QVERIFY(Agent(settings({{u"hasOpenAiKey"_s, false}})).store.warning().startsWith(u"No OpenAI key."_s));
  }

  void anUnknownToneStaysOffered() {
    Agent f;
    QCOMPARE(f.form().tones().last().key, u"dry"_s);
    QCOMPARE(f.form().tones().size(), 4);
  }
};

QTEST_GUILESS_MAIN(AgentTest)
#include "agent_test.moc"
