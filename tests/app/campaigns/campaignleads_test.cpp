#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/campaigns/CampaignLeads.h"
#include "tests/app/campaigns/CampaignFixture.h"
#include "tests/support/await.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto get = u"GET /campaigns/c1/leads"_s;
const auto add = u"POST /campaigns/c1/leads"_s;
const auto bulk = u"POST /campaigns/c1/leads/bulk"_s;
const auto restore = u"POST /campaigns/c1/leads/restore"_s;
const QByteArray refusal = R"({"title":"Not now","detail":"It is being checked."})";

/// A lead "l7" is "p7@x.example" of "Company 7".
QByteArray lead(int number, const QByteArray& status = "active", const QByteArray& more = {}) {
  const QByteArray n = QByteArray::number(number);
  return R"({"id":"l)" + n + R"(","email":"p)" + n + R"(@x.example","company":"Company )" + n + R"(","status":")" +
         status + R"(")" + more + "}";
}

QByteArray page(const QList<int>& numbers, const QByteArray& next = {}, const QByteArray& status = "active") {
  QByteArrayList items;
  for (const int number : numbers) items.append(lead(number, status));
  return R"({"items":[)" + items.join(',') + "]" + (next.isEmpty() ? "" : R"(,"nextCursor":")" + next + R"(")") +
         R"(,"counts":{"active":9,"replied":2},"archivedCount":3})";
}

QByteArray detailOf(const QByteArray& one) {
  return R"({"lead":)" + one + R"(,"steps":4,"next":{"step":2},)" +
         R"("activity":[{"kind":"sent","at":"","step":1,"variant":"A"}]})";
}

QByteArray campaigns(const QList<std::pair<QByteArray, QByteArray>>& named) {
  QByteArrayList items;
  for (const auto& [id, name] : named)
    items.append(R"({"id":")" + id + R"(","name":")" + name + R"(","status":"draft","senders":0,"steps":0,"leads":1,)" +
                 R"("sent":0,"replied":0,"positive":0,"bounced":0,"createdAt":""})");
  return R"({"items":[)" + items.join(',') + "]}";
}

}  // namespace

class CampaignLeadsTest : public QObject {
  Q_OBJECT

  struct Life : CampaignFixture {
    CampaignLeads store{context};
    QAbstractItemModelTester tester{store.rows(), QAbstractItemModelTester::FailureReportingMode::QtTest};
  };
  std::unique_ptr<Life> life;
  AppFixture* f = nullptr;
  CampaignLeads* store = nullptr;

  void load(const QByteArray& answer) {
    f->api.expect(get);
    store->ensureLoaded();
    f->api.answer(get, answer);
  }
  void more(const QByteArray& answer) {
    f->api.expect(get);
    store->leads()->loadMore();
    f->api.answer(get, answer);
  }
  QStringList shown() const {
    QStringList ids;
    for (const LeadRow& row : store->rows()->records()) ids.append(row.id);
    return ids;
  }
  QStringList ticked() const {
    QStringList ids = store->selection()->ids();
    ids.sort();
    return ids;
  }
  QString asked(const QString& item) const {
    for (const QueryItem& given : f->api.last().request.query)
      if (given.name == item) return given.value.value_or(QString());
    return {};
  }
  QJsonObject body() const { return QJsonDocument::fromJson(*f->api.last().request.body).object(); }
  QString toast() const { return f->toasts.count() ? f->toasts.toasts().last().message : QString(); }

 private Q_SLOTS:
  void init() {
    life = std::make_unique<Life>();
    f = &life->f;
    store = &life->store;
    f->navigator.openItem(Page::campaigns, u"c1"_s);
  }
  void cleanup() { life.reset(); }

  void pagesFollowTheCursor() {
    load(page({1, 2}, "a+b="));
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l2"_s}));
    QCOMPARE(store->countText(), u"2 of 11 leads"_s);
    QCOMPARE(asked(u"limit"_s), u"200"_s);
    f->api.expect(get);
    store->leads()->loadMore();
    store->leads()->loadMore();
    QCOMPARE(asked(u"cursor"_s), u"a+b="_s);
    QVERIFY(store->leads()->loadingMore());
    f->api.answer(get, refusal, 500);
    QVERIFY(store->leads()->moreFailed() && !store->leads()->loadingMore() && shown().size() == 2);
    QCOMPARE(f->toasts.count(), 0);

    // A lead that moved between two pages comes twice and is there once.
    more(page({2, 3}));
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l2"_s, u"l3"_s}));
    QVERIFY(!store->leads()->canLoadMore() && !store->leads()->moreFailed());
    QCOMPARE(store->countText(), u"3 leads"_s);
    store->leads()->loadMore();
  }

