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
    QCOMPARE(store->tabs().value(3).toMap().value(u"count"_s).toInt(), 1);
  }

  void anIncompleteFormSendsNothing() {
    load();
    const auto before = f->api.sent().size();
    page->beginCreate();
    for (const QVariant& label : page->labels()) QVERIFY(label.toMap().value(u"key"_s).toString() != "unsubscribe"_L1);
    QCOMPARE(page->labels().size(), 2);
    page->create();
    QCOMPARE(page->nameError(), u"Give the subsequence a name"_s);
    QCOMPARE(page->labelsError(), u"Pick at least one label"_s);
    page->setName(u"Warm"_s);
    page->toggleLabel(u"unsubscribe"_s);
    page->create();
    QCOMPARE(page->nameError(), QString());
    QCOMPARE(page->labelsError(), u"Pick at least one label"_s);
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
    page->beginCreate();
    page->setName(u" Warm "_s);
    page->toggleLabel(u"later"_s);
    page->toggleLabel(u"interested"_s);
    page->toggleLabel(u"later"_s);
    f->api.expect(created);
    page->create();
    page->create();
    QVERIFY(page->creating());
    QCOMPARE(
        QJsonDocument::fromJson(*f->api.last().request.body).object(),
        (QJsonObject{{u"name"_s, u"Warm"_s}, {u"trigger"_s, QJsonObject{{u"labels"_s, QJsonArray{u"interested"_s}}}}}));
    if (leaves) f->navigator.openItem(Page::campaigns, u"c9"_s);
    f->api.expect(listed);
    f->api.answer(created, R"({"id":"c3","name":"Warm","status":"draft"})");
    QVERIFY(!page->formShown());
    QCOMPARE(f->navigator.openedItem(Page::campaigns), leaves ? u"c9"_s : u"c3"_s);
    f->api.answer(listed, R"({"items":[]})");
  }

  void aRefusalLeavesTheFormOpen() {
    load();
    page->beginCreate();
    page->setName(u"Warm"_s);
    page->toggleLabel(u"later"_s);
    f->api.expect(created);
    page->create();
    f->api.answer(created, R"({"title":"No","detail":"Not now."})", 422);
    QVERIFY(page->formShown());
    QVERIFY(!page->creating());
    QCOMPARE(page->name(), u"Warm"_s);
    QCOMPARE(f->toasts.toasts().last().message, u"Couldn’t create the subsequence."_s);
  }
};

QTEST_GUILESS_MAIN(SubsequencesTest)
#include "subsequences_test.moc"
