#include <QFile>
#include <QTemporaryDir>

#include "app/figures/AnalyticsCsv.h"
#include "kit/models/campaigns/campaign.h"
#include "tests/app/analytics/AnalyticsPage.h"
#include "tests/support/cell.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

class AnalyticsTest final : public AnalyticsPage {
  Q_OBJECT

  template <class Rows>
  static QStringList ids(const Rows* rows) {
    QStringList ids;
    for (const auto& record : rows->records()) ids.append(record.id);
    return ids;
  }
  template <class Rows>
  static QString cell(const Rows* rows, int row, const QByteArray& role) {
    return test::cell(*rows, row, role).toString();
  }
 private Q_SLOTS:
  void init() { open(); }
  void cleanup() { leave(); }

  void loadsOnceWhenFirstShown() {
    store->setTag(u"q3"_s);
    f->api.expect(summaryCall);
    store->ensureLoaded();
    store->ensureLoaded();
    QCOMPARE(queryText(f->api.last()), u"from=2026-10-25&to=2026-11-21&tags=q3"_s);
  }

  void everyOtherQuestionIsAsked_data() {
    QTest::addColumn<std::function<void(AnalyticsStore*)>>("change");
    QTest::addColumn<QString>("query");
    using Change = std::function<void(AnalyticsStore*)>;
    const auto week = u"from=2026-10-25&to=2026-11-21"_s;
    QTest::newRow("preset") << Change([](auto* s) { s->setPreset(u"mtd"_s); }) << u"from=2026-11-01&to=2026-11-21"_s;
    QTest::newRow("custom") << Change([](auto* s) { s->setCustomRange(u"2026-03-09"_s, u"2026-01-02"_s); })
                            << u"from=2026-01-02&to=2026-03-09"_s;
    QTest::newRow("campaign") << Change([](auto* s) { s->setCampaign(u"c1"_s); }) << week + u"&campaigns=c1"_s;
    QTest::newRow("mailbox") << Change([](auto* s) { s->setMailbox(u"m1"_s); }) << week + u"&mailboxes=m1"_s;
    QTest::newRow("tag") << Change([](auto* s) { s->setTag(u"a b"_s); }) << week + u"&tags=a b"_s;
  }
  void everyOtherQuestionIsAsked() {
    QFETCH(std::function<void(AnalyticsStore*)>, change);
    load();
    f->api.expect(summaryCall);
    change(store.get());
    QTEST(queryText(f->api.last()), "query");
    QVERIFY(store->summary()->refreshing());
    // The same once more asks nothing.
    change(store.get());
    store->setPreset(u"nonsense"_s);
    f->api.answer(summaryCall, summaryOf());

    f->api.expect(summaryCall);
    store->custom() || store->preset() == "mtd"_L1 ? store->setPreset(u"last4w"_s) : store->clearFilters();
    QCOMPARE(queryText(f->api.last()), u"from=2026-10-25&to=2026-11-21"_s);
    QVERIFY(!store->filtered());
  }

  void onlyTheLastQuestionIsAnswered() {
    f->api.expect(summaryCall);
    store->ensureLoaded();
    f->api.expect(summaryCall);
    store->setPreset(u"last7"_s);
    QCOMPARE(f->api.cancelled(), QStringList{summaryCall});
    QCOMPARE(f->api.waiting(), 1);
    f->api.answer(summaryCall, summaryOf());
    QCOMPARE(ids(store->campaignRows()), (QStringList{u"c1"_s, u"c2"_s}));
    QVERIFY(!store->summary()->refreshing());
  }