  void aLatePageOfAnotherQuestionIsNobodys() {
    load(page({1, 2}, "n"));
    f->api.expect(get);
    store->leads()->loadMore();
    f->api.expect(get);
    store->selection()->toggle(u"l1"_s);
    store->setLeadStatus(u"replied"_s);
    QCOMPARE(f->api.cancelled(), QStringList{get});
    QVERIFY(!store->leads()->loadingMore() && ticked().isEmpty());
    QCOMPARE(asked(u"status"_s), u"replied"_s);
    QCOMPARE(asked(u"cursor"_s), QString());
    store->leads()->loadMore();
    f->api.expect(get);
    store->setLeadsArchived(true);
    QCOMPARE(asked(u"archived"_s), u"1"_s);
    QCOMPARE(asked(u"status"_s), QString());
    f->api.answer(get, page({7}));
    QCOMPARE(shown(), QStringList{u"l7"_s});
  }

  void aReadingOfWhatIsSeenKeepsTheRestAndItsTicks() {
    load(page({1, 2}, "a"));
    more(page({3, 4}, "b"));
    store->selection()->toggle(u"l2"_s);
    store->selection()->toggle(u"l4"_s);
    f->api.expect(get);
    store->refresh();
    f->api.answer(get, page({1, 9}, "a", "paused"));
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l9"_s, u"l3"_s, u"l4"_s}));
    QCOMPARE(store->rows()->records().front().record().status.rawValue, u"paused"_s);
    QCOMPARE(ticked(), QStringList{u"l4"_s});
    QVERIFY(store->leads()->canLoadMore());
    store->leads()->appear();
    f->api.expect(get);
    store->leads()->see(1, 3);
    QCOMPARE(asked(u"cursor"_s), u"a"_s);
    f->api.answer(get, page({4, 5}, "c"));
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l9"_s, u"l4"_s, u"l5"_s}));

    f->api.expect(get);
    store->refresh();
    f->api.answer(get, refusal, 500);
    QCOMPARE(shown().size(), 4);
    QCOMPARE(toast(), u"Couldn’t load the leads"_s);
  }

  void whatLeavesWhileTheListIsReadAgainStaysOut() {
    load(page({1, 2, 3}));
    f->api.expect(u"DELETE /campaigns/c1/leads/l3"_s);
    store->remove({u"l3"_s});
    f->api.expect(get);
    store->refresh();
    f->api.expect(get);
    f->api.answer(u"DELETE /campaigns/c1/leads/l3"_s, {}, 204);
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l2"_s}));
    QCOMPARE(f->api.cancelled(), QStringList{get});
    f->api.answer(get, page({1, 2}));
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l2"_s}));
  }

  void theSearchIsLocalAndReadsOnWhileItFindsLittle() {
    load(page({1, 2, 12}, "n"));
    f->api.expect(get);
    store->setLeadQuery(u" COMPANY 1"_s);
    store->setLeadQuery(u" P1"_s);
    f->clock.advance(200ms);
    QCOMPARE(shown().size(), 3);
    f->clock.advance(60ms);
    settle();
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l12"_s}));
    QCOMPARE(store->countText(), u"2 of 3 leads read so far"_s);
    f->api.answer(get, page({3, 13}));
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l12"_s, u"l13"_s}));
    QCOMPARE(store->countText(), u"3 of 5 leads"_s);
    store->selection()->toggleAll();
    store->showAll();
    QCOMPARE(shown().size(), 5);
    QCOMPARE(ticked(), (QStringList{u"l1"_s, u"l12"_s, u"l13"_s}));
  }

  void ticksReachOverRanges() {
    load(page({1, 2, 3, 4, 5}));
    store->selection()->toggle(u"l2"_s);
    store->selection()->extendTo(u"l5"_s, u"l4"_s);
    QCOMPARE(ticked(), (QStringList{u"l2"_s, u"l3"_s, u"l4"_s}));
    store->selection()->extendTo(u"l4"_s, u"l1"_s);
    QCOMPARE(ticked(), (QStringList{u"l1"_s, u"l2"_s, u"l3"_s, u"l4"_s}));
    store->selection()->toggleAll();
    QCOMPARE(ticked().size(), 5);
    store->selection()->toggleAll();
    QVERIFY(ticked().isEmpty());
    store->selection()->extendTo(u"l3"_s, u"l4"_s);
    QCOMPARE(ticked(), (QStringList{u"l3"_s, u"l4"_s}));
  }

