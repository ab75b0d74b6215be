#include <QAbstractItemModelTester>
#include <QJsonArray>

#include "app/base/CampaignAdding.h"
#include "tests/app/leads/SearchFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

QByteArray unlockedOne(const QByteArray& id, int left) {
  return R"({"items":[{"id":")" + id + R"(","email":"a@x.example"}],"unlocked":1,)" +
         R"("usage":{"locked":true,"used":1,"limit":9,"left":)" + QByteArray::number(left) +
         R"(,"resetsAt":"2026-12-01"}})";
}

QByteArray withLists(QByteArray record, const QByteArray& lists) {
  return record.replace(R"("lists":[])", R"("lists":)" + lists);
}

}  // namespace

/// What is searched for, what comes of it, and when.
class LeadFinderTest : public QObject {
  Q_OBJECT

  std::unique_ptr<SearchFixture> f;

  QStringList shown() { return f->results.list()->shownIds(); }
  static QByteArray record(const QByteArray& id) {
    return SearchFixture::lead(
        id,
        R"(,"firstName":"Ana","title":"Owner","company":"A GmbH","city":"Munich","website":"https://www.a.example/",)"
        R"("annualRevenue":"€4.1M","technologies":"Excel, CRM","dateVerified":"2026-10-01","batchId":"b1",)"
        R"("updatedAt":"2026-05-01T08:00:00Z","lists":[],"campaigns":[{"id":"c1","name":"Q3","campaignStatus":"running",)"
        R"("status":"replied","currentStep":2,"enrolledAt":"2026-04-01T08:00:00Z",)"
        R"("repliedAt":"2026-04-03T08:00:00Z"}])");
  }
  void look(const QString& value) {
    f->expectSearch();
    f->filters.toggle(u"title"_s, value);
  }

 private Q_SLOTS:
  void init() { f = std::make_unique<SearchFixture>(); }
  void cleanup() { f.reset(); }