  void failures_data() {
    QTest::addColumn<std::function<void(FakeTransport&, QString)>>("fail");
    QTest::addColumn<ResourceBase::State>("first");
    QTest::addColumn<ResourceBase::State>("refreshed");
    QTest::addColumn<bool>("told");
    using Fail = std::function<void(FakeTransport&, QString)>;
    using State = ResourceBase::State;
    const auto transport = [](TransportFailure failure) {
      return Fail([failure](FakeTransport& api, const QString& call) { api.fail(call, failure); });
    };
    QTest::newRow("offline") << transport(TransportFailure::offline) << State::Offline << State::Offline << false;
    QTest::newRow("too late") << transport(TransportFailure::timedOut) << State::Error << State::Ready << true;
    QTest::newRow("refused") << Fail([](FakeTransport& api, const QString& call) {
      api.answer(call, R"({"title":"No","detail":"Not yours."})", 403);
    }) << State::Error << State::Ready
                             << true;
    QTest::newRow("not the record") << Fail([](FakeTransport& api, const QString& call) { api.answer(call, "{}"); })
                                    << State::Error << State::Ready << true;
  }
  void failures() {
    QFETCH(std::function<void(FakeTransport&, QString)>, fail);
    QFETCH(bool, told);
    f->api.expect(summaryCall);
    store->ensureLoaded();
    fail(f->api, summaryCall);
    QTEST(store->summary()->stateName(), "first");
    QVERIFY(!store->summary()->refreshing() && f->toasts.count() == 0);

    // A refresh that fails keeps what is shown.
    f->api.expect(summaryCall);
    store->refresh();
    f->api.answer(summaryCall, summaryOf());
    f->api.expect(summaryCall);
    store->refresh();
    fail(f->api, summaryCall);
    QTEST(store->summary()->stateName(), "refreshed");
    QCOMPARE(store->campaignRows()->count(), 2);
    QCOMPARE(lastToast(), told ? u"Couldn’t load analytics"_s : QString());

    // Another question that fails does not: the figures would stand under a filter that they do not answer.
    f->api.expect(summaryCall);
    store->setCampaign(u"c1"_s);
    fail(f->api, summaryCall);
    QTEST(store->summary()->stateName(), "first");
    QVERIFY(!store->summary()->hasContent() && !store->summary()->refreshing());
    f->toasts.clear();
    store->exportCsv();
    QCOMPARE(lastToast(), u"Nothing to export yet."_s);
    // Whoever comes back means to try again; an export that waits for it does not end without a word.
    f->api.expect(summaryCall);
    store->ensureLoaded();
    store->exportCsv();
    fail(f->api, summaryCall);
    QCOMPARE(lastToast(), u"Couldn’t save the file."_s);
    f->toasts.clear();
    f->api.expect(summaryCall);
    store->ensureLoaded();
    fail(f->api, summaryCall);
    QCOMPARE(f->toasts.count(), 0);
  }

  void rowsSayWhatTheyAre() {
    load();
    QCOMPARE(store->countText(), u"2 campaigns"_s);
    const auto* campaigns = store->campaignRows();
    QCOMPARE(cell(campaigns, 0, "statusLabel"), u"Running"_s);
    QCOMPARE(cell(campaigns, 0, "openedText") + u' ' + cell(campaigns, 0, "openedRate"), u"50 25%"_s);
    QCOMPARE(cell(campaigns, 0, "bouncedRate"), u"3.5%"_s);
    QCOMPARE(cell(campaigns, 0, "bouncesHigh"), u"true"_s);
    QCOMPARE(cell(campaigns, 0, "valueText"), u"$1,500"_s);
    QCOMPARE(cell(campaigns, 1, "statusLabel"), u"odd"_s);
    for (const auto* role : {"openedText", "clickedText", "valueText"}) QCOMPARE(cell(campaigns, 1, role), u"–"_s);
    QCOMPARE(cell(campaigns, 1, "openedRate") + cell(campaigns, 1, "repliedRate"), u"0%"_s);
    const auto* accounts = store->accountRows();
    // Clicks were tracked once, and are no longer.
    QCOMPARE(cell(campaigns, 0, "clickedText") + cell(campaigns, 0, "clickedRate"), u"–"_s);
    QCOMPARE(cell(accounts, 0, "clickedText") + cell(accounts, 0, "clickedRate"), u"–"_s);
    QCOMPARE(cell(accounts, 0, "healthLabel") + u' ' + cell(accounts, 0, "inboxText"), u"At risk 93%"_s);
    QCOMPARE(cell(accounts, 1, "healthLabel") + u' ' + cell(accounts, 1, "inboxText"), u"– –"_s);
    QCOMPARE(cell(accounts, 1, "statusLabel"), u"Paused"_s);
  }