  void actionsOnMany_data() {
    QTest::addColumn<QString>("verb");
    QTest::addColumn<QStringList>("ids");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("success");
    QTest::addColumn<QString>("failure");
    const QStringList two{u"l1"_s, u"l2"_s};
    const QByteArray both = R"({"changed":2,"skipped":0})";
    QTest::newRow("pause") << u"pause"_s << two << bulk << both << u"Paused 2 leads"_s << u"Couldn’t pause 2 leads"_s;
    QTest::newRow("resume one") << u"resume"_s << QStringList{u"l2"_s} << bulk
                                << QByteArray(R"({"changed":1,"skipped":0})") << u"Resumed p2@x.example"_s
                                << u"Couldn’t resume p2@x.example"_s;
    QTest::newRow("none") << u"pause"_s << two << bulk << QByteArray(R"({"changed":0,"skipped":2})")
                          << u"Nothing to change"_s << u"Couldn’t pause 2 leads"_s;
    QTest::newRow("remove") << u"remove"_s << two << bulk << both << u"Removed 2 leads. They’re in Archived."_s
                            << u"Couldn’t remove 2 leads"_s;
    QTest::newRow("remove one") << u"remove"_s << QStringList{u"l2"_s} << u"DELETE /campaigns/c1/leads/l2"_s
                                << QByteArray() << u"Removed p2@x.example. It’s in Archived."_s
                                << u"Couldn’t remove p2@x.example"_s;
    QTest::newRow("restore") << u"restore"_s << two << restore << QByteArray(R"({"restored":2})")
                             << u"2 leads restored"_s << u"Couldn’t restore 2 leads"_s;
    QTest::newRow("for good") << u"good"_s << QStringList{u"l1"_s} << u"DELETE /campaigns/c1/leads/l1"_s << QByteArray()
                              << u"p1@x.example deleted for good"_s << u"Couldn’t delete p1@x.example"_s;
  }
  void actionsOnMany() {
    QFETCH(QString, verb);
    QFETCH(QStringList, ids);
    QFETCH(QString, label);
    QFETCH(QByteArray, answer);
    QFETCH(QString, failure);
    load(page({1, 2, 3}));
    const auto act = [&] {
      if (verb == "pause"_L1) store->pause(ids);
      if (verb == "resume"_L1) store->resume(ids);
      if (verb == "remove"_L1) store->remove(ids);
      if (verb == "restore"_L1) store->restore(ids);
      if (verb == "good"_L1) store->removeForGood(ids.first());
      if (f->overlays.asking()) f->overlays.answer(f->overlays.token(), true);
    };
    store->selection()->toggle(u"l2"_s);
    store->selection()->toggle(u"l3"_s);
    f->api.expect(label);
    act();
    QVERIFY(store->bulkBusy() || !store->busyIds().isEmpty());
    // A second press while the first is on its way sends nothing.
    act();
    f->api.answer(label, refusal, 422);
    QVERIFY(!store->bulkBusy() && store->busyIds().isEmpty());
    QCOMPARE(toast(), failure);
    QCOMPARE(shown().size(), 3);
    QCOMPARE(life->refreshes, 0);

    f->api.expect(label);
    act();
    f->api.expect(get);
    f->api.answer(label, answer, answer.isEmpty() ? 204 : 200);
    QTEST(toast(), "success");
    QCOMPARE(life->refreshes, 1);
    const bool leaves = verb == "remove"_L1 || verb == "good"_L1;
    QCOMPARE(shown().size(), leaves ? 3 - ids.size() : 3);
    QCOMPARE(ticked(), leaves && ids.contains(u"l2"_s) ? QStringList{u"l3"_s} : (QStringList{u"l2"_s, u"l3"_s}));
    f->api.answer(get, page({3}));
    QCOMPARE(ticked(), QStringList{u"l3"_s});
    QVERIFY(!store->bulkBusy() && store->busyIds().isEmpty());
  }

