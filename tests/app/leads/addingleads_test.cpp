#include "tests/app/leads/LeadsFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto create = u"POST /lead-lists"_s, add = u"POST /lead-lists/li1/leads"_s, own = u"POST /leads/own"_s,
           campaigns = u"GET /campaigns"_s, make = u"POST /campaigns"_s, enrol = u"POST /campaigns/c1/leads"_s,
           unlock = u"POST /leads/unlock"_s, usage = u"GET /leads/unlocks"_s;
const QByteArray refusal = R"({"title":"Not now","detail":"It is being checked."})";

const QByteArray oneCampaign =
    R"({"items":[{"id":"c1","name":"Owners, US","status":"draft","senders":0,"steps":0,"leads":0,"sent":0,"replied":0,)"
    R"("positive":0,"bounced":0,"createdAt":"2026-11-01T00:00:00Z"}]})";

const LeadTarget two{LeadTarget::Ids{u"l1"_s, u"l2"_s}};

LeadTarget matches(qint64 count, bool exact, std::optional<qint64> first = {}) {
  return {LeadTarget::Filter{{.values = {{u"title"_s, u"owner, founder"_s}}}, {count, exact, {}}, first}};
}

QByteArray taken(int added, int other = 0) {
  return R"({"added":)" + QByteArray::number(added) + R"(,"skipped":{"alreadyInCampaign":1,"inOtherCampaign":)" +
         QByteArray::number(other) + R"(,"inList":0,"suppressed":0,"invalid":0,"duplicateInFile":0},"total":9})";
}

QByteArray result(int added, int already, int skipped, int queued) {
  const auto n = [](int number) { return QByteArray::number(number); };
  return R"("added":)" + n(added) + R"(,"already":)" + n(already) + R"(,"skipped":)" + n(skipped) + R"(,"queued":)" +
         n(queued) + "}";
}

QByteArray allowance(int used) {
  return R"({"locked":false,"used":)" + QByteArray::number(used) + R"(,"limit":1500,"left":)" +
         QByteArray::number(1500 - used) + R"(,"resetsAt":"2026-12-01"})";
}

}  // namespace

class AddingLeadsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<LeadsFixture> f;

  AddToList& listForm() { return *f->actions.listAdding(); }
  AddToCampaign& campaignForm() { return *f->actions.campaignAdding(); }
  void openListForm(const LeadTarget& target) {
    f->api.expect(f->lists);
    f->actions.addToList(target);
    f->api.answer(f->lists, f->page({f->list("li1", "Fair", 9)}));
  }
  void openCampaignForm(const LeadTarget& target, const QByteArray& known = R"({"items":[]})") {
    f->api.expect(campaigns);
    f->actions.addToCampaign(target);
    f->api.answer(campaigns, known);
  }
  static QStringList lines(const QList<Choice>& result) {
    QStringList lines;
    for (const Choice& line : result) lines.append(line.label + u' ' + line.detail);
    return lines;
  }

 private Q_SLOTS:
  void init() { f = std::make_unique<LeadsFixture>(); }
  void cleanup() { f.reset(); }

  void whatCameOfItIsSaid_data() {
    QTest::addColumn<QList<qint64>>("counts");
    QTest::addColumn<QString>("said");
    QTest::newRow("nobody") << QList<qint64>{0, 0, 0, 0} << u"No leads to add to Fair"_s;
    QTest::newRow("one, there already") << QList<qint64>{0, 1, 0, 0} << u"That lead is already in Fair"_s;
    QTest::newRow("all there") << QList<qint64>{0, 3, 0, 0} << u"All 3 leads are already in Fair"_s;
    QTest::newRow("nothing new") << QList<qint64>{0, 1, 2, 0}
                                 << u"Nothing new for Fair, 2 skipped as duplicates, 1 already in it"_s;
    QTest::newRow("some") << QList<qint64>{1, 0, 2, 0} << u"1 lead added to Fair, 2 skipped as duplicates"_s;
    QTest::newRow("more to come") << QList<qint64>{1200, 4, 0, 38800}
                                  << u"1,200 leads added to Fair, 4 already in it, 38,800 more on the way"_s;
    QTest::newRow("all to come") << QList<qint64>{0, 0, 0, 5} << u"Nothing added to Fair yet, 5 more on the way"_s;
  }
  void whatCameOfItIsSaid() {
    QFETCH(QList<qint64>, counts);
    const ListAddResult added{counts[0], counts[1], counts[2], counts[3], {}};
    QTEST(listAddSummary(u"Fair"_s, added), "said");
  }

  void tickedLeadsGoIntoAList() {
    openListForm(two);
    QCOMPARE(listForm().about(), u"2 selected leads"_s);
    QVERIFY(!listForm().asksHowMany() && !listForm().canSubmit());
    QCOMPARE(listForm().need(), u"Pick a list"_s);
    listForm().list()->setCurrent(u"li1"_s);
    listForm().setSkipInCampaigns(true);
    f->api.expect(add);
    listForm().submit();
    listForm().submit();
    QCOMPARE(f->sentBody(), (QJsonObject{{u"leadIds"_s, QJsonArray{u"l1"_s, u"l2"_s}},
                                         {u"skipInLists"_s, false},
                                         {u"skipInCampaigns"_s, true}}));
    f->api.answer(add, refusal, 422);
    QCOMPARE(listForm().form()->error(), u"Not now: It is being checked."_s);
    QVERIFY(!listForm().ended() && listForm().skipInCampaigns());
    f->api.expect(add);
    listForm().submit();
    f->api.answer(add, "{" + result(1, 0, 1, 0));
    QCOMPARE(lines(listForm().result()),
             (QStringList{u"Added to Fair 1"_s, u"Skipped: already in a campaign or another list 1"_s}));
    QVERIFY(listForm().form()->shown() && !listForm().canSubmit());
    listForm().openList();
    QCOMPARE(f->navigator.item, u"li1"_s);
    QVERIFY(!listForm().form()->shown());
  }

  void matchesGoIntoANewList() {
    openListForm(matches(18420, false));
    QCOMPARE(listForm().about(), u"about 18,420 matching leads"_s);
    listForm().list()->setCurrent(u"__new__"_s);
    QCOMPARE(listForm().need(), u"Give the list a name"_s);
    QCOMPARE(listForm().submitLabel(), u"Create list and add"_s);
    listForm().list()->setNewName(u" Owners "_s);
    for (const auto& wrong : {u"0"_s, u"100001"_s, u"1.5"_s, u"many"_s}) {
      listForm().setHowMany(wrong);
      QCOMPARE(listForm().problem(), u"A whole number from 1 to 100,000"_s);
      QVERIFY(!listForm().canSubmit());
    }
    listForm().setHowMany(u"100000"_s);
    f->api.expect(create);
    listForm().submit();
    QJsonObject body = f->sentBody();
    QCOMPARE(body.take(u"filter"_s).toObject(), (QJsonObject{{u"title"_s, QJsonArray{u"owner"_s, u"founder"_s}}}));
    QCOMPARE(body, (QJsonObject{{u"name"_s, u"Owners"_s},
                                {u"limit"_s, 100000},
                                {u"exact"_s, false},
                                {u"skipInLists"_s, false},
                                {u"skipInCampaigns"_s, false}}));
    f->api.answer(create, R"({"list":)" + f->list("li9", "Owners", 5) + "," + result(5, 0, 0, 95));
    QCOMPARE(lines(listForm().result()), (QStringList{u"Added to Owners 5"_s, u"Adding in the background 95"_s}));

    // With the first so many selected, that is the number; hidden, the end is a message.
    openListForm(matches(18420, true, 500));
    QCOMPARE(listForm().howMany(), u"500"_s);
    listForm().list()->setCurrent(u"li1"_s);
    f->api.expect(add);
    listForm().submit();
    QVERIFY(f->sentBody().value(u"exact"_s).toBool() && f->sentBody().value(u"limit"_s).toInt() == 500);
    listForm().form()->cancel();
    f->api.answer(add, "{" + result(500, 0, 0, 0));
    QCOMPARE(f->lastToast(), u"500 leads added to Fair"_s);
  }

  void ownLeadsGoIntoACampaign() {
    openCampaignForm(matches(2500, true, 1500), oneCampaign);
    QCOMPARE(campaignForm().need(), u"Pick a campaign"_s);
    campaignForm().setCurrent(u"c1"_s);
    campaignForm().setSkipOthers(true);
    f->api.expect(own);
    campaignForm().submit();
    QCOMPARE(f->sentBody().value(u"limit"_s).toInt(), 1500);
    QVERIFY(!f->sentBody().value(u"filter"_s).toObject().isEmpty());
    QJsonArray ids;
    for (int i = 0; i < 1500; ++i) ids.append(u"o%1"_s.arg(i));
    f->api.expect(enrol);
    f->api.answer(own, QJsonDocument(QJsonObject{{u"ids"_s, ids}}).toJson());
    QCOMPARE(f->sentBody().value(u"leadIds"_s).toArray().size(), 1000);
    QVERIFY(!f->sentBody().value(u"allowOtherCampaigns"_s).toBool());
    f->api.expect(enrol);
    f->api.answer(enrol, taken(990, 3));
    f->api.answer(enrol, taken(400, 4));
    QVERIFY(campaignForm().ended() && campaignForm().form()->shown());
    QCOMPARE(lines(campaignForm().result()), (QStringList{u"Added to campaign 1,390"_s, u"Already in this campaign 2"_s,
                                                          u"Skipped: already in another campaign 7"_s}));
    campaignForm().openCampaign();
    QCOMPARE(f->navigator.item, u"c1"_s);
  }

  void aNewCampaignIsMadeOnce() {
    openCampaignForm(two);
    QVERIFY(campaignForm().hasNone() && campaignForm().isNew());
    QCOMPARE(campaignForm().need(), u"Name your campaign"_s);
    campaignForm().setNewName(u"Owners, US"_s);
    f->api.expect(make);
    campaignForm().submit();
    f->api.expect(own);
    f->api.answer(make,
                  R"({"id":"c1","name":"Owners, US","status":"draft","createdAt":"2026-11-01T00:00:00Z","version":1,)"
                  R"("counts":{},"steps":[]})");
    f->api.expect(campaigns);
    f->api.answer(own, refusal, 422);
    QCOMPARE(campaignForm().form()->error(), u"Not now: It is being checked."_s);
    f->api.answer(campaigns, R"({"items":[]})");
    QCOMPARE(campaignForm().current(), u"c1"_s);
    f->api.expect(own);
    campaignForm().submit();
    f->api.answer(own, R"({"ids":[]})");
    QCOMPARE(campaignForm().summary(), u"Nothing to add."_s);
    QVERIFY(campaignForm().ended() && campaignForm().result().isEmpty());
  }

  void aWholeListGoesAsAList() {
    openCampaignForm(wholeList({.id = u"li1"_s, .name = u"Fair"_s, .leadCount = 9}), oneCampaign);
    campaignForm().setCurrent(u"c1"_s);
    f->api.expect(enrol);
    campaignForm().submit();
    QCOMPARE(f->sentBody(),
             (QJsonObject{{u"source"_s, u"list"_s}, {u"listId"_s, u"li1"_s}, {u"dedupe"_s, u"campaign"_s}}));
    campaignForm().form()->cancel();
    f->api.answer(enrol, taken(9));
    QCOMPARE(f->lastToast(), u"9 leads added to Owners, US"_s);
  }

  void whatWasFilledInComesBackAfterACrash() {
    f->journal.open({u"u1"_s, u"https://service.example"_s});
    const auto crash = [this](LeadActions& actions) {
      f->clock.advance(2s);
      settle();
      actions.close();
    };
    {
      LeadActions earlier(*f->context);
      f->api.expect(f->lists);
      earlier.addToList(matches(20, true));
      settle();
      earlier.listAdding()->list()->setCurrent(LeadListPicker::makeNew);
      earlier.listAdding()->list()->setNewName(u"Nordics"_s);
      earlier.listAdding()->setHowMany(u"7"_s);
      earlier.listAdding()->setSkipInLists(true);
      f->api.expect(u"GET /campaigns"_s);
      earlier.addToCampaign(two);
      settle();
      earlier.campaignAdding()->setCurrent(AddToCampaign::makeNew);
      earlier.campaignAdding()->setNewName(u"Spring"_s);
      crash(earlier);
    }
    openListForm(matches(20, true));
    settle();
    AddToList& list = *f->actions.listAdding();
    QVERIFY(list.list()->isNew() && list.list()->name() == u"Nordics"_s && list.skipInLists());
    QCOMPARE(list.howMany(), u"7"_s);
    QVERIFY(!list.recovery()->notice().isEmpty());
    list.recovery()->discard();
    QVERIFY(list.list()->newName().isEmpty() && list.howMany().isEmpty() && !list.skipInLists());
    openCampaignForm(two);
    settle();
    AddToCampaign& campaign = *f->actions.campaignAdding();
    QVERIFY(campaign.isNew() && campaign.newName() == u"Spring"_s);
    // Closed by the person, it is given up.
    campaign.form()->cancel();
    openCampaignForm(two);
    settle();
    QVERIFY(campaign.newName().isEmpty());
  }

  void unlockingIsSaidAskedAndSentOnce() {
    f->actions.unlock(two);
    QCOMPARE(f->overlays.text(), u"Each lead you don’t have yet uses one unlock. How many are left isn’t known."_s);
    f->overlays.answer(f->overlays.token(), false);
    f->api.expect(usage);
    f->actions.ensureLoaded();
    f->api.answer(usage, allowance(88));
    f->actions.unlock(matches(18420, false));
    QVERIFY2(!f->overlays.asking(), "nobody buys every match by one press");
    f->actions.unlock(two);
    f->actions.unlock(two);
    QCOMPARE(f->overlays.title(), u"Unlock 2 selected leads?"_s);
    QCOMPARE(f->overlays.text(),
             u"88 of 1,500 used this month. Each lead you don’t have yet uses one unlock. 1,412 left "
             "this month. More on 1 Dec"_s);
    f->api.expect(unlock);
    f->confirm();
    QVERIFY(!f->overlays.asking() && f->actions.unlocking());
    QCOMPARE(f->sentBody(), (QJsonObject{{u"leadIds"_s, QJsonArray{u"l1"_s, u"l2"_s}}}));
    QVERIFY(f->actions.allowance()->busyIds().contains(u"l2"_s));
    f->actions.allowance()->unlockOne(u"l2"_s);
    f->api.answer(unlock,
                  R"({"items":[{"id":"l1","email":"a@x.example"}],"unlocked":1,"usage":)" + allowance(89) + "}");
    QCOMPARE(f->lastToast(), u"Unlocked 1 lead"_s);
    QCOMPARE(f->toasts.toasts().last().detail, u"1,411 unlocks left"_s);

    f->actions.unlock(matches(18420, false, 500));
    QCOMPARE(f->overlays.title(), u"Unlock the first 500 matching leads?"_s);
    f->api.expect(unlock);
    f->confirm();
    QCOMPARE(f->sentBody().value(u"limit"_s).toInt(), 500);
    // Nobody knows yet who is among them: no other is asked for meanwhile, and so none twice.
    QVERIFY(f->actions.allowance()->searchBusy());
    f->actions.allowance()->unlockOne(u"l3"_s);
    // Nobody knows whether it went through: it is said so, and the allowance read anew.
    f->api.expect(usage);
    f->api.fail(unlock, TransportFailure::timedOut);
    QVERIFY(f->lastToast() != u"Unlocked 1 lead"_s && !f->actions.unlocking());
    QVERIFY(!f->actions.allowance()->searchBusy());
    QCOMPARE(f->asked(unlock), 2);
    f->api.answer(usage, allowance(589));
    QCOMPARE(f->actions.allowance()->leftText(), u"911 unlocks left"_s);
  }
};

QTEST_GUILESS_MAIN(AddingLeadsTest)
#include "addingleads_test.moc"