  void tablesAreSortedEachByItsColumn_data() {
    QTest::addColumn<QString>("tab");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("firstIsHigh");
    QTest::addColumn<bool>("secondHasNone");
    for (const auto& key : {u"leads"_s, u"sent"_s, u"contacted"_s, u"bounced"_s, u"interested"_s, u"opportunities"_s})
      QTest::newRow(qPrintable(u"campaigns "_s + key)) << u"campaigns"_s << key << true << false;
    QTest::newRow("campaigns replied") << u"campaigns"_s << u"replied"_s << false << false;
    QTest::newRow("campaigns name") << u"campaigns"_s << u"name"_s << false << false;
    QTest::newRow("campaigns status") << u"campaigns"_s << u"status"_s << true << false;
    for (const auto& key : {u"opened"_s, u"clicked"_s, u"value"_s})
      QTest::newRow(qPrintable(u"campaigns "_s + key)) << u"campaigns"_s << key << true << true;
    for (const auto& key : {u"health"_s, u"inbox"_s})
      QTest::newRow(qPrintable(u"accounts "_s + key)) << u"accounts"_s << key << true << true;
    QTest::newRow("accounts address") << u"accounts"_s << u"address"_s << false << false;
    QTest::newRow("accounts bounced") << u"accounts"_s << u"bounced"_s << false << false;
  }
  void tablesAreSortedEachByItsColumn() {
    QFETCH(QString, tab);
    QFETCH(QString, key);
    QFETCH(bool, firstIsHigh);
    QFETCH(bool, secondHasNone);
    load();
    store->setTab(tab);
    const bool campaigns = tab == "campaigns"_L1;
    const auto shown = [&] { return campaigns ? ids(store->campaignRows()) : ids(store->accountRows()); };
    const QStringList served = shown(), turned{served[1], served[0]};
    store->sort(key, true);
    QVERIFY(store->sortDescending());
    QCOMPARE(shown(), firstIsHigh ? served : turned);
    store->sort(key, false);
    QCOMPARE(shown(), firstIsHigh && !secondHasNone ? turned : served);
    // A reload keeps the order; the other table has its own.
    f->api.expect(summaryCall);
    store->refresh();
    f->api.answer(summaryCall, summaryOf());
    QCOMPARE(shown(), firstIsHigh && !secondHasNone ? turned : served);
    store->setTab(campaigns ? u"accounts"_s : u"campaigns"_s);
    QCOMPARE(store->sortKey(), QString());
    store->setTab(tab);
    store->sort({}, true);
    QCOMPARE(store->sortKey(), QString());
    QCOMPARE(shown(), served);
  }