  void aRemovalIsUndone() {
    load(page({1, 2}));
    f->api.expect(u"DELETE /campaigns/c1/leads/l2"_s);
    f->api.expect(get);
    store->remove({u"l2"_s});
    f->api.answer(u"DELETE /campaigns/c1/leads/l2"_s, {}, 204);
    f->api.answer(get, page({1}));
    f->api.expect(restore);
    f->toasts.act(f->toasts.toasts().last().id);
    QCOMPARE(body().value("leadIds"_L1).toArray(), QJsonArray{u"l2"_s});
    f->api.expect(get);
    f->api.answer(restore, R"({"restored":1})");
    QCOMPARE(toast(), u"p2@x.example restored"_s);
    f->api.answer(get, page({1, 2}));
    QCOMPARE(shown().size(), 2);
  }

  void aMoveTakesLeadsElsewhere() {
    const auto list = u"GET /campaigns"_s, move = u"POST /campaigns/c1/leads/move"_s;
    load(page({1, 2}));
    f->api.expect(list);
    store->beginMove({u"l1"_s, u"l2"_s});
    f->api.answer(list, campaigns({{"c1", "Here"}, {"c2", "There"}, {"c3", "Else"}}));
    QCOMPARE(store->move()->options().size(), 2);
    store->move()->setQuery(u"the"_s);
    QCOMPARE(store->move()->options().size(), 1);
    QVERIFY(!store->move()->canSubmit());
    store->move()->setTarget(u"c2"_s);
    f->api.expect(move);
    store->move()->submit();
    store->move()->submit();
    f->api.answer(move, refusal, 422);
    QVERIFY(store->move()->shown() && !store->move()->busy());
    QCOMPARE(store->move()->error(), u"Not now: It is being checked."_s);

    // Without an answer it may have moved them, out of here and into the other.
    QSet<QString> stale;
    f->context->changes().watch<Campaign>(store, [&stale](const auto& change) { stale.insert(change.id); });
    f->api.expect(move);
    f->api.expect(get);
    store->move()->submit();
    f->api.fail(move, TransportFailure::timedOut);
    f->api.answer(get, page({1, 2}));
    QCOMPARE(stale, (QSet<QString>{u"c1"_s, u"c2"_s}));

    // Who is changed otherwise is moved after that.
    std::optional<RecordTurns::Turn> other(await(f->context->turns().next(u"l2"_s)));
    store->move()->submit();
    settle();
    QVERIFY(store->move()->busy() && !f->api.isWaiting(move));
    f->api.expect(move);
    other.reset();
    settle();
    QCOMPARE(body().value("leadIds"_L1).toArray(), (QJsonArray{u"l1"_s, u"l2"_s}));
    f->api.expect(get);
    f->api.answer(move, R"({"moved":1,"skipped":1})");
    QVERIFY(!store->move()->shown());
    QCOMPARE(toast(), u"Moved 1 lead to There"_s);
    QCOMPARE(f->toasts.toasts().last().detail, u"1 lead stayed, already in There"_s);
    f->api.answer(get, page({2}));
    QCOMPARE(shown(), QStringList{u"l2"_s});
  }

  void leadsThatMayHaveBeenAddedAreRead() {
    load(page({1}));
    store->adding()->show(u"manual"_s);
    store->adding()->draft()->set(u"email"_s, u"new@x.example"_s);
    f->api.expect(add);
    store->adding()->submit();
    f->api.expect(get);
    f->api.fail(add, TransportFailure::timedOut);
    f->api.answer(get, page({1, 2}));
    QCOMPARE(shown(), (QStringList{u"l1"_s, u"l2"_s}));
    QCOMPARE(life->refreshes, 1);
  }

