#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/campaigns/CampaignStore.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto get = u"GET /campaigns/c1"_s;
const auto listed = u"GET /campaigns/c1/subsequences"_s;
const auto labels = u"GET /reply-labels"_s;
const auto created = u"POST /campaigns/c1/subsequences"_s;
const QByteArray someLabels =
    R"({"items":[{"key":"interested","name":"Interested","shade":4},{"key":"later"},{"key":"unsubscribe"}]})";

}  // namespace

class SubsequencesTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<CampaignStore> store;
  Subsequences* page = nullptr;

  void load() {
    f->api.expect(listed);
    f->api.expect(labels);
    page->ensureLoaded();
    f->api.answer(labels, someLabels);
    f->api.answer(listed, R"({"items":[{"id":"c2","name":"Warm","status":"draft","sent":1204,)"
                          R"("trigger":{"labels":["interested","gone"]}}]})");
  }
  void beginCreate(const QByteArray& known = someLabels) {
    f->api.expect(labels);
    page->beginCreate();
    f->api.answer(labels, known);
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    store = std::make_unique<CampaignStore>(u"c1"_s, *f->context);
    page = store->subsequences();
    page->list()->appear();
    f->api.expect(get);
    store->ensureLoaded();
    f->api.answer(get, R"({"id":"c1","name":"Acme Q3","status":"running","version":7})");
    f->navigator.openItem(Page::campaigns, u"c1"_s);
  }
  void cleanup() {
    store.reset();
    f.reset();
  }

  void theTableSaysWhatStartsThem() {
    QAbstractItemModelTester tester(page->rows(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    load();
    const SubsequenceRow row = page->rows()->records().at(0);
    QCOMPARE(row.trigger, u"Starts when a reply is labelled Interested, gone"_s);
    QCOMPARE(row.statusLabel, u"Draft"_s);
    QCOMPARE(row.sent, u"1,204"_s);
    QCOMPARE(row.leads, u"–"_s);
    QCOMPARE(store->tabs().value(3).count, 1);
  }

  void anIncompleteFormSendsNothing() {
    load();
    beginCreate();
    const auto before = f->api.sent().size();
    for (const Choice& label : page->labels()) QVERIFY(label.key != "unsubscribe"_L1);
    QCOMPARE(page->labels().size(), 2);
    page->create();
    const auto problem = [this](const QString& field) { return page->draft()->problems().value(field).toString(); };
    QCOMPARE(problem(u"name"_s), u"Give the subsequence a name"_s);
    QCOMPARE(problem(u"labels"_s), u"Pick at least one label"_s);
    page->draft()->set(u"name"_s, u"Warm"_s);
    page->toggleLabel(u"unsubscribe"_s);
    page->create();
    QCOMPARE(problem(u"name"_s), QString());
    QCOMPARE(problem(u"labels"_s), u"Pick at least one label"_s);
    QCOMPARE(f->api.sent().size(), before);
    QVERIFY(page->explanation().startsWith(u"It starts with Acme Q3’s inboxes, schedule and options, and one"_s));
  }

  void aNewOneIsOpened_data() {
    QTest::addColumn<bool>("leaves");
    QTest::newRow("who waits is taken there") << false;
    QTest::newRow("who has left is not") << true;
  }
  void aNewOneIsOpened() {
    QFETCH(bool, leaves);
    load();
    beginCreate();
    page->draft()->set(u"name"_s, u" Warm "_s);
    page->toggleLabel(u"later"_s);
    page->toggleLabel(u"interested"_s);
    page->toggleLabel(u"later"_s);
    f->api.expect(created);
    page->create();
    page->create();
    QVERIFY(page->form()->busy());
    QCOMPARE(
        QJsonDocument::fromJson(*f->api.last().request.body).object(),
        (QJsonObject{{u"name"_s, u"Warm"_s}, {u"trigger"_s, QJsonObject{{u"labels"_s, QJsonArray{u"interested"_s}}}}}));
    if (leaves) f->navigator.openItem(Page::campaigns, u"c9"_s);
    f->api.expect(listed);
    f->api.answer(created, R"({"id":"c3","name":"Warm","status":"draft"})");
    QVERIFY(!page->form()->shown() && !page->draft()->dirty());
    QCOMPARE(f->navigator.openedItem(Page::campaigns), leaves ? u"c9"_s : u"c3"_s);
    f->api.answer(listed, R"({"items":[]})");
  }

  void aRefusalLeavesTheFormOpen() {
    load();
    beginCreate();
    page->draft()->set(u"name"_s, u"Warm"_s);
    page->toggleLabel(u"later"_s);
    f->api.expect(created);
    page->create();
    f->api.answer(created, R"({"title":"No","detail":"Not now."})", 422);
    QVERIFY(page->form()->shown() && !page->form()->busy());
    QCOMPARE(page->draft()->typed().name, u"Warm"_s);
    QVERIFY(page->form()->error().contains(u"Not now."_s));
    QCOMPARE(f->toasts.count(), 0);
  }

  void aFormClosedWhileItWaitsEndsWithAToast_data() {
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("taken") << true;
    QTest::newRow("refused") << false;
  }
  void aFormClosedWhileItWaitsEndsWithAToast() {
    QFETCH(bool, isTaken);
    load();
    beginCreate();
    page->draft()->set(u"name"_s, u"Warm"_s);
    page->toggleLabel(u"later"_s);
    f->api.expect(created);
    page->create();
    page->form()->cancel();
    QCOMPARE(f->api.waiting(), 1);
    if (isTaken) f->api.expect(listed);
    isTaken ? f->api.answer(created, R"({"id":"c3","name":"Warm","status":"draft"})")
            : f->api.answer(created, R"({"title":"No","detail":"Not now."})", 422);
    QCOMPARE(f->toasts.toasts().last().message, isTaken ? u"Warm created"_s : u"Couldn’t create the subsequence."_s);
    QCOMPARE(f->navigator.openedItem(Page::campaigns), u"c1"_s);
    if (isTaken) f->api.answer(listed, R"({"items":[]})");
  }

  void oneThatIsBroughtBackIsReadAgain() {
    load();
    Changes& changes = f->context->changes();
    changes.gone<Campaign>(u"c2"_s, changes.stamp());
    QCOMPARE(page->count(), 0);
    Campaign restored;
    restored.id = u"c2"_s;
    restored.parent = Campaign::Parent{.id = u"c8"_s, .number = {}, .name = u"Other"_s};
    changes.publish(restored, changes.stamp(), true);
    restored.parent->id = u"c1"_s;
    f->api.expect(listed);
    changes.publish(restored, changes.stamp(), true);
    f->api.answer(listed, R"({"items":[{"id":"c2","name":"Warm","status":"draft"}]})");
    QCOMPARE(page->count(), 1);
  }

  void labelsAreReadAgain() {
    load();
    f->api.expect(labels);
    page->ensureLoaded();
    f->api.answer(labels, R"({"title":"Down","detail":"For an hour."})", 409);
    QCOMPARE(f->toasts.toasts().last().message, u"Couldn’t load the labels"_s);
    QCOMPARE(page->labels().size(), 2);
    beginCreate(R"({"items":[{"key":"new"}]})");
    QCOMPARE(page->labels().size(), 1);
  }
};

QTEST_GUILESS_MAIN(SubsequencesTest)
#include "subsequences_test.moc"
