#include <QAbstractItemModelTester>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>
#include <ctime>

#include "app/analytics/AnalyticsStore.h"
#include "app/analytics/DashboardStore.h"
#include "app/figures/AnalyticsCsv.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto summaryCall = u"GET /analytics/summary"_s, overviewCall = u"GET /analytics/overview"_s;

const QByteArray totals =
    R"({"sent":28448,"contacted":20000,"newContacted":3912,"opens":9957,"clicks":9,"replies":781,"autoReplies":64,)"
    R"("bounces":372,"unsubscribes":118,"opportunities":226,"opportunityValue":1500,"interested":226,)"
    R"("meetingsBooked":58,"meetingsCompleted":41,"won":1})";

// Escaped quotes in raw strings lead the meta-object compiler astray; hence the code points.
const QByteArray campaignRows =
    R"({"id":"c1","name":"Acme, \u0022Q3\u0022","status":"running","leads":100,"sent":200,"contacted":90,"opens":50,)"
    R"("clicks":4,"replies":5,"bounces":7,"interested":3,"opportunities":2,"opportunityValue":1500},)"
    R"({"id":"c2","name":"beta\nnew","status":"odd","leads":1,"sent":0,"contacted":0,"replies":9,"bounces":0,)"
    R"("interested":0,"opportunities":0})";

const QByteArray accountRows =
    R"({"id":"m1","address":"ana@a.example","status":"active","health":"at_risk","inboxPct7d":93,"sent":200,)"
    R"("contacted":90,"opens":50,"clicks":4,"replies":5,"bounces":3,"interested":3},)"
    R"({"id":"m2","address":"Bo@a.example","status":"paused","sent":100,"contacted":1,"replies":8,"bounces":4,)"
    R"("interested":0})";

QByteArray summaryOf(const QByteArray& more = {}, const QByteArray& campaigns = campaignRows,
                     const QByteArray& days = R"({"day":"2026-11-20","sent":7,"opens":2,"replies":1})") {
  return R"({"from":"x","to":"x","timeZone":"Europe/Berlin","tracking":{"opens":true,"clicks":false},"totals":)" +
         totals + R"(,"days":[)" + days + R"(],"campaigns":[)" + campaigns + R"(],"accounts":[)" + accountRows + "]" +
         more + "}";
}

QByteArray overviewOf(const QByteArray& combined) {
  return R"({"scope":"this","from":"x","to":"x","day":"2026-11-20","timeZone":"America/New_York","workspaces":[],)"
         R"("combined":{)" +
         combined + "}}";
}

QByteArray todayOf(const QByteArray& more) {
  return R"("today":{"sendsWarmup":412,"sendsCampaigns":1206,"replies":37,"leads":26908,)" + more + "}";
}

/// A line a figure: "title: value unit, detail, warning".
QStringList lines(const QList<Figure>& figures) {
  QStringList lines;
  for (const Figure& figure : figures) {
    QString line = figure.title + u": "_s + figure.value;
    if (!figure.unit.isEmpty()) line += u' ' + figure.unit;
    for (const QString& more : {figure.detail, figure.warning})
      if (!more.isEmpty()) line += u", "_s + more;
    lines.append(line);
  }
  return lines;
}

QStringList keys(const QList<Choice>& choices) {
  QStringList keys;
  for (const Choice& choice : choices) keys.append(choice.key);
  return keys;
}

QString queryText(const APICall& call) {
  QStringList items;
  for (const auto& [name, value] : call.request.query) items.append(name + u'=' + value.value_or(QString()));
  return items.join(u'&');
}

/// Local time of another place while it lives.
struct Place {
  QByteArray before = qgetenv("TZ");
  explicit Place(const char* zone) {
    qputenv("TZ", zone);
    tzset();
  }
  ~Place() {
    before.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", before);
    tzset();
  }
};

}  // namespace

class AnalyticsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<AnalyticsStore> store;
  std::unique_ptr<DashboardStore> dashboard;

  void load(const QByteArray& answer = summaryOf()) {
    f->api.expect(summaryCall);
    store->ensureLoaded();
    f->api.answer(summaryCall, answer);
  }
  void loadDashboard(const QByteArray& combined) {
    f->api.expect(overviewCall);
    dashboard->ensureLoaded();
    f->api.answer(overviewCall, overviewOf(combined));
  }
  template <class Rows>
  static QStringList ids(const Rows* rows) {
    QStringList ids;
    for (const auto& record : rows->records()) ids.append(record.id);
    return ids;
  }
  template <class Rows>
  static QString cell(const Rows* rows, int row, const QByteArray& role) {
    return rows->index(row).data(rows->roleNames().key(role)).toString();
  }
  QString lastToast() const { return f->toasts.count() ? f->toasts.toasts().last().message : QString(); }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    store = std::make_unique<AnalyticsStore>(*f->context);
    dashboard = std::make_unique<DashboardStore>(*f->context);
    for (ListModel* rows : QList<ListModel*>{store->campaignRows(), store->accountRows()})
      new QAbstractItemModelTester(rows, QAbstractItemModelTester::FailureReportingMode::Fatal, store.get());
  }
  void cleanup() {
    store.reset();
    dashboard.reset();
    f.reset();
  }

  void presetsAreDays_data() {
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("from");
    QTest::newRow("a week") << u"last7"_s << QDate(2026, 3, 2) << QDate(2026, 2, 24);
    QTest::newRow("a week over a leap day") << u"last7"_s << QDate(2028, 3, 2) << QDate(2028, 2, 25);
    QTest::newRow("four weeks over a new year") << u"last4w"_s << QDate(2027, 1, 10) << QDate(2026, 12, 14);
    QTest::newRow("three months, shorter then") << u"last3m"_s << QDate(2026, 5, 31) << QDate(2026, 2, 28);
    QTest::newRow("three months, leap year") << u"last3m"_s << QDate(2028, 5, 31) << QDate(2028, 2, 29);
    QTest::newRow("three months over a new year") << u"last3m"_s << QDate(2026, 2, 15) << QDate(2025, 11, 15);
    QTest::newRow("a year from a leap day") << u"last12m"_s << QDate(2028, 2, 29) << QDate(2027, 2, 28);
    QTest::newRow("month on its first") << u"mtd"_s << QDate(2026, 12, 1) << QDate(2026, 12, 1);
    QTest::newRow("month on its last") << u"mtd"_s << QDate(2028, 2, 29) << QDate(2028, 2, 1);
    QTest::newRow("quarter on its first") << u"qtd"_s << QDate(2026, 10, 1) << QDate(2026, 10, 1);
    QTest::newRow("quarter on its last") << u"qtd"_s << QDate(2026, 9, 30) << QDate(2026, 7, 1);
    QTest::newRow("year on its last") << u"ytd"_s << QDate(2026, 12, 31) << QDate(2026, 1, 1);
  }
  void presetsAreDays() {
    QFETCH(QString, preset);
    QFETCH(QDate, today);
    QFETCH(QDate, from);
    RangeChoice range(today);
    range.setPreset(preset, today);
    QCOMPARE(range.days().from, from);
    QCOMPARE(range.days().to, today);
  }

  void presetsInTheirOrder() {
    QStringList labels;
    for (const Choice& preset : rangePresets()) labels.append(preset.label);
    QCOMPARE(labels, (QStringList{u"Last 7 days"_s, u"Last 4 weeks"_s, u"Last 3 months"_s, u"Month to date"_s,
                                  u"Quarter to date"_s, u"Year to date"_s, u"Last 12 months"_s}));
    QCOMPARE(store->preset(), u"last4w"_s);
    QCOMPARE(store->rangeText(), u"25 Oct – 21 Nov 2026"_s);
    QVERIFY(store->setCustomRange(u"2026-01-05"_s, u"2025-12-31"_s));
    QCOMPARE(store->rangeText(), u"31 Dec 2025 – 5 Jan 2026"_s);
    QCOMPARE(store->rangeLabel(), u"Custom range"_s);
    for (const auto& bad : {u"2026-02-29"_s, u"2026-03-02T00:00"_s, u"2026-03-02x"_s, u"2026/03/02"_s, u"26-03-02"_s})
      QVERIFY2(!store->setCustomRange(bad, u"2026-03-01"_s) && !store->setCustomRange(u"2026-03-01"_s, bad),
               qPrintable(bad));
    QCOMPARE(store->from(), u"2025-12-31"_s);
  }

  void aRangeOfOnesOwnIsAskedFor() {
    const auto labelOfCustom = [this] { return store->ranges().last().label; };
    load();
    RangeForm* form = store->rangeForm();
    QCOMPARE(labelOfCustom(), u"Custom range…"_s);
    store->chooseRange(u"custom"_s);
    QVERIFY(form->shown() && store->range() == "last4w"_L1);
    QCOMPARE(form->from() + u' ' + form->to(), u"2026-10-25 2026-11-21"_s);
    for (const auto& bad : {u""_s, u"31.12.2026"_s, u"2026-02-29"_s}) {
      form->setTo(bad);
      QCOMPARE(form->error(), QString());
      form->submit();
      QCOMPARE(form->error(), u"Enter both dates as year, month and day, such as 2026-03-31."_s);
      QVERIFY(form->shown());
    }
    form->setTo(u" 2026-10-01 "_s);
    f->api.expect(summaryCall);
    form->submit();
    QVERIFY(!form->shown());
    QCOMPARE(queryText(f->api.last()), u"from=2026-10-01&to=2026-10-25"_s);
    QCOMPARE(store->range() + u' ' + labelOfCustom(), u"custom Custom range"_s);
    f->api.answer(summaryCall, summaryOf());
    // The dates that are in force already ask nothing.
    store->chooseRange(u"custom"_s);
    form->submit();
    QVERIFY(!form->shown());
    f->api.expect(summaryCall);
    store->chooseRange(u"last4w"_s);
    QCOMPARE(labelOfCustom(), u"Custom range…"_s);
  }

  /// A day is 23 or 25 hours long when the clocks change.
  void daysAreTheUsersOwn_data() {
    QTest::addColumn<QDateTime>("instant");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    const auto at = [](const QDate& day, const QTime& time) { return QDateTime(day, time, Qt::UTC); };
    QTest::newRow("before midnight in winter") << at({2027, 3, 27}, {22, 59, 59}) << u"2027-03-21"_s << u"2027-03-27"_s;
    QTest::newRow("midnight in winter") << at({2027, 3, 27}, {23, 0}) << u"2027-03-22"_s << u"2027-03-28"_s;
    QTest::newRow("midnight in summer") << at({2027, 3, 28}, {22, 0}) << u"2027-03-23"_s << u"2027-03-29"_s;
    QTest::newRow("the second of the doubled hours")
        << at({2027, 10, 31}, {1, 30}) << u"2027-10-25"_s << u"2027-10-31"_s;
    QTest::newRow("end of the long day") << at({2027, 10, 31}, {22, 59, 59}) << u"2027-10-25"_s << u"2027-10-31"_s;
  }
  void daysAreTheUsersOwn() {
    QFETCH(QDateTime, instant);
    const Place berlin("Europe/Berlin");
    f->clock.advance(std::chrono::milliseconds(f->clock.now().msecsTo(instant)));
    store->setPreset(u"last7"_s);
    QTEST(store->from(), "from");
    QTEST(store->to(), "to");
  }

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
    QCOMPARE(lastToast(), u"Saved "_s + file);
    QCOMPARE(f->toasts.toasts().last().actionLabel, u"Show in Finder"_s);
    QFile saved(folder.filePath(file));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QTEST(saved.readAll(), "bytes");
    QVERIFY(!store->exporting());
    f->api.answer(summaryCall, summaryOf());
    QCOMPARE(store->rangeText(), u"15 Nov – 21 Nov 2026"_s);
    store->exportCsv();
    QVERIFY(f->filePanel.suggested.contains(u"2026-11-15-to-2026-11-21"_s));
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
    QCOMPARE(lastToast(), u"Couldn’t save the file."_s);
    QVERIFY(!store->exporting());

    f->filePanel.folder = folder.path();
    f->filePanel.asksBeforeReplacing = false;
    store->exportCsv();
    store->exportCsv();
    QVERIFY(store->exporting() && f->overlays.asking());
    f->filePanel.suggested.clear();
    store->exportCsv();
    QVERIFY2(f->filePanel.suggested.isEmpty(), "one at a time");
    f->overlays.answer(f->overlays.token(), true);
    QVERIFY(!store->exporting());
    store->exportCsv();
    QVERIFY(store->exporting());
    store->close();
    QVERIFY(!store->exporting());
    QVERIFY2(f->overlays.asking(), "a save goes on when its page is gone");
    f->overlays.answer(f->overlays.token(), true);
    QCOMPARE(lastToast(), u"Saved campaigns-2026-10-25-to-2026-11-21.csv"_s);
  }

  void pastMidnightAPresetGoesAlong() {
    load();
    f->clock.advance(24h);
    f->api.expect(summaryCall);
    store->refresh();
    QCOMPARE(queryText(f->api.last()), u"from=2026-10-26&to=2026-11-22"_s);
    f->api.fail(summaryCall, TransportFailure::timedOut);
    QCOMPARE(store->summary()->stateName(), ResourceBase::State::Error);
  }

  void dashboardSaysHowTodayGoes_data() {
    QTest::addColumn<QByteArray>("today");
    QTest::addColumn<QStringList>("said");
    const auto sent = u"Sent today: 1,618, 1,206 campaign · 412 ramp-up"_s, replies = u"Replies today: 37"_s;
    QTest::newRow("some not active") << todayOf(R"("mailboxes":48,"active":42,"ready":41,"lists":14)")
                                     << QStringList{
                                            sent, replies,
                                            u"Inbox health: 42 mailboxes active, 41 ready to send, 6 not active"_s,
                                            u"Leads: 26,908, 14 lists"_s};
    QTest::newRow("all active, one list")
        << todayOf(R"("mailboxes":2,"active":2,"ready":1,"lists":1)")
        << QStringList{sent, replies, u"Inbox health: 2 mailboxes active, 1 ready to send · 0 not active"_s,
                       u"Leads: 26,908, 1 list"_s};
    QTest::newRow("readiness unknown, no list")
        << todayOf(R"("mailboxes":1,"active":0,"lists":0)")
        << QStringList{sent, replies, u"Inbox health: 0 mailboxes active, 1 not active"_s, u"Leads: 26,908, 0 lists"_s};
  }
  void dashboardSaysHowTodayGoes() {
    QFETCH(QByteArray, today);
    loadDashboard(today);
    QTEST(lines(dashboard->today()), "said");
    QVERIFY(dashboard->metrics().isEmpty() && dashboard->days().isEmpty());
    QCOMPARE(dashboard->dayText(), u"Friday 20 November · New York time"_s);
  }

  void dashboardFollowsItsRange() {
    loadDashboard(R"("metrics":)" + QByteArray(totals).replace(R"("clicks":9,)", "") +
                  R"(,"metricDays":[{"day":"2026-11-20","sent":7,"opens":2,"replies":1}])");
    QVERIFY(dashboard->today().isEmpty());
    QCOMPARE(lines(dashboard->metrics()).mid(1, 2),
             (QStringList{u"Opens: 9,957, 35%"_s, u"Clicks: –, Tracking off"_s}));
    QCOMPARE(dashboard->days(), QStringList{u"2026-11-20"_s});
    QVERIFY(!dashboard->series().last().toMap().value(u"available"_s).toBool());
    dashboard->toggleSeries(u"sent"_s);
    QVERIFY(!dashboard->series().first().toMap().value(u"shown"_s).toBool());

    f->api.expect(overviewCall);
    dashboard->refresh();
    f->api.answer(overviewCall, "[]");
    QCOMPARE(lastToast(), u"Couldn’t load the dashboard"_s);
    QVERIFY(dashboard->overview()->hasContent());

    f->api.expect(overviewCall);
    dashboard->setPreset(u"ytd"_s);
    dashboard->setPreset(u"ytd"_s);
    QCOMPARE(queryText(f->api.last()), u"scope=this&from=2026-01-01&to=2026-11-21"_s);
    f->api.expect(overviewCall);
    dashboard->setPreset(u"last7"_s);
    QCOMPARE(f->api.cancelled(), QStringList{overviewCall});
    f->api.fail(overviewCall, TransportFailure::offline);
    QVERIFY(!dashboard->overview()->hasContent());
    dashboard->openAnalytics();
    QCOMPARE(f->navigator.page, Page::analytics);
  }
};

QTEST_GUILESS_MAIN(AnalyticsTest)
#include "analytics_test.moc"