  void aSearchIsReadPageByPageAndCounted() {
    QAbstractItemModelTester tester(f->results.list()->rows(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(f->results.countText(), u"Counting"_s);
    f->open(SearchFixture::page({f->lead("l1"), f->lead("l2")}, 18420, false, "c2"));
    QCOMPARE(f->query(f->leads), (QStringList{u"only=new"_s, u"limit=30"_s}));
    QCOMPARE(f->query(f->pools), QStringList());
    QCOMPARE(f->results.countText(), u"About 18,420 leads match"_s);
    QCOMPARE(f->results.shownText(), u"2 of about 18,420 leads"_s);
    QList<int> counts;
    for (const Choice& pool : f->finder.pools()) counts.append(pool.count);
    QCOMPARE(counts, (QList<int>{80, 20, -1}));
    QCOMPARE(f->finder.totalText(), u"400K leads in all databases"_s);

    f->api.expect(f->leads);
    f->results.list()->loadMore();
    f->results.list()->loadMore();
    QCOMPARE(f->query(f->leads), (QStringList{u"only=new"_s, u"limit=20"_s, u"cursor=c2"_s}));
    f->api.fail(f->leads, TransportFailure::timedOut);
    QVERIFY(f->results.list()->moreFailed());
    QCOMPARE(shown().size(), 2);
    f->api.expect(f->leads);
    f->results.list()->loadMore();
    f->api.answer(f->leads, SearchFixture::page({f->lead("l3")}, 1));
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l2"_s, u"l3"_s}));
    QCOMPARE(f->results.countText(), u"1 lead match"_s);
  }

  void nothingOfAnOlderSearchShowsUnderANewerOne() {
    f->open(SearchFixture::page({f->lead("l1")}));
    f->results.selection()->toggle(u"l1"_s);
    look(u"Owner"_s);
    QVERIFY2(f->results.waiting() && shown() == QStringList{u"l1"_s}, "what is shown stays, as old");
    QVERIFY2(f->results.selection()->isEmpty(), "the ticks were another search's");
    QVERIFY2(!f->results.target(), "nobody knows yet what it would be");
    look(u"Founder"_s);
    QCOMPARE(f->api.cancelled(), (QStringList{f->leads, f->pools}));
    QCOMPARE(f->query(f->leads).first(), u"title=Owner,Founder"_s);
    f->api.answer(f->leads, SearchFixture::page({f->lead("l2")}, 7));
    QVERIFY(!f->results.waiting() && f->finder.poolsWaiting());
    QCOMPARE(shown(), QStringList{u"l2"_s});
    f->api.answer(f->pools, SearchFixture::poolSizes(6, 1));
    QCOMPARE(f->finder.pools().first().count, 6);

    look(u"Founder"_s);
    f->api.fail(f->leads, TransportFailure::timedOut);
    f->api.fail(f->pools, TransportFailure::timedOut);
    QVERIFY2(shown().isEmpty(), "the rows would stand under a search that they do not answer");
    QCOMPARE(f->results.list()->stateName(), ResourceBase::State::Error);
    QCOMPARE(f->finder.pools().first().count, -1);
  }

  void readingAgainKeepsTheRowsWhenItFails() {
    f->open(SearchFixture::page({f->lead("l1")}));
    for (const QString& label : {f->leads, f->pools, u"GET /leads/totals"_s, f->saved}) f->api.expect(label);
    f->results.selection()->takeFirst(5);
    f->finder.refresh();
    QVERIFY(f->results.selection()->isEmpty());
    f->api.fail(f->leads, TransportFailure::timedOut);
    QCOMPARE(shown(), QStringList{u"l1"_s});
    QCOMPARE(f->lastToast(), u"Couldn’t refresh the leads."_s);
    f->api.answer(f->pools, SearchFixture::poolSizes(1, 1));
    f->api.answer(u"GET /leads/totals"_s, R"({"all":1,"bySource":{}})");
    f->api.answer(f->saved, "[]");
  }

  void typingAsksOnceItRests() {
    f->open(SearchFixture::page({f->lead("l1")}));
    for (const auto& text : {u"fl"_s, u"fle"_s, u"fleet"_s}) {
      f->filters.type(u"q"_s, text);
      QVERIFY2(f->results.waiting(), "seen to be old with the first letter");
      f->clock.advance(200ms);
    }
    QCOMPARE(f->asked(f->leads), 1);
    f->expectSearch();
    f->clock.advance(60ms);
    QCOMPARE(f->query(f->leads).first(), u"q=fleet"_s);
    // A letter lets go of what is under way, also when it is taken back.
    f->filters.type(u"q"_s, u"fleets"_s);
    QCOMPARE(f->api.cancelled(), (QStringList{f->leads, f->pools}));
    f->filters.type(u"q"_s, u"fleet"_s);
    f->expectSearch();
    f->clock.advance(300ms);
    f->api.answer(f->leads, SearchFixture::page({f->lead("l2")}));
    f->api.answer(f->pools, SearchFixture::poolSizes(1, 0));
    QCOMPARE(shown(), QStringList{u"l2"_s});
    // What is answered already is asked for again by nobody, though its pools may not be known.
    f->filters.type(u"q"_s, u"fleetx"_s);
    f->filters.type(u"q"_s, u"fleet"_s);
    f->api.expect(f->pools);
    f->clock.advance(300ms);
    QVERIFY(!f->results.waiting());
    f->api.answer(f->pools, SearchFixture::poolSizes(1, 0));
    // Something chosen while a letter waits goes with it, in one request.
    f->filters.type(u"q"_s, u"fleets"_s);
    look(u"Owner"_s);
    QCOMPARE(f->query(f->leads).mid(0, 2), (QStringList{u"q=fleets"_s, u"title=Owner"_s}));
    f->clock.advance(1s);
    QCOMPARE(f->api.waiting(), 2);
  }

  void everyChangeIsAStepOfTheWayBack() {
    QList<PagePlace> places;
    connect(f->store.get(), &Store::moved, this, [&] { places.append(f->store->where()); });
    f->open(SearchFixture::page({f->lead("l1")}));
    const PagePlace start = f->store->where();
    look(u"Owner, retired & co"_s);
    f->expectSearch();
    f->finder.setPool(u"all"_s);
    f->filters.type(u"q"_s, u"50% off"_s);
    QCOMPARE(places.size(), 3);
    QVERIFY(places[0].chosen && places[1].chosen && !places[2].chosen);
    const LeadSearch last = f->filters.search();
    f->expectSearch();
    f->store->goTo(start);
    QVERIFY(!f->filters.any());
    QCOMPARE(f->finder.pool(), u"new"_s);
    f->expectSearch();
    f->store->goTo(places[2]);
    QCOMPARE(f->filters.search(), last);
    QCOMPARE(f->query(f->leads).mid(0, 3), (QStringList{u"q=50% off"_s, u"title=Owner,retired & co"_s, u"only=all"_s}));
    // The lists are another place, and the way back leads out of them.
    for (const QString& label : {u"GET /lead-lists"_s, u"GET /lead-lists"_s, u"GET /lead-imports"_s})
      f->api.expect(label);
    f->store->setTab(u"lists"_s);
    QCOMPARE(places.last().tab, u"lists"_s);
    f->store->goTo(places[2]);
    QVERIFY(!f->store->showLists());
  }

  void whatActionsApplyTo() {
    f->open(SearchFixture::page({f->lead("l1"), f->lead("l2")}, 500, false, "c2"));
    QVERIFY(!f->results.target());
    f->results.addToList();
    QCOMPARE(f->lastToast(), u"Tick leads or set a filter first"_s);
    f->results.tickLoaded();
    QCOMPARE(f->results.target()->description(), u"2 selected leads"_s);
    for (const auto& text : {u"0"_s, u"100001"_s, u"ten"_s, QString()})
      QCOMPARE(f->results.firstProblem(text), u"A whole number from 1 to 100,000"_s);
    f->results.askFirst();
    f->results.takeFirst(u"100001"_s);
    QVERIFY(f->results.firstForm()->shown());
    f->results.takeFirst(u"100000"_s);
    QVERIFY(!f->results.firstForm()->shown());
    QCOMPARE(f->results.selectedText(), u"100,000 selected"_s);
    QVERIFY(f->results.selection()->ids().isEmpty());
    const auto first = f->results.target();
    QCOMPARE(first->filter()->first, std::optional<qint64>(100'000));
    f->results.selection()->clear();
    look(u"Owner"_s);
    f->api.answer(f->leads, SearchFixture::page({f->lead("l3")}, 1200, false));
    const auto every = f->results.target();
    QCOMPARE(every->description(), u"about 1,200 matching leads"_s);
    QVERIFY(!every->filter()->first);
    QCOMPARE(every->filter()->search, f->filters.search());
    // Ticks of rows that are gone go with them.
    f->api.answer(f->pools, SearchFixture::poolSizes(1200, 0));
    f->results.selection()->toggle(u"l3"_s);
    f->expectSearch();
    f->context->changes().stale<Lead>();
    f->api.answer(f->leads, SearchFixture::page({f->lead("l4")}));
    QVERIFY(f->results.selection()->isEmpty());
  }

  void onlyTheLeadsThatComeBackAreUnlocked() {
    f->open(SearchFixture::page({f->lead("l1"), f->lead("l2")}));
    f->api.expect(f->usage);
    f->actions.ensureLoaded();
    f->api.answer(f->usage, R"({"locked":true,"used":88,"limit":1500,"left":1412,"resetsAt":"2026-12-01"})");
    LeadAllowance& allowance = *f->actions.allowance();
    QCOMPARE(allowance.leftText(), u"1,412 unlocks left"_s);
    QCOMPARE(allowance.usedText(), u"88 of 1,500 used this month."_s);
    QCOMPARE(allowance.note(), u"Each lead you don’t have yet uses one unlock. 1,412 left this month. More on 1 Dec"_s);
    f->api.expect(f->unlock);
    allowance.unlockOne(u"l1"_s);
    allowance.unlockOne(u"l1"_s);
    QCOMPARE(allowance.busyIds(), QStringList{u"l1"_s});
    QCOMPARE(f->sentBody(), (QJsonObject{{u"leadIds"_s, QJsonArray{u"l1"_s}}}));
    f->api.expect(f->pools);
    f->api.answer(
        f->unlock,
        R"({"items":[{"id":"l1","email":"ana@a.example","phone":"+49 1"}],"unlocked":1,)"
        R"("usage":{"locked":true,"used":89,"limit":1500,"left":1411,"resetsAt":"2026-12-01","credits":true}})");
    const Lead known = f->results.list()->find(u"l1"_s)->record();
    QCOMPARE(known.email, u"ana@a.example"_s);
    QCOMPARE(known.phone, std::optional(u"+49 1"_s));
    QVERIFY(!known.locked && f->results.list()->find(u"l2"_s)->record().locked == true);
    QCOMPARE(allowance.leftText(), u"1,411 credits left"_s);
    QVERIFY(allowance.busyIds().isEmpty());
    f->api.answer(f->pools, SearchFixture::poolSizes(79, 21));

    // Nobody knows whether this one was paid for: it is told so, and what is known of it is read anew.
    f->api.expect(f->unlock);
    allowance.unlockOne(u"l2"_s);
    f->api.expect(f->usage);
    f->api.expect(f->leads);
    f->api.fail(f->unlock, TransportFailure::timedOut);
    QCOMPARE(f->lastToast(), u"The unlock may have gone through."_s);
    QCOMPARE(f->asked(f->unlock), 2);
    QVERIFY(f->api.isWaiting(f->usage) && f->api.isWaiting(f->leads));
  }

  void unlocksGoOneAfterAnother() {
    f->open(SearchFixture::page({f->lead("l1"), f->lead("l2")}));
    LeadAllowance& allowance = *f->actions.allowance();
    f->api.expect(f->unlock);
    allowance.unlockOne(u"l1"_s);
    allowance.unlockOne(u"l2"_s);
    QCOMPARE(f->asked(f->unlock), 1);
    QCOMPARE(allowance.busyIds().size(), 2);
    f->api.expect(f->usage);
    f->api.expect(f->pools);
    f->api.expect(f->unlock);
    f->api.answer(f->unlock, unlockedOne("l1", 8));
    f->api.answer(f->usage, R"({"locked":true,"used":1,"limit":9,"left":8,"resetsAt":"2026-12-01"})");
    f->api.expect(f->pools);
    f->api.answer(f->unlock, unlockedOne("l2", 7));
    QCOMPARE(allowance.leftText(), u"7 unlocks left"_s);
  }

  void whatCameToAListOrACampaignIsFoundInIt() {
    f->open(SearchFixture::page({f->lead("l1")}));
    f->expectSearch();
    f->api.expect(u"GET /campaigns"_s);
    f->filters.toggle(u"campaign"_s, u"c1"_s);
    f->api.answer(f->leads, SearchFixture::page({f->lead("l1")}));
    f->api.answer(u"GET /campaigns"_s, R"({"items":[]})");
    // Leads of another one are not found here; how many there are in each pool is another matter.
    f->api.expect(f->pools);
    leadsCameTo(*f->context, u"c2"_s);
    QVERIFY(!f->results.list()->refreshing());
    f->expectSearch();
    leadsCameTo(*f->context, u"c1"_s);
    f->api.answer(f->leads, SearchFixture::page({f->lead("l1"), f->lead("l2")}));
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l2"_s}));
    // The campaigns to choose from are not those of an hour ago.
    f->api.expect(u"GET /campaigns"_s);
    f->finder.ensureLoaded();
    QVERIFY(f->api.isWaiting(u"GET /campaigns"_s));
  }

  void whatWasAddedIsGoneOnceThePersonComesBack() {
    f->open(SearchFixture::page({f->lead("l1"), f->lead("l2")}));
    f->api.expect(f->pools);
    leadsCameTo(*f->context, u"c1"_s);
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l2"_s}));
    QVERIFY(!f->results.list()->needsLoad());
    f->api.answer(f->pools, SearchFixture::poolSizes(79, 21));
    f->results.list()->disappear();
    f->store->disappear();
    f->api.expect(f->leads);
    f->finder.ensureLoaded();
    f->api.answer(f->leads, SearchFixture::page({f->lead("l2")}));
    QCOMPARE(shown(), QStringList{u"l2"_s});
    // The answer may come when they are elsewhere already.
    f->api.expect(f->pools);
    leadsCameTo(*f->context, u"c1"_s);
    f->api.answer(f->pools, SearchFixture::poolSizes(78, 22));
    QVERIFY(f->results.list()->needsLoad());
  }

  void whatCouldNotBeCountedIsCountedAgain() {
    for (const QString& label : {f->leads, f->pools, u"GET /leads/totals"_s, f->saved}) f->api.expect(label);
    f->finder.ensureLoaded();
    f->api.fail(f->pools, TransportFailure::timedOut);
    QCOMPARE(f->finder.pools().first().count, -1);
    f->api.expect(f->pools);
    f->finder.ensureLoaded();
    f->api.answer(f->pools, SearchFixture::poolSizes(80, 20));
    QCOMPARE(f->finder.pools().first().count, 80);
  }

  void aCardKnowsItsListsAfterEveryAction() {
    const QString detail = u"GET /leads/l1"_s;
    f->open(SearchFixture::page({f->lead("l1")}));
    LeadCard& card = *f->results.card();
    f->api.expect(detail);
    card.open(u"l1"_s);
    f->api.answer(detail, record("l1"));
    f->api.expect(detail);
    f->context->changes().stale<LeadList>(u"li1"_s);
    f->api.answer(detail, withLists(record("l1"), R"([{"id":"li1","name":"Fair"}])"));
    QCOMPARE(card.lists().size(), 1);
    card.dismiss();
    f->context->changes().stale<Campaign>(u"c1"_s);
    f->api.expect(detail);
    card.open(u"l1"_s);
    QVERIFY2(f->api.isWaiting(detail), "what was known of it before is forgotten");
  }

  void aCardShowsWhatTheRowKnowsAndThenEverything() {
    const QString detail = u"GET /leads/l1"_s;
    f->open(
        SearchFixture::page({f->lead("l1", R"(,"title":"Owner","company":"A GmbH","city":"Munich")"), f->lead("l2")}));
    LeadCard& card = *f->results.card();
    // Whoever only passes a row reads nothing.
    card.look(u"l2"_s);
    f->clock.advance(100ms);
    card.look(u"l1"_s);
    f->clock.advance(200ms);
    f->api.expect(detail);
    f->clock.advance(60ms);
    f->api.answer(detail, record("l1"));
    card.open(u"l1"_s);
    QVERIFY2(card.complete(), "what was read ahead opens at once");
    QCOMPARE(card.about(), u"Owner · A GmbH"_s);
    QStringList texts;
    for (const Choice& fact : card.person() + card.company() + card.record())
      texts.append(fact.label + u'=' + fact.detail);
    QCOMPARE(texts, (QStringList{u"First name=Ana"_s, u"Title=Owner"_s, u"Email="_s, u"Phone="_s, u"City=Munich"_s,
                                 u"Company=A GmbH"_s, u"Website=a.example"_s, u"Annual revenue=€4.1M per year"_s,
                                 u"Batch=b1"_s, u"Verified=1 Oct"_s, u"Added=1 Mar"_s, u"Updated=1 May"_s}));
    QCOMPARE(card.technologies(), (QStringList{u"Excel"_s, u"CRM"_s}));
    QCOMPARE(card.campaigns().first().toMap().value(u"detail"_s), u"Email 2 · 3 Apr"_s);
    QCOMPARE(f->results.list()->find(u"l1"_s)->record().firstName, std::optional(u"Ana"_s));
    card.copyEmail(u"l1"_s);
    QVERIFY2(f->clipboard.text.isEmpty(), "what is hidden cannot be copied");

    // The next one shows what its row knows until its own detail comes, and says so when that fails.
    f->api.expect(u"GET /leads/l2"_s);
    card.open(u"l2"_s);
    QVERIFY(!card.complete() && card.name() == u"Lead l2"_s && card.campaigns().isEmpty());
    f->api.fail(u"GET /leads/l2"_s, TransportFailure::timedOut);
    QVERIFY(card.problem().startsWith(u"Couldn’t load everything about this lead. "_s));
    f->api.expect(u"GET /leads/l2"_s);
    card.tryAgain();
    QVERIFY(card.problem().isEmpty());
    // Its answer is no other lead's.
    card.open(u"l1"_s);
    QVERIFY(card.complete() && card.leadId() == u"l1"_s);
    QCOMPARE(f->api.cancelled(), QStringList{u"GET /leads/l2"_s});

    // Unlocked, the card says the address, and it can be copied.
    f->api.expect(f->unlock);
    f->actions.allowance()->unlockOne(u"l1"_s);
    f->api.expect(u"GET /leads/unlocks"_s);
    f->api.expect(f->pools);
    f->api.answer(f->unlock, R"({"items":[{"id":"l1","email":"ana@a.example"}],"unlocked":1,)"
                             R"("usage":{"locked":true,"used":1,"limit":5,"left":4,"resetsAt":"2026-12-01"}})");
    QVERIFY(!card.locked());
    card.copyEmail(u"l1"_s);
    QCOMPARE(f->clipboard.text, u"ana@a.example"_s);
    QCOMPARE(f->lastToast(), u"Copied"_s);
  }

  void aCardSaysWhatStrangersWroteInItsPlace() {
    f->open(SearchFixture::page({f->lead("l1")}, 1));
    LeadCard& card = *f->results.card();
    QStringList words;
    for (int i = 0; i < 5000; ++i) words.append(u"word%1"_s.arg(i));
    f->api.expect(u"GET /leads/l1"_s);
    card.open(u"l1"_s);
    card.copyEmail(u"l1"_s);
    QVERIFY(f->clipboard.text.isEmpty());
    QByteArray unlocked = SearchFixture::lead(
        "l1",
        R"(,"title":"a\nDelete all","updatedAt":"2026-05-01T08:00:00Z","lists":[],"campaigns":[],"keywords":"WORDS")");
    unlocked.replace("WORDS", words.join(u',').toUtf8());
    unlocked.replace(R"("email":"","locked":true)", R"("email":"ana@a.example","locked":false)");
    f->api.answer(u"GET /leads/l1"_s, unlocked);
    QCOMPARE(card.person().first().detail, u"a Delete all"_s);
    QCOMPARE(card.keywords().size(), 41);
    QCOMPARE(card.keywords().last(), u"and 4,960 more"_s);
    // Somebody unlocked it meanwhile.
    card.copyEmail(u"l1"_s);
    QCOMPARE(f->clipboard.text, u"ana@a.example"_s);
  }

  void thePointerPeeksAndTheKeyboardReadsAhead() {
    f->open(SearchFixture::page({f->lead("l1"), f->lead("l2")}));
    LeadCard& card = *f->results.card();
    card.peek(u"l1"_s);
    f->clock.advance(200ms);
    card.peek(u"l2"_s);
    f->clock.advance(200ms);
    QVERIFY2(!card.peeking() && f->asked(u"GET /leads/l1"_s) == 0, "whoever passes a row sees nothing of it");
    f->api.expect(u"GET /leads/l2"_s);
    f->clock.advance(60ms);
    QVERIFY(card.peeking() && !card.shown() && card.leadId() == u"l2"_s);
    f->api.answer(u"GET /leads/l2"_s, record("l2"));
    QVERIFY(card.complete());
    card.peek({});
    QVERIFY(!card.peeking() && card.leadId().isEmpty());
    // Opened, it stays, wherever the pointer goes.
    card.peek(u"l2"_s);
    f->clock.advance(300ms);
    card.open(u"l2"_s);
    QVERIFY(card.shown() && card.complete());
    card.peek({});
    f->api.expect(u"GET /leads/l1"_s);
    card.peek(u"l1"_s);
    f->clock.advance(300ms);
    QVERIFY(card.shown() && card.leadId() == u"l2"_s);
    f->api.answer(u"GET /leads/l1"_s, record("l1"));
    card.open(u"l1"_s);
    QVERIFY2(card.complete() && f->asked(u"GET /leads/l1"_s) == 1, "what the pointer rested on opens at once");
  }

  void searchesAreKeptUnderAName() {
    f->open(SearchFixture::page({f->lead("l1")}),
            R"([{"id":"s1","name":"Owners","search":{"title":"owner, founder","list":"li1"},"updatedAt":""}])");
    SavedSearches& saved = *f->finder.saved();
    f->expectSearch();
    f->finder.setPool(u"all"_s);
    for (const QString& label : {f->leads, f->pools, u"GET /lead-lists"_s}) f->api.expect(label);
    f->finder.open(u"s1"_s);
    QCOMPARE(f->filters.search().values,
             (QMap<QString, QString>{{u"title"_s, u"owner, founder"_s}, {u"list"_s, u"li1"_s}}));
    QCOMPARE(f->filters.search().only, std::optional(u"all"_s));

    f->finder.save();
    QVERIFY(saved.replaces(u" Owners "_s) && !saved.replaces(u"owners"_s));
    saved.form()->setText(u"Owners"_s);
    f->api.expect(u"POST /lead-searches"_s);
    saved.form()->submit();
    QCOMPARE(f->sentBody().value(u"search"_s).toObject().value(u"list"_s), QJsonValue(u"li1"_s));
    f->api.answer(u"POST /lead-searches"_s, R"({"detail":"Too many."})", 422);
    QVERIFY(saved.form()->error().startsWith(u"Couldn’t save the search."_s));
    f->api.expect(u"POST /lead-searches"_s);
    saved.form()->submit();
    f->api.expect(f->saved);
    f->api.answer(u"POST /lead-searches"_s, "{}");
    QVERIFY(!saved.form()->shown());
    f->api.answer(f->saved, R"([{"id":"s1","name":"Owners","search":{},"updatedAt":""}])");

    f->api.expect(u"DELETE /lead-searches/s1"_s);
    saved.remove(u"s1"_s);
    saved.remove(u"s1"_s);
    f->api.answer(u"DELETE /lead-searches/s1"_s, R"({"detail":"No."})", 500);
    QCOMPARE(f->lastToast(), u"Couldn’t restore the project."_s);
    f->api.expect(u"DELETE /lead-searches/s1"_s);
    saved.remove(u"s1"_s);
    f->api.expect(f->saved);
    f->api.answer(u"DELETE /lead-searches/s1"_s, "{}");
    QVERIFY(f->lastToast().endsWith(u", so you can restore it."_s));
    f->api.answer(f->saved, "[]");
    QVERIFY(saved.choices().isEmpty());
    f->api.expect(u"POST /lead-searches/s1/restore"_s);
    f->toasts.act(f->toasts.toasts().last().id);
    f->api.expect(f->saved);
    f->api.answer(u"POST /lead-searches/s1/restore"_s, "{}");
    QCOMPARE(f->lastToast(), u"Restored Owners"_s);
    QVERIFY(f->api.isWaiting(f->saved));
  }
};

QTEST_GUILESS_MAIN(LeadFinderTest)
#include "leadfinder_test.moc"