  void whatWasTypedAboutALeadStays() {
    const auto detail = u"GET /campaigns/c1/leads/l1"_s, edit = u"PATCH /campaigns/c1/leads/l1"_s;
    const QByteArray withData = lead(1, "active", R"(,"data":{"size":9,"city":"Ulm","list":[1]})");
    load(page({1, 2}));
    LeadPanel& panel = *store->panel();
    f->api.expect(detail);
    store->open(u"l1"_s);
    QVERIFY(panel.shown() && !panel.detailed());
    f->api.answer(detail, detailOf(withData));
    QCOMPARE(panel.fieldNames(), (QStringList{u"city"_s, u"size"_s}));
    QCOMPARE(panel.fieldText(u"size"_s), u"9"_s);
    QCOMPARE(panel.next(), u"Step 2 of 4 is next"_s);
    QCOMPARE(panel.activity().first().toMap()[u"text"_s].toString(), u"Step 1A"_s);

    panel.setField(u"city"_s, u"Bonn"_s);
    panel.setField(u"size"_s, u"10"_s);
    panel.setField(u"size"_s, u"9"_s);
    f->api.expect(edit);
    panel.save();
    panel.save();
    const QJsonObject whole{{u"city"_s, u"Bonn"_s}, {u"size"_s, u"9"_s}, {u"list"_s, u"[1]"_s}};
    QCOMPARE(body(), (QJsonObject{{u"data"_s, whole}}));
    f->api.answer(edit, refusal, 422);
    QVERIFY(panel.dirty() && !panel.saving() && !panel.error().isEmpty());
    QCOMPARE(panel.fieldText(u"city"_s), u"Bonn"_s);

    // Typed on while it was saved, it is not saved yet.
    f->api.expect(edit);
    panel.save();
    panel.setField(u"city"_s, u"Bonn am Rhein"_s);
    f->api.answer(edit, lead(1, "active", R"(,"data":{"size":9,"city":"Bonn"})"));
    QVERIFY(panel.dirty() && !panel.saving());
    QCOMPARE(panel.fieldText(u"city"_s), u"Bonn am Rhein"_s);

    store->open(u"l2"_s);
    QVERIFY(f->overlays.asking());
    f->overlays.answer(f->overlays.token(), false);
    QCOMPARE(panel.leadId(), u"l1"_s);
    f->api.expect(u"GET /campaigns/c1/leads/l2"_s);
    store->open(u"l2"_s);
    f->overlays.answer(f->overlays.token(), true);
    QCOMPARE(panel.leadId(), u"l2"_s);
    QVERIFY(!panel.dirty() && panel.fieldNames().isEmpty() && panel.activity().isEmpty());
    panel.dismiss();
    QVERIFY(!panel.shown());
  }

  void changesOfOneLeadGoOneAfterAnother() {
    const auto detail = u"GET /campaigns/c1/leads/l1"_s, edit = u"PATCH /campaigns/c1/leads/l1"_s,
               remove = u"DELETE /campaigns/c1/leads/l1"_s;
    const QByteArray whole = detailOf(lead(1, "active", R"(,"data":{"city":"Ulm"})"));
    load(page({1, 2}));
    LeadPanel& panel = *store->panel();
    f->api.expect(detail);
    store->open(u"l1"_s);
    f->api.answer(detail, whole);
    panel.setField(u"city"_s, u"Bonn"_s);
    f->api.expect(edit);
    panel.save();
    store->pause({u"l1"_s, u"l2"_s});
    QCOMPARE(f->api.waiting(), 1);
    f->api.expect(bulk);
    f->api.answer(edit, lead(1, "active", R"(,"data":{"city":"Bonn"})"));
    QCOMPARE(body().value("leadIds"_L1).toArray(), (QJsonArray{u"l1"_s, u"l2"_s}));
    panel.setField(u"city"_s, u"Köln"_s);
    panel.save();
    QVERIFY(panel.saving() && !f->api.isWaiting(edit));
    f->api.expect(get);
    f->api.expect(detail);
    f->api.expect(edit);
    f->api.answer(bulk, R"({"changed":2,"skipped":0})");
    f->api.answer(get, page({1, 2}));
    f->api.answer(detail, detailOf(lead(1, "paused", R"(,"data":{"city":"Bonn"})")));
    f->api.answer(edit, lead(1, "paused", R"(,"data":{"city":"Köln"})"));

    // What waits behind a removal is not sent, and that is said.
    f->api.expect(remove);
    store->remove({u"l1"_s});
    panel.setField(u"city"_s, u"Mainz"_s);
    panel.save();
    f->api.expect(get);
    f->api.answer(remove, {}, 204);
    settle();
    QVERIFY(!f->api.isWaiting(edit) && !panel.shown());
    const auto told = [](const Toasts::Toast& toast) { return toast.detail == deletedMeanwhile(); };
    QCOMPARE(std::ranges::count_if(f->toasts.toasts(), told), 1);
  }