  void figuresAndFilters() {
    QVERIFY(store->figures().isEmpty() && store->sampleNote().isEmpty());
    load(summaryOf(R"(,"sample":true,"options":{"campaigns":[{"id":"c1","name":"Acme"},{"id":"c9"}],"tags":["q3"]})"));
    QCOMPARE(lines(store->figures()),
             (QStringList{u"Sent: 28,448, 3,912 new"_s, u"Opens: 9,957, 35%"_s, u"Clicks: –, Tracking off"_s,
                          u"Replies: 781, 2.7% · 64 auto"_s, u"Bounces: 372, 1.3%"_s,
                          u"Unsubscribes: 118, 0.6% of contacted"_s, u"Opportunities: 226, 28.9% of replies"_s,
                          u"Meetings: 58 booked, Meetings completed 41"_s}));
    QVERIFY(store->sampleNote().startsWith(u"Sample data: "_s));
    QCOMPARE(keys(store->campaignOptions()), (QStringList{{}, u"c1"_s, u"c9"_s}));
    QCOMPARE(store->campaignOptions()[2].label, u"c9"_s);
    QCOMPARE(keys(store->mailboxOptions()), QStringList{{}});
    QCOMPARE(keys(store->tagOptions()), (QStringList{{}, u"q3"_s}));
    f->api.expect(summaryCall);
    store->setTag(u"q3"_s);
    f->api.answer(summaryCall, summaryOf());
    QCOMPARE(keys(store->tagOptions()), (QStringList{{}, u"q3"_s}));
    QVERIFY(store->sampleNote().isEmpty());
    // What is chosen stays to be seen, under its name, where an answer no longer offers it.
    f->api.expect(summaryCall);
    store->setCampaign(u"c1"_s);
    f->api.answer(summaryCall, summaryOf(R"(,"options":{"campaigns":[{"id":"c9"}],"tags":[]})"));
    QCOMPARE(keys(store->campaignOptions()), (QStringList{{}, u"c9"_s, u"c1"_s}));
    QCOMPARE(store->campaignOptions()[2].label, u"Acme"_s);
    QCOMPARE(keys(store->tagOptions()), (QStringList{{}, u"q3"_s}));
    // Chosen no longer, it goes with the next answer.
    f->api.expect(summaryCall);
    store->clearFilters();
    f->api.answer(summaryCall, summaryOf());
    QCOMPARE(keys(store->campaignOptions()), (QStringList{{}, u"c9"_s}));
    QCOMPARE(keys(store->tagOptions()), QStringList{{}});
  }

  void whatIsDoneToACampaignIsReadAgain() {
    load(summaryOf());
    f->api.expect(summaryCall);
    f->context->changes().stale<Campaign>(u"c1"_s);
    store->ensureLoaded();
    f->api.answer(summaryCall, summaryOf());
  }

  void chartShowsWhatThereIs() {
    load(summaryOf({}, campaignRows,
                   R"({"day":"2026-11-19","sent":7,"opens":2,"clicks":1,"replies":1},)"
                   R"({"day":"2026-11-20","sent":0,"replies":0})"));
    QCOMPARE(store->days(), (QStringList{u"2026-11-19"_s, u"2026-11-20"_s}));
    const auto series = [this](int at) { return store->series()[at].toMap(); };
    QStringList names;
    for (int at = 0; at < store->series().size(); ++at) names.append(series(at)[u"key"_s].toString());
    QCOMPARE(names, (QStringList{u"sent"_s, u"opens"_s, u"replies"_s, u"clicks"_s}));
    QCOMPARE(series(1).value(u"label"_s).toString(), u"Unique opens"_s);
    QCOMPARE(series(0).value(u"values"_s).value<QList<double>>(), (QList<double>{7, 0}));
    const auto opens = series(1).value(u"values"_s).value<QList<double>>();
    QVERIFY(opens[0] == 2 && std::isnan(opens[1]));
    QVERIFY(std::isnan(series(3).value(u"values"_s).value<QList<double>>()[0]));
    QVERIFY(!series(3).value(u"available"_s).toBool() && !series(3).value(u"shown"_s).toBool());
    for (const bool shown : {false, true}) {
      store->toggleSeries(u"opens"_s);
      QCOMPARE(series(1).value(u"shown"_s).toBool(), shown);
      QVERIFY(series(0).value(u"shown"_s).toBool());
    }

    f->api.expect(summaryCall);
    store->refresh();
    f->api.answer(summaryCall, summaryOf({}, {}, R"({"day":"2026-11-20","sent":0,"replies":0})"));
    QVERIFY(store->days().isEmpty());
    QCOMPARE(store->campaignRows()->count(), 0);
  }

