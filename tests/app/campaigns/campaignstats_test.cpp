#include <QAbstractItemModelTester>
#include <QTest>

#include "app/campaigns/CampaignStore.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto campaignCall = u"GET /campaigns/c1"_s, summaryCall = u"GET /analytics/summary"_s,
           messagesCall = u"GET /campaigns/c1/messages"_s, feedCall = u"GET /campaigns/c1/activity"_s;

QByteArray campaignOf(const QByteArray& more) {
  return R"({"id":"c1","name":"Acme","status":"running","version":7)" + more + "}";
}

const QByteArray summaryAnswer =
    R"({"from":"x","to":"x","timeZone":"UTC","tracking":{"opens":true,"clicks":false},"totals":{"sent":200,)"
    R"("contacted":100,"newContacted":90,"opens":50,"clicks":1,"replies":10,"autoReplies":2,"bounces":4,)"
    R"("unsubscribes":1,"opportunities":3,"opportunityValue":0,"interested":3,"meetingsBooked":1,)"
    R"("meetingsCompleted":1,"won":0},"days":[{"day":"2026-11-20","sent":200,"opens":50,"replies":10}],)"
    R"("campaigns":[],"accounts":[{"id":"m1","address":"ana@a.example","status":"active","sent":200,)"
    R"("contacted":90,"replies":10,"bounces":8,"interested":3}]})";

QByteArray lineOf(const QByteArray& kind, const QByteArray& more = {}) {
  return R"({"kind":")" + kind + R"(","at":"2026-11-20T10:00:00Z")" + more + "}";
}

QByteArray feedPage(const QList<QByteArray>& lines, const QByteArray& cursor = {}) {
  const QByteArray start = cursor.isEmpty() ? QByteArray("{") : R"({"nextCursor":")" + cursor + R"(",)";
  return start + R"("items":[)" + lines.join(',') + "]}";
}

QByteArray variant(const QByteArray& id, const QByteArray& subject, const QByteArray& more = {}) {
  return R"({"id":")" + id + R"(","label":")" + id.right(1).toUpper() + R"(","subject":")" + subject +
         R"(","body":"","weight":1,"enabled":true)" + more + "}";
}

QByteArray step(const QByteArray& id, const QByteArray& sameThread, const QByteArray& variants,
                const QByteArray& more = {}) {
  return R"({"id":")" + id + R"(","position":1,"delayMinutes":0,"sameThread":)" + sameThread + R"(,"variants":[)" +
         variants + "]" + more + "}";
}

QString queryText(const APICall& call) {
  QStringList items;
  for (const auto& [name, value] : call.request.query) items.append(name + u'=' + value.value_or(QString()));
  return items.join(u'&');
}

}  // namespace

class CampaignStatsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<CampaignStore> campaign;
  CampaignStatsStore* store = nullptr;

  void loadCampaign(const QByteArray& more = {}) {
    f->api.expect(campaignCall);
    campaign->ensureLoaded();
    f->api.answer(campaignCall, campaignOf(more));
  }
  void load() {
    f->api.expect(summaryCall);
    store->ensureLoaded();
    f->api.answer(summaryCall, summaryAnswer);
  }
  void showFeed(const QByteArray& page) {
    load();
    f->api.expect(feedCall);
    store->setSection(u"activity"_s);
    f->api.answer(feedCall, page);
  }
  /// A line a row: "title | detail | …" of the roles.
  static QStringList lines(const ListModel* rows, const QList<QByteArray>& roles) {
    QStringList lines;
    for (int row = 0; row < rows->count(); ++row) {
      QStringList cells;
      for (const QByteArray& role : roles) cells.append(rows->index(row).data(rows->roleNames().key(role)).toString());
      lines.append(cells.join(u" | "_s));
    }
    return lines;
  }
  QStringList feed() const { return lines(store->feed()->rows(), {"title"}); }
  QString lastToast() const { return f->toasts.count() ? f->toasts.toasts().last().message : QString(); }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    campaign = std::make_unique<CampaignStore>(u"c1"_s, *f->context);
    store = campaign->stats();
    for (ListModel* rows :
         QList<ListModel*>{store->inboxRows(), store->emailRows(), store->messageRows(), store->feed()->rows()})
      new QAbstractItemModelTester(rows, QAbstractItemModelTester::FailureReportingMode::Fatal, campaign.get());
  }
  void cleanup() {
    campaign.reset();
    f.reset();
  }

  void headLine_data() {
    QTest::addColumn<QByteArray>("more");
    QTest::addColumn<QString>("said");
    const QByteArray counts = R"("queued":0,"active":0,"paused":0,"completed":0,"replied":0,"bounced":0,)"
                              R"("unsubscribed":0,"stopped":0})";
    const auto stats = [&counts](const QByteArray& leads) {
      return R"(,"stats":{"leads":{"total":)" + leads + "," + counts +
             R"(,"sent":4212,"delivered":0,"bounced":0,"replied":0,"positive":0,"scheduled":96,"failed":0})";
    };
    const QByteArray sender =
        R"({"mailboxId":"m1","address":"a@a.example","displayName":"A","status":"active","ready":true,"capToday":1,)"
        R"("sentToday":0,"viaTag":false})";
    QTest::newRow("nothing known") << QByteArray() << u"Not launched yet · 0 leads · 0 sent · 0 booked · 0 inboxes"_s;
    QTest::newRow("one of each") << R"(,"launchedAt":"2026-11-03T12:00:00Z","senders":[)" + sender + "]" + stats("1")
                                 << u"Launched 3 Nov · 1 lead · 4,212 sent · 96 booked · 1 inbox"_s;
    QTest::newRow("many") << R"(,"senders":[)" + sender + "," + sender + "]" + stats("3000")
                          << u"Not launched yet · 3,000 leads · 4,212 sent · 96 booked · 2 inboxes"_s;
  }
  void headLine() {
    QFETCH(QByteArray, more);
    QCOMPARE(store->headLine(), QString());
    loadCampaign(more);
    QTEST(store->headLine(), "said");
  }

  void loadsWhenFirstShownAndAnewForAnotherRange() {
    loadCampaign();
    store->setPreset(u"last3m"_s);
    f->api.expect(summaryCall);
    store->ensureLoaded();
    store->ensureLoaded();
    QCOMPARE(queryText(f->api.last()), u"from=2026-08-21&to=2026-11-21&campaigns=c1"_s);

    f->api.expect(summaryCall);
    store->setPreset(u"last7"_s);
    QCOMPARE(f->api.cancelled(), QStringList{summaryCall});
    QCOMPARE(queryText(f->api.last()), u"from=2026-11-15&to=2026-11-21&campaigns=c1"_s);
    f->api.answer(summaryCall, summaryAnswer);
    QCOMPARE(store->figures().size(), 8);
    QCOMPARE(store->figures()[2].detail, u"Tracking off"_s);
    QCOMPARE(store->days(), QStringList{u"2026-11-20"_s});
    store->toggleSeries(u"sent"_s);
    QVERIFY(!store->series().first().toMap().value(u"shown"_s).toBool());
    QCOMPARE(lines(store->inboxRows(), {"address", "sentText", "repliedRate", "interestedText", "bouncesHigh"}),
             QStringList{u"ana@a.example | 200 | 5% | 3 | true"_s});

    // Another range that fails leaves no figures of the one before.
    f->api.expect(summaryCall);
    store->setPreset(u"ytd"_s);
    f->api.answer(summaryCall, R"({"title":"Not now"})", 500);
    QCOMPARE(store->summary()->stateName(), ResourceBase::State::Error);
    QVERIFY(!store->summary()->refreshing() && f->toasts.count() == 0);
  }

  void refreshingReadsWhatWasShown() {
    loadCampaign();
    load();
    campaign->setTab(u"stats"_s);
    for (const auto& call : {campaignCall, summaryCall}) f->api.expect(call);
    campaign->refreshShown();
    f->api.answer(campaignCall, campaignOf({}));
    f->api.fail(summaryCall, TransportFailure::timedOut);
    QCOMPARE(lastToast(), u"Couldn’t load the stats"_s);
    QVERIFY(store->summary()->hasContent());

    f->api.expect(messagesCall);
    store->setSection(u"messages"_s);
    f->api.answer(messagesCall, R"({"items":[]})");
    QCOMPARE(store->messages()->stateName(), ResourceBase::State::Empty);
    store->setSection(u"inboxes"_s);
    store->setSection(u"messages"_s);
    // Past midnight the range is another one.
    f->clock.advance(24h);
    for (const auto& call : {campaignCall, summaryCall, messagesCall}) f->api.expect(call);
    campaign->refreshShown();
    QVERIFY2(store->rangeText().contains(u"21 Nov 2026"_s), "the figures on the screen are still of that range");
    f->api.answer(summaryCall, summaryAnswer);
    QVERIFY(store->rangeText().contains(u"22 Nov 2026"_s));
    // The tab is elsewhere: only the campaign is read.
    campaign->setTab(u"sequence"_s);
    f->api.expect(campaignCall);
    campaign->refreshShown();
  }

  void emails_data() {
    QTest::addColumn<QByteArray>("steps");
    QTest::addColumn<QStringList>("rows");
    const QByteArray stats = R"(,"stats":{"sent":200,"replied":5,"positive":1,"bounced":7})";
    QTest::newRow("none") << QByteArray() << QStringList();
    QTest::newRow("the first has no thread before it")
        << step("s1", "true", variant("v1a", " Hi "), stats) + "," + step("s2", "true", variant("v2a", "Ignored")) +
               "," + step("s3", "false", variant("v3a", "  "))
        << QStringList{u"Hi | Email 1 | 200 | 5 | 2.5% | 1 | 7 | 3.5% | true"_s,
                       u"Reply in thread | Email 2 | – | – |  | – | – |  | false"_s,
                       u"(no subject) | Email 3 | – | – |  | – | – |  | false"_s};
    QTest::newRow("variants where there are two")
        << step("s1", "false", variant("v1a", "A") + "," + variant("v1b", "", stats), stats)
        << QStringList{u"A | Email 1 · 2 variants | 200 | 5 | 2.5% | 1 | 7 | 3.5% | true"_s,
                       u"A | Variant A | – | – |  | – | – |  | false"_s,
                       u"(no subject) | Variant B | 200 | 5 | 2.5% | 1 | 7 | 3.5% | true"_s};
    QTest::newRow("a step without a text")
        << step("s1", "false", {}) << QStringList{u"(no subject) | Email 1 | – | – |  | – | – |  | false"_s};
  }
  void emails() {
    QFETCH(QByteArray, steps);
    loadCampaign(R"(,"steps":[)" + steps + "]");
    QTEST(lines(store->emailRows(), {"title", "detail", "sent", "replied", "repliedRate", "positive", "bounced",
                                     "bouncedRate", "bouncesHigh"}),
          "rows");
  }

  void messagesSayWhatIsKnownOfThem() {
    load();
    f->api.expect(messagesCall);
    store->setSection(u"messages"_s);
    QCOMPARE(queryText(f->api.last()), u"limit=100"_s);
    f->api.answer(
        messagesCall,
        R"({"items":[)"
        R"({"id":"1","to":"b@b.example","from":"a@a.example","state":"scheduled","step":2,"variant":"A",)"
        R"("scheduledAt":"2026-11-22T08:05:00Z"},)"
        R"({"id":"2","to":"b@b.example","from":"","state":"sent","subject":"Hi","sentAt":"2026-11-20T10:00:00Z",)"
        R"("scheduledAt":"2026-11-19T10:00:00Z"},)"
        R"({"id":"3","to":"c@b.example","from":"","state":"failed","subject":" ","error":"No such user"}]})");
    const auto local = [](const QDateTime& utc) { return Format::moment(utc.toLocalTime()); };
    QCOMPARE(
        lines(store->messageRows(), {"title", "detail", "state", "stateLabel", "when"}),
        (QStringList{u"(no subject) | To b@b.example · from a@a.example · Email 2A | unknown | Unknown | "_s +
                         local(QDateTime({2026, 11, 22}, {8, 5}, Qt::UTC)),
                     u"Hi | To b@b.example | sent | Sent | "_s + local(QDateTime({2026, 11, 20}, {10, 0}, Qt::UTC)),
                     u"(no subject) | To c@b.example · No such user | failed | Failed | –"_s}));
  }

  void theFeedGrowsPageByPage() {
    showFeed(feedPage({lineOf("launched"), lineOf("odd", R"(,"count":1200,"lead":{"id":"l1","email":"b@b.example"})")},
                      "next"));
    QCOMPARE(queryText(f->api.last()), u"limit=50"_s);
    QCOMPARE(lines(store->feed()->rows(), {"title", "detail"}),
             (QStringList{u"Launched | "_s, u"odd × 1,200 | b@b.example"_s}));
    QVERIFY(store->feed()->canLoadMore());

    f->api.expect(feedCall);
    store->feed()->loadMore();
    store->feed()->loadMore();
    QVERIFY(store->feed()->loadingMore());
    QCOMPARE(queryText(f->api.last()), u"limit=50&cursor=next"_s);
    f->api.fail(feedCall, TransportFailure::timedOut);
    QVERIFY(store->feed()->moreFailed() && !store->feed()->loadingMore() && store->feed()->canLoadMore());
    QCOMPARE(store->feed()->rows()->count(), 2);

    f->api.expect(feedCall);
    store->feed()->loadMore();
    QVERIFY(!store->feed()->moreFailed());
    f->api.answer(feedCall, feedPage({lineOf("sent")}));
    QCOMPARE(feed(), (QStringList{u"Launched"_s, u"odd × 1,200"_s, u"Sent"_s}));
    QVERIFY(!store->feed()->canLoadMore() && !store->feed()->loadingMore());
    store->feed()->loadMore();
    QCOMPARE(f->api.waiting(), 0);
  }

  void theNextPageOfAFeedThatIsReadAgainFollowsIt() {
    showFeed(feedPage({lineOf("sent")}, "old"));
    f->api.expect(feedCall);
    store->feed()->loadMore();
    for (const auto& call : {summaryCall, feedCall}) f->api.expect(call);
    store->refresh();
    QCOMPARE(f->api.cancelled(), QStringList{feedCall});
    // Still wanted, it is asked for where the feed goes on now.
    f->api.expect(feedCall);
    f->api.answer(feedCall, feedPage({lineOf("paused"), lineOf("sent")}, "new"));
    QCOMPARE(feed(), (QStringList{u"Paused"_s, u"Sent"_s}));
    QCOMPARE(queryText(f->api.last()), u"limit=50&cursor=new"_s);
    f->api.answer(feedCall, feedPage({lineOf("launched")}));
    QVERIFY(!store->feed()->loadingMore() && !store->feed()->canLoadMore());
    QCOMPARE(feed(), (QStringList{u"Paused"_s, u"Sent"_s, u"Launched"_s}));
  }

  void aCampaignThatGoesTakesItsQuestionsAlong() {
    showFeed(feedPage({lineOf("sent")}, "next"));
    f->api.expect(feedCall);
    store->feed()->loadMore();
    f->api.expect(summaryCall);
    store->setPreset(u"last7"_s);
    f->api.expect(messagesCall);
    store->setSection(u"messages"_s);
    campaign->close();
    QCOMPARE(f->api.waiting(), 0);
    QVERIFY(!store->feed()->loadingMore() && !store->summary()->refreshing());
  }
};

QTEST_GUILESS_MAIN(CampaignStatsTest)
#include "campaignstats_test.moc"
