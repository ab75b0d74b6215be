#include <QAbstractItemModelTester>
#include <QTemporaryDir>

#include "tests/app/leads/LeadsFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto create = u"POST /lead-lists"_s, patch = u"PATCH /lead-lists/li1"_s, remove_ = u"DELETE /lead-lists/li1"_s,
           restore = u"POST /lead-lists/li1/restore"_s, cancel = u"POST /lead-imports/im1/cancel"_s,
           leads = u"GET /leads"_s, exported = u"GET /leads/export.csv"_s, ticked = u"POST /leads/export.csv"_s;
const QByteArray refusal = R"({"title":"Not now","detail":"It is being checked."})";

// Out here, since moc loses a class with such pieces in it.
QByteArray found(const QByteArrayList& ids) {
  QByteArrayList items;
  for (const QByteArray& id : ids)
    items.append(R"({"id":")" + id +
                 R"(","email":"x@x.example","esp":"google","verification":"valid","source":"linkedin",)"
                 R"("createdAt":"2026-11-01T00:00:00Z"})");
  return R"({"items":[)" + items.join(',') + R"(],"count":{"value":)" + QByteArray::number(ids.size()) +
         R"(,"exact":true}})";
}

QByteArray made(const QByteArray& list) {
  return R"({"list":)" + list + R"(,"added":0,"already":0,"skipped":0,"queued":0})";
}

QByteArray running(const QByteArray& id, int rows) {
  return LeadsFixture::import(id, "running", R"(,"totalRows":100,"readRows":)" + QByteArray::number(rows));
}

QByteArray endedInto(const QByteArray& id, const QByteArray& list) {
  return LeadsFixture::import(id, "done", R"(,"inserted":1,"listId":")" + list + R"(")");
}

/// Gives every reading of the imports a name of its own, so that a later one can be answered first.
class NumberedReadings final : public APITransport {
 public:
  explicit NumberedReadings(FakeTransport& fake) : m_fake(fake) {}
  static QString name(int reading) { return u"GET /lead-imports "_s + QString::number(reading); }
  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override {
    if (call.request.path == "/lead-imports"_L1) call.request.path += u' ' + QString::number(++m_last);
    return m_fake.exchange(std::move(call), std::move(receiver));
  }

 private:
  FakeTransport& m_fake;
  int m_last = 0;
};

}  // namespace

class LeadListsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<LeadsFixture> f;

  LeadListActions& actions() { return *f->actions.lists(); }
  QStringList names() const {
    QStringList names;
    for (const LeadList& list : f->store->lists()->all()) names.append(list.name);
    return names;
  }
  QVariant cell(int row, const QByteArray& name) const {
    const auto& rows = *f->store->lists()->list()->rows();
    return rows.data(rows.index(row), rows.roleNames().key(name));
  }
  LeadImportRow row(int at = 0) const { return f->store->lists()->imports()->rows()->records().at(size_t(at)); }
  /// What follows a change whose outcome only the service knows.
  void answerLists(const QByteArray& page) {
    QTRY_VERIFY(f->api.isWaiting(f->lists));
    f->api.answer(f->lists, page);
  }

 private Q_SLOTS:
  void init() { f = std::make_unique<LeadsFixture>(); }
  void cleanup() { f.reset(); }

  void listsAreShown() {
    f->clock.jump(
        std::chrono::milliseconds(f->clock.now().msecsTo(QDateTime(QDate(2026, 11, 18), QTime(9, 41), Qt::UTC))));
    const QAbstractItemModelTester tester(f->store->lists()->list()->rows());
    for (const QString& label : {f->lists, f->lists, f->imports}) f->api.expect(label);
    f->store->lists()->ensureLoaded();
    f->api.answer(f->lists,
                  f->page({f->list("li2", "b 10", 12418, R"(,"number":14,"updatedAt":"2026-11-18T09:40:30Z")"),
                           f->list("li1", "b 9", 420, R"(,"updatedAt":"2026-11-17T08:00:00Z")"),
                           f->list("li3", "A", 1, R"(,"createdBy":"Ada","createdAt":"2026-11-01T08:00:00Z")")}));
    QCOMPARE(f->store->lists()->countText(), u"3 lists · 12,839 leads"_s);
    QCOMPARE(cell(0, "numberText"), u"#14"_s);
    QCOMPARE(cell(0, "updatedText"), u"Now"_s);
    QCOMPARE(cell(1, "updatedText"), u"Yesterday"_s);
    QCOMPARE(cell(2, "updatedText"), u"1 Nov"_s);
    QCOMPARE(cell(2, "makerText"), u"Ada"_s);
    f->store->lists()->sort(u"list"_s, false);
    QCOMPARE(f->store->lists()->list()->shownIds(), (QStringList{u"li3"_s, u"li1"_s, u"li2"_s}));
    f->store->lists()->sort(u"leads"_s, true);
    QCOMPARE(f->store->lists()->list()->shownIds(), (QStringList{u"li2"_s, u"li1"_s, u"li3"_s}));
    f->api.answer(f->lists, "{}", 500);
    f->api.answer(f->imports, f->page({}));
    QCOMPARE(f->store->lists()->archivedCount(), -1);
  }

  void aListIsMade() {
    f->openLists();
    QVERIFY(f->store->lists()->act(u"new"_s));
    LeadListForm& form = *actions().form();
    QVERIFY(form.shown() && !form.canSubmit());
    form.draft()->set(u"name"_s, u" Nordics "_s);
    f->api.expect(create);
    form.submit();
    form.submit();
    QCOMPARE(f->sentBody(),
             (QJsonObject{{u"name"_s, u"Nordics"_s}, {u"skipInLists"_s, false}, {u"skipInCampaigns"_s, false}}));
    f->api.answer(create, refusal, 422);
    QCOMPARE(form.error(), u"Not now: It is being checked."_s);
    form.draft()->set(u"description"_s, u"Clinics"_s);
    QVERIFY2(form.error().isEmpty(), "typing on, the person knows");
    f->api.expect(create);
    form.submit();
    f->api.expect(f->lists);
    f->api.answer(create, made(f->list("li9", "Nordics", 0)));
    QVERIFY(!form.shown());
    QCOMPARE(f->lastToast(), u"Nordics created"_s);
    answerLists(f->page({f->list("li9", "Nordics", 0), f->list("li1", "Fair", 9)}));
    QCOMPARE(names(), (QStringList{u"Nordics"_s, u"Fair"_s}));
  }

  void aListIsRenamedAndDescribed() {
    f->openLists();
    LeadListForm& form = *actions().form();
    QVERIFY(f->store->act(u"rename"_s, u"li1"_s));
    form.submit();
    QVERIFY2(!form.shown(), "nothing was changed, so nothing is sent");
    QVERIFY(f->store->act(u"rename"_s, u"li1"_s));
    form.draft()->set(u"name"_s, u"Trade fair"_s);
    f->api.expect(patch);
    form.submit();
    QCOMPARE(f->sentBody(), (QJsonObject{{u"name"_s, u"Trade fair"_s}}));
    QCOMPARE(actions().busyIds(), QStringList{u"li1"_s});
    form.cancel();
    f->api.answer(patch, refusal, 422);
    QCOMPARE(f->lastToast(), u"Couldn’t rename Fair"_s);
    QCOMPARE(names(), (QStringList{u"Fair"_s, u"Clinics"_s}));
    QVERIFY(f->store->act(u"rename"_s, u"li1"_s));
    form.draft()->set(u"name"_s, u"Trade fair"_s);
    f->api.expect(patch);
    form.submit();
    f->api.answer(patch, f->list("li1", "Trade fair", 9));
    QCOMPARE(f->lastToast(), u"Renamed Fair to Trade fair"_s);
    QCOMPARE(names(), (QStringList{u"Trade fair"_s, u"Clinics"_s}));

    QVERIFY(f->store->act(u"rename"_s, u"li1"_s));
    form.draft()->set(u"description"_s, u"Badges"_s);
    f->api.expect(patch);
    form.submit();
    QCOMPARE(f->sentBody(), (QJsonObject{{u"description"_s, u"Badges"_s}}));
    f->api.answer(patch, f->list("li1", "Trade fair", 9, R"(,"description":"Badges")"));
    QCOMPARE(f->lastToast(), u"Saved the description of Trade fair"_s);
  }

  void aListIsDeletedAndTakenBack() {
    f->openLists();
    QVERIFY(f->store->act(u"delete"_s, u"li1"_s));
    QCOMPARE(f->overlays.text(),
             u"It goes to Archived for 30 days, then goes for good. Its 9 leads stay in the database."_s);
    f->api.expect(remove_);
    f->confirm();
    for (const QString& label : {f->lists}) f->api.expect(label);
    f->api.answer(remove_, "");
    QCOMPARE(f->lastToast(), u"Deleted Fair. It’s in Archived."_s);
    QCOMPARE(names(), QStringList{u"Clinics"_s});
    answerLists(f->page({f->list("li1", "Fair", 9, R"(,"archivedAt":"2026-11-18T08:00:00Z")")}));
    QCOMPARE(f->store->lists()->archivedCount(), 1);

    f->api.expect(restore);
    f->toasts.act(f->toasts.toasts().last().id);
    for (const QString& label : {f->lists}) f->api.expect(label);
    f->api.answer(restore, "");
    QCOMPARE(f->lastToast(), u"Restored Fair"_s);
    answerLists(f->page({f->list("li1", "Fair", 9), f->list("li2", "Clinics", 3)}));
    QCOMPARE(names(), (QStringList{u"Fair"_s, u"Clinics"_s}));
    QCOMPARE(f->store->lists()->archivedCount(), 0);
  }

  void aListGoesForGood() {
    for (const QString& label : {f->lists, f->lists, f->imports}) f->api.expect(label);
    f->store->lists()->ensureLoaded();
    f->api.answer(f->lists, f->page({}));
    f->api.answer(f->lists, f->page({f->list("li1", "Fair", 1, R"(,"archivedAt":"2026-11-18T08:00:00Z")")}));
    f->api.answer(f->imports, f->page({}));
    QVERIFY(f->store->act(u"delete"_s, u"li1"_s));
    QCOMPARE(f->overlays.title(), u"Delete Fair for good?"_s);
    f->api.expect(remove_);
    f->confirm();
    QCOMPARE(f->api.last().request.query, (QList<QueryItem>{{u"permanent"_s, u"1"_s}}));
    f->api.answer(remove_, refusal, 409);
    QCOMPARE(f->lastToast(), u"Couldn’t delete Fair"_s);
    QVERIFY(f->store->act(u"delete"_s, u"li1"_s));
    f->api.expect(remove_);
    f->confirm();
    f->api.answer(remove_, "");
    QCOMPARE(f->lastToast(), u"Deleted Fair for good"_s);
    QCOMPARE(f->store->lists()->archived()->rows()->count(), 0);
  }

  void importsAreFollowedUntilTheyEnd() {
    const QAbstractItemModelTester tester(f->store->lists()->imports()->rows());
    LeadLists& lists =
        f->openLists({f->import("im1", "running", R"(,"listId":"li1","startedAt":"2026-11-18T09:36:00Z")"),
                      f->import("im2", "failed", R"(,"lastError":"Row 1,204 has 11 columns.")")});
    QCOMPARE(row().resultText, u"Reading the file…"_s);
    QVERIFY(row().placeText.startsWith(u"Into Fair · started "_s));
    QCOMPARE(row(1).resultText, u"Row 1,204 has 11 columns."_s);
    QVERIFY(row(1).placeText.startsWith(u"No list · 16 Nov"_s));
    QCOMPARE(lists.imports()->active(), 1);
    f->clock.advance(1999ms);
    QCOMPARE(f->asked(f->imports), 1);
    f->api.expect(f->imports);
    f->clock.advance(1ms);
    f->clock.advance(10s);
    QCOMPARE(f->asked(f->imports), 2);
    // One that is lost is no reason to stop, nor to say so every other second.
    f->api.fail(f->imports, TransportFailure::timedOut);
    QVERIFY(f->lastToast().isEmpty());
    f->api.expect(f->imports);
    f->clock.advance(2s);
    f->api.answer(f->imports,
                  f->page({f->import("im1", "running", R"(,"listId":"li1","totalRows":38112,"readRows":9528)")}));
    QCOMPARE(row().resultText, u"9,528 of 38,112 rows"_s);
    QCOMPARE(row().progress, 0.25);
    QCOMPARE(lists.imports()->rows()->count(), 1);
    f->api.expect(f->imports);
    f->clock.advance(2s);
    f->api.expect(f->lists);
    f->api.answer(f->imports, f->page({f->import("im1", "done", R"(,"listId":"li1")")}));
    QCOMPARE(row().resultText, u"Nothing imported"_s);
    // What it brought is in the lists by now.
    answerLists(f->page({f->list("li1", "Fair", 38121)}));
    f->clock.advance(1min);
    QCOMPARE(f->asked(f->imports), 4);
  }

  void anImportThatEndedUnseenIsToldOfAllTheSame() {
    f->openLists({f->import("im0", "done")});
    f->api.expect(f->imports);
    f->context->changes().stale<LeadImport>();
    f->api.expect(f->lists);
    f->api.answer(f->imports, f->page({f->import("im1", "done", R"(,"listId":"li1")"), f->import("im0", "done")}));
    answerLists(f->page({f->list("li1", "Fair", 10)}));
    // Only this once.
    f->api.expect(f->imports);
    f->store->lists()->imports()->retry();
    f->api.answer(f->imports, f->page({f->import("im1", "done", R"(,"listId":"li1")"), f->import("im0", "done")}));
    QVERIFY(!f->api.isWaiting(f->lists));
  }

  void anImportIsCancelled() {
    LeadLists& lists = f->openLists({f->import("im1", "queued")});
    f->api.expect(cancel);
    lists.imports()->cancel(u"im1"_s);
    lists.imports()->cancel(u"im1"_s);
    QVERIFY(row().isBusy);
    f->api.answer(cancel, refusal, 409);
    QCOMPARE(f->lastToast(), u"Couldn’t cancel the import."_s);
    f->api.expect(cancel);
    lists.imports()->cancel(u"im1"_s);
    f->api.expect(f->imports);
    f->api.answer(cancel, "");
    QCOMPARE(f->lastToast(), u"Cancelled the import of fair.csv"_s);
    f->api.expect(f->lists);
    f->api.answer(f->imports, f->page({f->import("im1", "cancelled", R"(,"inserted":118,"updated":2)")}));
    QCOMPARE(row().resultText, u"118 new, 2 updated"_s);
    answerLists(f->page({}));
    f->store.reset();
    f->clock.advance(1min);
  }

  void aReadingThatIsOvertakenChangesNothing() {
    NumberedReadings numbered(f->api);
    const auto context =
        std::make_shared<WorkspaceContext>(f->context->workspace(), QString(), numbered, f->services, [] {});
    LeadActions leadActions(*context);
    LeadsStore store(*context, leadActions);
    LeadImports& imports = *store.lists()->imports();
    QStringList told;
    QObject watcher;
    context->changes().watch<ListedLeads>(&watcher, [&](const Change<ListedLeads>& change) { told.append(change.id); });
    const auto asks = [&](int reading) { f->api.expect(NumberedReadings::name(reading)); };
    const auto comes = [&](int reading, const QByteArrayList& page) {
      f->api.answer(NumberedReadings::name(reading), f->page(page));
    };
    const auto shown = [&] { return imports.rows()->records().front().resultText; };

    // A poll, by whoever reads the history anew.
    asks(1);
    imports.retry();
    comes(1, {running("im1", 10)});
    asks(2);
    f->clock.advance(2s);
    asks(3);
    imports.retry();
    comes(3, {running("im1", 50)});
    comes(2, {endedInto("im1", "li1")});
    QCOMPARE(shown(), u"50 of 100 rows"_s);
    QVERIFY(imports.active() == 1 && told.isEmpty());

    // Who reads it anew, by a poll.
    asks(4);
    imports.retry();
    asks(5);
    f->clock.advance(2s);
    comes(5, {running("im1", 80)});
    comes(4, {running("im1", 60)});
    QCOMPARE(shown(), u"80 of 100 rows"_s);

    // A poll that was asked before another import began: it knows neither that one nor what has ended since.
    asks(6);
    f->clock.advance(2s);
    asks(7);
    context->changes().stale<LeadImport>();
    comes(6, {running("im1", 90)});
    QCOMPARE(shown(), u"80 of 100 rows"_s);
    comes(7, {endedInto("im2", "li2"), running("im1", 95)});
    QCOMPARE(told, QStringList{u"li2"_s});

    // A poll, by a cancelling.
    asks(8);
    f->clock.advance(2s);
    f->api.expect(cancel);
    imports.cancel(u"im1"_s);
    asks(9);
    f->api.answer(cancel, "");
    comes(8, {running("im1", 98)});
    QCOMPARE(shown(), u"1 new"_s);
    QCOMPARE(imports.rows()->records().back().resultText, u"95 of 100 rows"_s);
    comes(9, {endedInto("im2", "li2"), f->import("im1", "cancelled")});
    QCOMPARE(imports.active(), 0);
    // Once more, and no longer.
    asks(10);
    f->clock.advance(2s);
    comes(10, {endedInto("im2", "li2"), f->import("im1", "cancelled")});
    f->clock.advance(1min);
  }

  void leadsLeaveAListAndComeBack() {
    f->openLists();
    LeadListStore page(u"li1"_s, *f->context, f->actions, *f->store->lists());
    f->api.expect(u"GET /leads/unlocks"_s);
    f->api.expect(leads);
    page.results()->list()->appear();
    page.ensureLoaded();
    const QList<QueryItem> query = f->api.last().request.query;
    QVERIFY(query.contains({u"list"_s, u"li1"_s}) && query.contains({u"only"_s, u"all"_s}));
    f->api.answer(leads, found({"l1", "l2", "l3"}));
    page.results()->selection()->toggle(u"l1"_s);
    page.results()->selection()->toggle(u"l3"_s);
    const auto remove = u"DELETE /lead-lists/li1/leads"_s, add = u"POST /lead-lists/li1/leads"_s;
    f->api.expect(remove);
    page.removeTicked();
    page.removeTicked();
    QCOMPARE(f->sentBody(), (QJsonObject{{u"leadIds"_s, QJsonArray{u"l1"_s, u"l3"_s}}}));
    f->api.expect(f->lists);
    f->api.expect(leads);
    f->api.answer(remove, R"({"removed":2,"leadCount":7})");
    QCOMPARE(page.results()->list()->shownIds(), QStringList{u"l2"_s});
    QVERIFY(page.results()->selection()->isEmpty());
    QCOMPARE(f->lastToast(), u"Removed 2 leads from Fair"_s);
    f->api.answer(f->lists, f->page({f->list("li1", "Fair", 7)}));
    f->api.answer(leads, found({"l2"}));
    QCOMPARE(page.countText(), u"7 leads"_s);

    f->api.expect(add);
    f->toasts.act(f->toasts.toasts().last().id);
    QCOMPARE(f->sentBody().value(u"leadIds"_s).toArray(), (QJsonArray{u"l1"_s, u"l3"_s}));
    f->api.expect(f->lists);
    f->api.expect(leads);
    f->api.answer(add, R"({"added":2,"already":0,"skipped":0,"queued":0,"leadCount":9})");
    f->api.answer(f->lists, f->page({f->list("li1", "Fair", 9)}));
    f->api.answer(leads, found({"l1", "l2"}));
    QCOMPARE(page.results()->list()->rows()->count(), 2);

    f->api.expect(remove);
    QVERIFY(page.act(u"remove"_s, u"l2"_s));
    f->api.answer(remove, refusal, 409);
    QCOMPARE(f->lastToast(), u"Couldn’t remove them from Fair"_s);
    QCOMPARE(page.results()->list()->rows()->count(), 2);
    f->api.answer(u"GET /leads/unlocks"_s, "{}", 500);
  }

  void aListIsExported() {
    QTemporaryDir folder;
    f->filePanel.folder = folder.path();
    f->openLists();
    LeadExport& form = *actions().exporting();
    QVERIFY(f->store->act(u"export"_s, u"li1"_s));
    QCOMPARE(form.howManyLabel(), u"How many (newest first, up to 100,000)"_s);
    for (const auto& wrong : {u"0"_s, u"100001"_s, u"x"_s}) {
      form.setHowMany(wrong);
      QVERIFY(!form.canSubmit());
    }
    form.setHowMany(u" 2 "_s);
    f->api.expect(exported);
    form.submit();
    QCOMPARE(f->api.last().request.query, (QList<QueryItem>{{u"list"_s, u"li1"_s}, {u"limit"_s, u"2"_s}}));
    QCOMPARE(f->jobs.unsavedWork().size(), 1);
    f->api.answer(exported, "email\na@x.example\n");
    QTRY_VERIFY(!form.form()->shown());
    const QString path = folder.filePath(u"Fair.csv"_s);
    QTRY_COMPARE(f->lastToast(), u"Exported Fair.csv"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "email\na@x.example\n"_ba);
    QCOMPARE(file.permissions() & ~(QFile::ReadUser | QFile::WriteUser), QFile::ReadOwner | QFile::WriteOwner);
    f->toasts.act(f->toasts.toasts().last().id);
    QCOMPARE(f->revealer.revealed, path);

    // Only those that were ticked. Closed before they came, it asks where to keep them all the same.
    form.open({.id = u"li1"_s, .name = u"Fair"_s, .leadCount = 9}, {u"l1"_s, u"l2"_s});
    QCOMPARE(form.tickedText(), u"Only the 2 ticked leads"_s);
    f->api.expect(ticked);
    form.submit();
    QCOMPARE(f->sentBody(), (QJsonObject{{u"list"_s, u"li1"_s}, {u"leadIds"_s, QJsonArray{u"l1"_s, u"l2"_s}}}));
    f->filePanel.suggested.clear();
    f->filePanel.folder.clear();
    form.form()->cancel();
    form.open({.id = u"li2"_s, .name = u"Clinics"_s, .leadCount = 3}, {});
    QVERIFY2(form.about().startsWith(u"Fair"_s) && form.form()->busy(), "the one under way comes back");
    form.form()->cancel();
    f->api.answer(ticked, "email\n");
    QCOMPARE(f->filePanel.suggested, u"Fair.csv"_s);
    form.open({.id = u"li1"_s, .name = u"Fair"_s, .leadCount = 9}, {u"l1"_s});
    form.setOnlyTicked(false);
    f->api.expect(exported);
    form.submit();
    f->api.answer(exported, refusal, 409);
    QCOMPARE(form.form()->error(), u"Not now: It is being checked."_s);
  }
};

QTEST_GUILESS_MAIN(LeadListsTest)
#include "leadlists_test.moc"