  void tablesAreSavedAsShown_data() {
    QTest::addColumn<QString>("tab");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("campaigns")
        << u"campaigns"_s << u"campaigns-2026-10-25-to-2026-11-21.csv"_s
        << "Campaign,Status,Leads,Contacted,Sent,Opened,Replied,Clicked,Bounced,Interested,Opportunities,Value\n"
           "\"beta\nnew\",odd,1,0,0,,9,,0,0,0,\n"
           "\"Acme, \"\"Q3\"\"\",running,100,90,200,50,5,,7,3,2,1500.00\n"_ba;
    QTest::newRow("accounts") << u"accounts"_s << u"accounts-2026-10-25-to-2026-11-21.csv"_s
                              << "Account,Status,Health,Inbox 7d %,Contacted,Sent,Opened,Replied,Clicked,Bounced,"
                                 "Interested\n"
                                 "Bo@a.example,paused,,,1,100,,8,,4,0\n"
                                 "ana@a.example,active,at_risk,93,90,200,50,5,,3,3\n"_ba;
  }
  void tablesAreSavedAsShown() {
    QFETCH(QString, tab);
    QFETCH(QString, file);
    QTemporaryDir folder;
    f->filePanel.folder = folder.path();
    load();
    store->setTab(tab);
    store->sort(u"replied"_s, true);
    // The rows on the screen are still of the range before.
    f->api.expect(summaryCall);
    store->setPreset(u"last7"_s);
    QCOMPARE(store->rangeText(), u"25 Oct – 21 Nov 2026"_s);
    store->exportCsv();
    QCOMPARE(f->filePanel.suggested, file);
    QTRY_VERIFY(!store->exporting());
    QCOMPARE(lastToast(), u"Saved "_s + file);
    QCOMPARE(f->toasts.toasts().last().actionLabel, u"Show in Finder"_s);
    QFile saved(folder.filePath(file));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QTEST(saved.readAll(), "bytes");
    f->api.answer(summaryCall, summaryOf());
    QCOMPARE(store->rangeText(), u"15 Nov – 21 Nov 2026"_s);
    store->exportCsv();
    QVERIFY(f->filePanel.suggested.contains(u"2026-11-15-to-2026-11-21"_s));
    QTRY_VERIFY(!store->exporting());
  }

  void exportsEndHoweverTheyEnd() {
    QTemporaryDir folder;
    store->exportCsv();
    QCOMPARE(lastToast(), u"Nothing to export yet."_s);
    load();
    f->toasts.clear();
    store->exportCsv();
    QVERIFY2(f->toasts.count() == 0 && !store->exporting(), "the person cancelled the panel");
    f->filePanel.folder = folder.filePath(u"missing"_s);
    store->exportCsv();
    QTRY_VERIFY(!store->exporting());
    QCOMPARE(lastToast(), u"Couldn’t save the file."_s);

    f->filePanel.folder = folder.path();
    f->filePanel.asksBeforeReplacing = false;
    store->exportCsv();
    QTRY_VERIFY(!store->exporting());
    store->exportCsv();
    QVERIFY(store->exporting() && f->overlays.asking());
    f->filePanel.suggested.clear();
    store->exportCsv();
    QVERIFY2(f->filePanel.suggested.isEmpty(), "one at a time");
    f->overlays.answer(f->overlays.token(), true);
    QTRY_VERIFY(!store->exporting());
    f->toasts.clear();
    store->exportCsv();
    QVERIFY(store->exporting());
    store->close();
    QVERIFY(!store->exporting());
    QVERIFY2(f->overlays.asking(), "a save goes on when its page is gone");
    f->overlays.answer(f->overlays.token(), true);
    QTRY_VERIFY(f->toasts.count() > 0);
    QCOMPARE(lastToast(), u"Saved campaigns-2026-10-25-to-2026-11-21.csv"_s);
  }
};

QTEST_GUILESS_MAIN(AnalyticsTest)
#include "analytics_test.moc"
