#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "app/base/RecordModel.h"
#include "app/base/Resource.h"
#include "app/base/Store.h"
#include "app/base/StoreCache.h"
#include "kit/models/campaigns/campaignSummary.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Answer = std::variant<int, APIError>;

/// Loads whose answers the test gives, each by its number.
struct Loads {
  std::vector<OneShot<Answer>> asked;

  Task<int> next() {
    asked.emplace_back();
    return wait(asked.back());
  }
  static Task<int> wait(OneShot<Answer> answer) {
    const Answer given = co_await answer.wait();
    if (const auto* error = std::get_if<APIError>(&given)) throw *error;
    co_return std::get<int>(given);
  }
  void give(size_t load, Answer answer) { asked[load].give(std::move(answer)); }
};

/// One change of a record; its end is given, false where that deletes the record.
Task<void> takeTurn(RecordTurns* turns, QString record, QString name, OneShot<bool> until, QStringList* log) {
  auto turn = co_await turns->next(record);
  log->append(turn ? name : name + u" in vain"_s);
  if (turn && !co_await until.wait()) turn.recordGone();
}

struct Thing {
  using Record = Thing;
  QString id;
  QString name;
  std::optional<qint64> version;
};

APIError error(APIError::Kind kind) { return APIError::of(kind); }

}  // namespace

struct Kept final : QObject {
  QStringList& closed;
  /// Set while there is something to save; gives how that ends.
  std::optional<OneShot<bool>> saved;
  Kept(QString key, QStringList& log) : closed(log) { setObjectName(key); }
  void close() { closed.append(objectName()); }
  QStringList unsavedWork() const { return saved ? QStringList{objectName()} : QStringList(); }
  Task<bool> flush() { co_return co_await saved->wait(); }
};

class BaseTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<Store> store;
  std::unique_ptr<Loads> loads;

  Resource<int> resource(std::optional<int> emptyValue = {}) const {
    return Resource<int>(
        *store, [this] { return loads->next(); },
        {.failed = u"Couldn’t load"_s, .isEmpty = [](int value) { return value == 0; }, .emptyValue = emptyValue});
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    loads = std::make_unique<Loads>();
    store = std::make_unique<Store>(*f->context);
  }
  void cleanup() {
    store.reset();
    f.reset();
  }

  void whatGrewOldIsReadAgainWhenOnScreenAndWhenNextShown() {
    auto resource = this->resource();
    resource.markStale();
    QCOMPARE(loads->asked.size(), 0u);
    resource.ensureLoaded();
    loads->give(0, 1);
    resource.ensureLoaded();
    QCOMPARE(loads->asked.size(), 1u);
    resource.markStale();
    QCOMPARE(loads->asked.size(), 1u);
    resource.appear();
    settle();
    QCOMPARE(loads->asked.size(), 2u);
    loads->give(1, 2);
    // Of many news in one turn of the event loop the first is enough.
    for (int news = 0; news < 3; ++news) resource.markStale();
    QCOMPARE(loads->asked.size(), 3u);
    settle();
    loads->give(2, error(APIError::Kind::offline));
    QVERIFY(resource.state().isOffline());
    // Any answer to anybody in the workspace says that there is a connection again.
    f->context->cameOnline();
    QCOMPARE(loads->asked.size(), 4u);
    loads->give(3, 3);
    settle();
    resource.disappear();
    resource.markStale();
    QVERIFY(resource.needsLoad());
    QCOMPARE(loads->asked.size(), 4u);
    // What grows old while it is read is old when the answer has come.
    resource.ensureLoaded();
    resource.markStale();
    loads->give(4, 4);
    QCOMPARE(loads->asked.size(), 5u);
    resource.appear();
    settle();
    QCOMPARE(loads->asked.size(), 6u);
    loads->give(5, 5);
    QVERIFY(!resource.needsLoad());
    resource.disappear();
    // Whoever comes back to what could not be read again means to see it.
    resource.load();
    loads->give(6, error(APIError::Kind::server));
    QVERIFY(resource.needsLoad());
  }

  void rowsAreOneLineOfWhatOthersWrote() {
    RecordModel<CampaignSummary> model;
    CampaignSummary hostile;
    hostile.id = u"c\n1"_s;
    hostile.name = u"Q3\nsent"_s;
    model.update({hostile});
    const auto roles = model.roleNames();
    const auto shown = [&](const char* role) { return model.data(model.index(0), roles.key(role)).toString(); };
    QCOMPARE(shown("name"), u"Q3 sent"_s);
    QCOMPARE(shown("id"), hostile.id);
    QCOMPARE(model.records().front().name, hostile.name);
  }

  void changesOfOneRecordGoOneAfterAnother() {
    RecordTurns& turns = f->context->turns();
    QStringList log;
    TaskScope scope;
    OneShot<bool> first, second, other;
    const auto change = [&](const QString& record, const QString& name, OneShot<bool> until) {
      return takeTurn(&turns, record, name, until, &log);
    };
    scope.start(change(u"c1"_s, u"a"_s, first));
    scope.start(change(u"c1"_s, u"b"_s, second));
    scope.start(change(u"c2"_s, u"other"_s, other));
    TaskSlot dropped;
    dropped.start(change(u"c1"_s, u"dropped"_s, {}));
    scope.start(change(u"c1"_s, u"c"_s, {}));
    QCOMPARE(log, (QStringList{u"a"_s, u"other"_s}));
    dropped.cancel();
    first.give(true);
    settle();
    QCOMPARE(log.last(), u"b"_s);
    // The record is deleted: who waits is told.
    second.give(false);
    settle();
    QCOMPARE(log.last(), u"c in vain"_s);
  }

  void theNewestAnswerIsShownWhateverTheOrder() {
    Changes& changes = f->context->changes();
    QStringList told;
    changes.watch<Thing>(store.get(), [&told](const Change<Thing>& change) {
      told.append(change.record ? change.record->name : change.id);
    });
    const Stamp early = changes.stamp(), late = changes.stamp();
    QVERIFY(changes.publish(Thing{u"t1"_s, u"new"_s, 7}, early, true));
    QVERIFY2(!changes.publish(Thing{u"t1"_s, u"old"_s, 6}, late, true), "the version decides where there is one");
    QVERIFY(changes.publish(Thing{u"t2"_s, u"later"_s, {}}, late, true));
    QVERIFY2(!changes.publish(Thing{u"t2"_s, u"earlier"_s, {}}, early, true), "else who was asked last");
    changes.gone<Thing>(u"t3"_s, late);
    QCOMPARE(told, (QStringList{u"new"_s, u"later"_s, u"t3"_s}));
    told.clear();

    QList<Thing> shown{{u"t1"_s, u"new"_s, 7}, {u"t2"_s, u"later"_s, {}}};
    QList<Thing> read{{u"t1"_s, u"old"_s, 6}, {u"t2"_s, u"earlier"_s, {}}, {u"t3"_s, u"deleted"_s, 1}};
    changes.reconcile<Thing>(read, &shown, early);
    QCOMPARE(read.size(), 2);
    QCOMPARE(read[0].name, u"new"_s);
    QCOMPARE(read[1].name, u"later"_s);
    QCOMPARE(told, QStringList());
    // A list that was asked for later brings back what was restored, and tells of what is newer in it.
    read = {{u"t1"_s, u"newer"_s, 8}, {u"t3"_s, u"restored"_s, 2}};
    changes.reconcile<Thing>(read, &shown, changes.stamp());
    QCOMPARE(read.size(), 2);
    QCOMPARE(told, (QStringList{u"t1"_s, u"t3"_s}));
  }

  void onlyTheNewestLoadCounts() {
    auto resource = this->resource();
    resource.load();
    resource.load();
    loads->give(1, 2);
    loads->give(0, 1);
    QCOMPARE(*resource.value(), 2);
    QVERIFY(!resource.refreshing());
    QCOMPARE(resource.loadedAt(), f->clock.now());
  }

  void refreshEndsInTheRightState_data() {
    QTest::addColumn<int>("first");
    QTest::addColumn<APIError::Kind>("failure");
    QTest::addColumn<ResourceBase::State>("state");
    QTest::addColumn<bool>("hasContent");
    QTest::addColumn<bool>("told");
    using Kind = APIError::Kind;
    using State = ResourceBase::State;
    QTest::newRow("content, offline") << 5 << Kind::offline << State::Offline << true << false;
    QTest::newRow("empty, offline") << 0 << Kind::offline << State::Offline << false << false;
    QTest::newRow("content, refused") << 5 << Kind::server << State::Ready << true << true;
    QTest::newRow("empty, refused") << 0 << Kind::unreachable << State::Empty << false << true;
    QTest::newRow("content, cancelled") << 5 << Kind::cancelled << State::Ready << true << false;
  }
  void refreshEndsInTheRightState() {
    QFETCH(int, first);
    QFETCH(APIError::Kind, failure);
    QFETCH(bool, told);
    auto resource = this->resource();
    QSignalSpy failed(&resource, &ResourceBase::refreshFailed);
    resource.load();
    loads->give(0, first);
    resource.load();
    QVERIFY(resource.refreshing());
    loads->give(1, error(failure));
    QTEST(resource.stateName(), "state");
    QTEST(resource.hasContent(), "hasContent");
    QCOMPARE(failed.count(), told ? 1 : 0);
    QVERIFY(!resource.refreshing());
  }

  void contentDoesNotOutliveAnotherQuestionThatFails_data() {
    QTest::addColumn<APIError::Kind>("failure");
    QTest::addColumn<ResourceBase::State>("state");
    QTest::newRow("offline") << APIError::Kind::offline << ResourceBase::State::Offline;
    QTest::newRow("refused") << APIError::Kind::server << ResourceBase::State::Error;
  }
  void contentDoesNotOutliveAnotherQuestionThatFails() {
    QFETCH(APIError::Kind, failure);
    auto resource = this->resource(0);
    QSignalSpy failed(&resource, &ResourceBase::refreshFailed);
    resource.load();
    loads->give(0, 5);
    resource.ask();
    QVERIFY(resource.refreshing() && resource.hasContent());
    // A reload meanwhile is still of the question that has no answer.
    resource.load();
    loads->give(2, error(failure));
    QTEST(resource.stateName(), "state");
    QVERIFY(!resource.hasContent() && !resource.value() && !resource.refreshing());
    QCOMPARE(failed.count(), 0);

    resource.load();
    QVERIFY(resource.state().isLoading());
    loads->give(3, 6);
    resource.load();
    loads->give(4, error(failure));
    QVERIFY(resource.hasContent());
    QCOMPARE(*resource.value(), 6);
  }

  void firstLoadFailsIntoAnErrorAndIsRetried() {
    auto resource = this->resource();
    resource.load();
    loads->give(0, error(APIError::Kind::unreachable));
    QCOMPARE(resource.message(), u"Orvella can’t be reached right now. Try again in a moment."_s);
    resource.load();
    QVERIFY(resource.state().isLoading());
    loads->give(1, error(APIError::Kind::offline));
    QVERIFY(resource.state().isOffline() && !resource.hasContent());
    resource.load();
    loads->give(2, 3);
    resource.load();
    loads->give(3, error(APIError::Kind::offline));
    resource.load();
    loads->give(4, error(APIError::Kind::offline));
    QCOMPARE(*resource.state().value(), 3);
  }

  void emptyValueStandsInWhileOffline() {
    auto resource = this->resource(0);
    resource.load();
    loads->give(0, 0);
    resource.load();
    loads->give(1, error(APIError::Kind::offline));
    QVERIFY(resource.hasContent());
  }

  void aChangeInPlaceOutlivesALoadThatBeganBefore() {
    auto resource = this->resource();
    resource.load();
    loads->give(0, 1);
    resource.load();
    resource.update([](int& value) { value = 7; });
    loads->give(1, 1);
    QCOMPARE(*resource.value(), 7);
    loads->give(2, 8);
    QCOMPARE(*resource.value(), 8);
    QVERIFY(!resource.refreshing());
  }

  void toastsStackThreeAndNeverTwice() {
    for (const auto& text : {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}) f->toasts.show({.message = text});
    QCOMPARE(f->toasts.count(), 3);
    QCOMPARE(f->toasts.toasts().first().message, u"3"_s);
    f->clock.advance(3400ms);
    f->toasts.show({.message = u"4"_s});
    f->clock.advance(200ms);
    QCOMPARE(f->toasts.count(), 1);
    QCOMPARE(f->toasts.toasts().first().message, u"4"_s);
  }

  void toastsTimeOut_data() {
    QTest::addColumn<Toasts::Tone>("tone");
    QTest::addColumn<QString>("action");
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("standard") << Toasts::Tone::standard << QString() << 3500;
    QTest::newRow("success with action") << Toasts::Tone::success << u"Undo"_s << 5000;
    QTest::newRow("error") << Toasts::Tone::error << QString() << 6000;
    QTest::newRow("error with action") << Toasts::Tone::error << u"Retry"_s << 6000;
  }
  void toastsTimeOut() {
    QFETCH(Toasts::Tone, tone);
    QFETCH(QString, action);
    QFETCH(int, milliseconds);
    f->toasts.show({.message = u"x"_s, .tone = tone, .actionLabel = action});
    f->clock.advance(std::chrono::milliseconds(milliseconds - 1));
    QCOMPARE(f->toasts.count(), 1);
    f->clock.advance(1ms);
    QCOMPARE(f->toasts.count(), 0);
  }

  void heldToastsWait() {
    QAbstractItemModelTester tester(&f->toasts, QAbstractItemModelTester::FailureReportingMode::Fatal);
    int undone = 0;
    const auto id = f->toasts.show({.message = u"x"_s, .actionLabel = u"Undo"_s, .action = [&undone] { ++undone; }});
    f->toasts.hold(true);
    f->toasts.show({.message = u"y"_s});
    f->clock.advance(60s);
    QCOMPARE(f->toasts.count(), 2);
    f->toasts.hold(false);
    f->toasts.act(id);
    f->toasts.act(id);
    QCOMPARE(undone, 1);
    f->clock.advance(3500ms);
    QCOMPARE(f->toasts.count(), 0);
  }

  void anActionIsOfferedAsLongAsItCanAct() {
    QAbstractItemModelTester tester(&f->toasts, QAbstractItemModelTester::FailureReportingMode::Fatal);
    int undone = 0;
    auto page = std::make_unique<QObject>();
    const auto show = [&](QObject* actsOn) {
      return f->toasts.show({.message = u"Email 2 removed"_s,
                             .actionLabel = u"Undo"_s,
                             .action = [&undone] { ++undone; },
                             .accumulates = true,
                             .actsOn = actsOn});
    };
    const auto gone = show(page.get());
    page.reset();
    QCOMPARE(f->toasts.toasts().last().actionLabel, QString());
    // What is taken back with the next message is what can be.
    const auto next = show(nullptr);
    f->toasts.act(gone);
    QCOMPARE(undone, 0);
    f->toasts.act(next);
    QCOMPARE(undone, 1);
    // Messages that have gone are nothing to a page that stays.
    struct Page : QObject {
      using QObject::receivers;
    } stays;
    for (int i = 0; i < 3; ++i) f->toasts.dismiss(show(&stays));
    show(&stays);
    f->toasts.clear();
    QCOMPARE(stays.receivers(SIGNAL(destroyed(QObject*))), 0);
  }

  static Task<void> ask(Overlays* overlays, QString title, QStringList* answers) {
    const bool yes = co_await overlays->confirm({title, {}, {}, {}, false, {}});
    answers->append(title + (yes ? u" yes"_s : u" no"_s));
  }
  void questionsStackAndDieWithTheirAsker() {
    QStringList answers;
    TaskScope scope;
    TaskSlot dying;
    scope.start(ask(&f->overlays, u"first"_s, &answers));
    const int first = f->overlays.token();
    dying.start(ask(&f->overlays, u"second"_s, &answers));
    QCOMPARE(f->overlays.title(), u"second"_s);
    dying.cancel();
    QCOMPARE(f->overlays.title(), u"first"_s);
    f->overlays.answer(first + 1, true);
    QVERIFY(answers.isEmpty());
    f->overlays.answer(first, true);
    QCOMPARE(answers, QStringList{u"first yes"_s});
    scope.start(ask(&f->overlays, u"third"_s, &answers));
    f->overlays.dismissAll();
    QCOMPARE(answers.last(), u"third no"_s);
    QVERIFY(!f->overlays.asking());
  }

  void recordsAreChangedRowByRow() {
    RecordModel<CampaignSummary> model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto records = [](const QString& ids) {
      std::vector<CampaignSummary> list;
      for (const QChar id : ids) {
        CampaignSummary record;
        record.id = id;
        record.name = id.toUpper();
        list.push_back(record);
      }
      return list;
    };
    model.update(records(u"abcdef"_s));
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset), removed(&model, &QAbstractItemModel::rowsRemoved),
        inserted(&model, &QAbstractItemModel::rowsInserted), changed(&model, &QAbstractItemModel::dataChanged);
    const QPersistentModelIndex kept = model.index(4);
    auto next = records(u"xaefb"_s);
    next[2].name = u"renamed"_s;
    model.update(next);
    QVERIFY(model.records() == next);
    QCOMPARE(resets.count(), 0);
    QCOMPARE(removed.count(), 1);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(kept.row(), 2);

    QString many;
    for (char16_t c = u'\u4e00'; c < u'\u4e00' + 500; ++c) many.prepend(c);
    model.update(records(many));
    std::ranges::reverse(many);
    model.update(records(many));
    QCOMPARE(model.records().front().id, QString(u'\u4e00'));
    QCOMPARE(model.count(), 500);

    // Another question: rows in common are followed, whatever comes and goes around them.
    for (const auto& ids : {u"abcdef"_s, u"fxa"_s, u"yzaxwvu"_s, QString(), u"ab"_s, u"cd"_s}) {
      const std::vector<CampaignSummary> before = model.records();
      QList<QPersistentModelIndex> held;
      for (int row = 0; row < model.count(); ++row) held.append(model.index(row));
      const auto after = records(ids);
      model.replace(after);
      QVERIFY(model.records() == after);
      for (size_t i = 0; i < before.size(); ++i) QCOMPARE(held[qsizetype(i)].row(), int(ids.indexOf(before[i].id)));
    }
    QCOMPARE(resets.count(), 0);
  }

  void aFirstAnswerThatIsOldIsAskedForAgain() {
    std::vector<OneShot<Thing>> asked;
    Resource<Thing> thing(*store, [&asked]() -> Task<Thing> {
      asked.emplace_back();
      return [](OneShot<Thing> answer) -> Task<Thing> { co_return co_await answer.wait(); }(asked.back());
    });
    Changes& changes = f->context->changes();
    thing.load();
    // Somebody acted in a list meanwhile.
    changes.publish(Thing{u"t1"_s, u"new"_s, 8}, changes.stamp(), true);
    OneShot<Thing>(asked[0]).give({u"t1"_s, u"old"_s, 7});
    QCOMPARE(asked.size(), size_t(2));
    QVERIFY(thing.value() && thing.refreshing());
    // A service that knows no better is believed.
    OneShot<Thing>(asked[1]).give({u"t1"_s, u"old"_s, 7});
    QCOMPARE(asked.size(), size_t(2));
    thing.load();
    OneShot<Thing>(asked[2]).give({u"t1"_s, u"new"_s, 8});
    QCOMPARE(thing.value()->name, u"new"_s);
  }

  void whoeverSentIsToldOfLastOfAll() {
    AppFixture own;
    auto context = std::move(own.context);
    QList<bool> told;
    connect(context.get(), &WorkspaceContext::sent, this, [&told](bool anyFailed) { told.append(anyFailed); });
    {
      WorkspaceContext::Sending one(*context), other(*context);
      one.failed();
    }
    QVERIFY2(context->isSending() && told.isEmpty(), "who waits for it does not go before it has been told");
    // The one that sent was the last to hold it.
    context.reset();
    settle();
    QCOMPARE(told, QList<bool>{true});
  }

  void cachesEvictByTheirOwnOrder() {
    QStringList closed;
    const auto open = [&](StoreCache<Kept>& cache, const QString& keys) {
      for (const QChar key : keys) cache.open(key, [&] { return new Kept(key, closed); });
      return cache.keys().join(QString());
    };
    StoreCache<Kept> byLastOpening(3, StoreCache<Kept>::Order::lastOpening);
    QCOMPARE(open(byLastOpening, u"ABCAD"_s), u"CAD"_s);
    StoreCache<Kept> byFirstOpening(3, StoreCache<Kept>::Order::firstOpening);
    QCOMPARE(open(byFirstOpening, u"ABCAD"_s), u"BCD"_s);
    QCOMPARE(closed, (QStringList{u"B"_s, u"A"_s}));
    byFirstOpening.keepOnly(u"C"_s);
    QCOMPARE(byFirstOpening.keys(), QStringList{u"C"_s});
    settle();
  }

  void cachesKeepUnsavedWork() {
    QStringList closed, notSaved;
    StoreCache<Kept> cache(1, StoreCache<Kept>::Order::firstOpening);
    cache.onNotSaved = [&](const QString&, const Kept& kept) { notSaved.append(kept.objectName()); };
    const auto open = [&](const QString& key) {
      // Held by the cache alone, as one that an answer brought is.
      return cache.open(QString(key.data(), key.size()), [&] { return new Kept(key, closed); });
    };
    const auto openUnsaved = [&](const QString& key) {
      Kept* kept = open(key);
      kept->saved.emplace();
      return kept;
    };

    Kept* a = openUnsaved(u"A"_s);
    open(u"B"_s);
    settle();
    QCOMPARE(closed, QStringList());
    QCOMPARE(cache.unsavedWork(), QStringList{u"A"_s});
    a->saved->give(true);
    QCOMPARE(closed, QStringList{u"A"_s});

    // Opened again while it was being saved: it is the same one, and stays.
    Kept* c = openUnsaved(u"C"_s);
    openUnsaved(u"D"_s);
    settle();
    QCOMPARE(open(u"C"_s), c);
    const auto first = *c->saved;
    c->saved.emplace();
    OneShot<bool>(first).give(true);
    QCOMPARE(cache.keys(), QStringList{u"C"_s});
    QVERIFY(!closed.contains(u"C"_s));

    // D is aside and cannot be saved: it is told of, unless it is back at once, and kept until everything goes.
    cache.open(u"D"_s, [] { return nullptr; })->saved->give(false);
    cache.evictAll();
    open(u"D"_s);
    settle();
    QCOMPARE(notSaved, QStringList());
    open(u"E"_s);
    settle();
    QCOMPARE(notSaved, QStringList{u"D"_s});
    QVERIFY(cache.unsavedWork().contains(u"D"_s));
    closed.clear();
    cache.clear();
    closed.sort();
    QCOMPARE(closed, (QStringList{u"C"_s, u"D"_s, u"E"_s}));
    settle();
  }
};

QTEST_GUILESS_MAIN(BaseTest)
#include "base_test.moc"