  void aSaveGoesOnWhenItsDrawerIsClosed() {
    const auto detail = u"GET /campaigns/c1/leads/l1"_s, edit = u"PATCH /campaigns/c1/leads/l1"_s;
    f->journal.open({u"u1"_s, u"https://service.example"_s});
    settle();
    load(page({1}));
    LeadPanel& panel = *store->panel();
    f->api.expect(detail);
    store->open(u"l1"_s);
    f->api.answer(detail, detailOf(lead(1, "active", R"(,"data":{"city":"Ulm"})")));
    panel.setField(u"city"_s, u"Bonn"_s);
    f->api.expect(edit);
    panel.save();
    panel.dismiss();
    QVERIFY2(!panel.shown() && !f->overlays.asking(), "what is on its way need not be asked about");
    QCOMPARE(f->api.waiting(), 1);
    f->api.answer(edit, refusal, 422);
    QVERIFY(f->toasts.toasts().last().message.startsWith(u"Couldn’t save the fields of "_s));

    f->api.expect(detail);
    store->open(u"l1"_s);
    f->api.answer(detail, detailOf(lead(1, "active", R"(,"data":{"city":"Ulm"})")));
    QTRY_COMPARE(panel.fieldText(u"city"_s), u"Bonn"_s);
    QVERIFY(panel.dirty());

    // Nor is a drawer seen that stands open on a page that was left.
    f->api.expect(edit);
    panel.save();
    f->navigator.open(Page::dashboard);
    f->api.answer(edit, refusal, 422);
    QVERIFY(!panel.error().isEmpty());
    QVERIFY(toast().endsWith(u"has unsaved changes"_s));
    QCOMPARE(f->toasts.toasts().last().detail,
             u"Couldn’t save the fields of p1@x.example. Not now: It is being checked."_s);
    QVERIFY(f->context->unsaved().contains(u"c1"_s));
    panel.discard();
    QVERIFY(f->context->unsaved().ids().isEmpty());
  }

  void whatWasTypedWaitsForItsLeadToComeBack() {
    const auto detail = u"GET /campaigns/c1/leads/l1"_s, remove = u"DELETE /campaigns/c1/leads/l1"_s;
    const QByteArray withCity = detailOf(lead(1, "active", R"(,"data":{"city":"Ulm"})"));
    f->journal.open({u"u1"_s, u"https://service.example"_s});
    settle();
    load(page({1, 2}));
    LeadPanel& panel = *store->panel();
    const auto write = [&] {
      f->api.expect(detail);
      store->open(u"l1"_s);
      f->api.answer(detail, withCity);
      panel.setField(u"city"_s, u"Bonn"_s);
    };
    const auto removeIt = [&] {
      f->api.expect(remove);
      store->act(u"remove"_s, u"l1"_s);
      f->api.expect(get);
      f->api.answer(remove, {}, 204);
      f->api.answer(get, page({2}));
      QVERIFY(!panel.shown());
    };
    write();
    removeIt();
    f->api.expect(restore);
    f->api.expect(get);
    f->toasts.act(f->toasts.toasts().last().id);
    f->api.answer(restore, R"({"restored":1})");
    f->api.answer(get, page({1, 2}));
    f->api.expect(detail);
    store->open(u"l1"_s);
    f->api.answer(detail, withCity);
    QTRY_COMPARE(panel.fieldText(u"city"_s), u"Bonn"_s);

    // Nobody would look for it where the lead is moved to.
    const auto campaignList = u"GET /campaigns"_s;
    store->beginMove({u"l1"_s, u"l2"_s});
    QVERIFY(f->overlays.asking() && !store->move()->shown());
    f->overlays.answer(f->overlays.token(), false);
    QVERIFY(panel.dirty() && !store->move()->shown());
    store->beginMove({u"l1"_s});
    f->api.expect(campaignList);
    f->overlays.answer(f->overlays.token(), true);
    QVERIFY(!panel.dirty() && store->move()->shown());
    f->api.answer(campaignList, campaigns({{"c2", "There"}}));
    store->move()->cancel();

    // For good it goes with the lead.
    write();
    f->clock.advance(1s);
    QCOMPARE(f->journalFiles.files.size(), 1);
    f->api.expect(remove);
    store->removeForGood(u"l1"_s);
    f->overlays.answer(f->overlays.token(), true);
    f->api.expect(get);
    f->api.answer(remove, {}, 204);
    QVERIFY(!panel.shown() && f->journalFiles.files.isEmpty());
    f->api.answer(get, page({2}));
  }
};

QTEST_GUILESS_MAIN(CampaignLeadsTest)
#include "campaignleads_test.moc"
