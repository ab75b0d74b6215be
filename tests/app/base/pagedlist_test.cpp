#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include "app/base/Listed.h"
#include "app/base/PagedList.h"
#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/base/RowSelection.h"
#include "tests/support/AppFixture.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

struct Thing {
  using Record = Thing;
  QString id;
  QString name;
  std::optional<qint64> version;
  bool operator==(const Thing&) const = default;
};
struct ThingText {
  explicit ThingText(const Thing& thing) : searched(thing.name.toLower()) {}
  QString searched;
};
using ThingRow = Listed<Thing, ThingText>;
ORV_DECLARE_ROW(ThingRow)
ORV_DEFINE_ROW(ThingRow)

struct ThingPage {
  QList<Thing> items;
  std::optional<QString> nextCursor;
  std::optional<QMap<QString, qint64>> counts;
  std::optional<qint64> archivedCount;
};
BOOST_DESCRIBE_STRUCT(ThingPage, (), (items, nextCursor, counts, archivedCount))

using ThingRows = RecordModel<ThingRow>;
using ThingList = PagedList<ThingPage, ThingRows>;

}  // namespace orv

using namespace orv;
using namespace orv::test;

namespace {

using Answer = std::variant<ThingPage, APIError>;

/// Pages that are asked for, and answered by hand.
struct Reads {
  struct Asked {
    PageRequest request;
    OneShot<Answer> answer;
  };
  std::vector<Asked> asked;

  Task<ThingPage> next(PageRequest request) {
    asked.push_back({request, {}});
    return wait(asked.back().answer);
  }
  static Task<ThingPage> wait(OneShot<Answer> answer) {
    const Answer given = co_await answer.wait();
    if (const auto* error = std::get_if<APIError>(&given)) throw *error;
    co_return std::get<ThingPage>(given);
  }
  /// "first" for the beginning.
  QStringList cursors() const {
    QStringList cursors;
    for (const Asked& one : asked) cursors.append(one.request.cursor.value_or(u"first"_s));
    return cursors;
  }
  void give(Answer answer) {
    // The next one may be asked for at once.
    OneShot<Answer> last = asked.back().answer;
    last.give(std::move(answer));
    settle();
  }
};

Thing thing(int number, const QString& name = {}, std::optional<qint64> version = {}) {
  return {u"t%1"_s.arg(number), name.isEmpty() ? u"Thing %1"_s.arg(number) : name, version};
}

ThingPage page(const QList<int>& numbers, const QString& next = {}, const QString& name = {}) {
  ThingPage page;
  for (const int number : numbers) page.items.append(thing(number, name));
  if (!next.isEmpty()) page.nextCursor = next;
  return page;
}

QList<int> counted(int from, int count) {
  QList<int> numbers;
  for (int number = from; number < from + count; ++number) numbers.append(number);
  return numbers;
}

APIError failure(APIError::Kind kind) { return APIError::of(kind); }

}  // namespace

class PagedListTest : public QObject {
  Q_OBJECT

  using Kind = APIError::Kind;
  using State = ResourceBase::State;

  struct Life {
    AppFixture f;
    Store store{*f.context};
    Reads pages;
    std::unique_ptr<ThingList> list;
  };
  std::unique_ptr<Life> life;
  std::unique_ptr<QAbstractItemModelTester> tester;
  ThingList* list = nullptr;
  Reads* pages = nullptr;

  void make(ThingList::Options options) {
    options.failed = u"Couldn’t load things"_s;
    life->list = std::make_unique<ThingList>(
        life->store, [this](const PageRequest& request) { return life->pages.next(request); }, options);
    list = life->list.get();
    tester = std::make_unique<QAbstractItemModelTester>(list->rows(),
                                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
    list->appear();
  }
  QStringList shown() const { return list->shownIds(); }
  QString nameOf(int number) const { return list->find(u"t%1"_s.arg(number))->record().name; }
  QStringList toasts() const {
    QStringList said;
    for (const auto& toast : life->f.toasts.toasts()) said.append(toast.message);
    return said;
  }

 private Q_SLOTS:
  void init() {
    life = std::make_unique<Life>();
    pages = &life->pages;
  }
  void cleanup() {
    tester.reset();
    life.reset();
  }

  void pagesComeOneByOne() {
    make({.first = 30, .further = 20});
    QCOMPARE(list->stateName(), State::Loading);
    list->load();
    QCOMPARE(pages->asked.back().request.limit, 30);
    pages->give(page({1, 2}, u"a"_s));
    QVERIFY(list->canLoadMore() && !list->loadingMore());
    list->loadMore();
    list->loadMore();
    QVERIFY(list->loadingMore() && !list->refreshing());
    QCOMPARE(pages->asked.back().request.limit, 20);
    pages->give(failure(Kind::timedOut));
    QVERIFY(list->moreFailed() && !list->loadingMore());
    QCOMPARE(list->stateName(), State::Ready);
    QVERIFY(toasts().isEmpty());
    list->loadMore();
    // What moved between two pages comes twice and is there once.
    pages->give(page({2, 3}));
    QCOMPARE(shown(), (QStringList{u"t1"_s, u"t2"_s, u"t3"_s}));
    QVERIFY(!list->canLoadMore() && !list->moreFailed());
    list->loadMore();
    QCOMPARE(pages->cursors(), (QStringList{u"first"_s, u"a"_s, u"a"_s}));
  }

  void anotherQuestionLetsGoOfThePageUnderWay() {
    make({});
    list->load();
    pages->give(page({1, 2}, u"a"_s));
    list->loadMore();
    const QString before = list->question();
    auto late = pages->asked.back().answer;
    list->ask();
    QVERIFY(list->question() != before && list->refreshing() && !list->canLoadMore());
    late.give(page({3}));
    settle();
    QCOMPARE(shown().size(), 2);
    pages->give(page({7}, u"b"_s));
    QCOMPARE(shown(), QStringList{u"t7"_s});
    QCOMPARE(list->head()->nextCursor, u"b"_s);

    // What is shown does not stand under a question that it does not answer.
    list->ask();
    pages->give(failure(Kind::server));
    QVERIFY(shown().isEmpty() && !list->hasContent());
    QCOMPARE(list->stateName(), State::Error);
    list->load();
    QCOMPARE(list->stateName(), State::Loading);
    pages->give(page({}));
    QCOMPARE(list->stateName(), State::Empty);
  }

  void whatPagesSayOfTheWholeIsOfTheFirstThatSaysIt() {
    make({.whole = true});
    const auto saying = [](ThingPage page, std::optional<qint64> all, std::optional<qint64> archived) {
      if (all) page.counts = QMap<QString, qint64>{{u"all"_s, *all}};
      page.archivedCount = archived;
      return page;
    };
    list->load();
    pages->give(saying(page({1}, u"a"_s), 9, {}));
    pages->give(saying(page({2}, u"b"_s), 4, 5));
    pages->give(saying(page({3}), {}, 6));
    QCOMPARE(list->head()->counts->value(u"all"_s), 9);
    QCOMPARE(list->head()->archivedCount, 5);
    QVERIFY(!list->head()->nextCursor);
    list->load();
    pages->give(saying(page({1}, u"a"_s), 8, 7));
    QCOMPARE(list->head()->counts->value(u"all"_s), 8);
    QCOMPARE(list->head()->archivedCount, 7);
  }

  void readingAgainCostsWhatTheScreenNeeds() {
    make({});
    // It looks at every row at every step.
    tester.reset();
    list->load();
    const int many = 100'000, size = 200;
    for (int from = 0; from < many; from += size) {
      pages->give(page(counted(from, size), from + size < many ? QString::number(from + size) : QString()));
      list->loadMore();
    }
    QCOMPARE(list->readCount(), many);
    pages->asked.clear();
    list->see(50'190, 50'210);
    QVERIFY(pages->asked.empty());

    list->markStale();
    for (int answer = 0; answer < 2; ++answer) {
      const int from = pages->asked.back().request.cursor->toInt();
      pages->give(page(counted(from, size), QString::number(from + size), u"New"_s));
    }
    QCOMPARE(pages->cursors(), (QStringList{u"50000"_s, u"50200"_s}));
    QVERIFY(!list->refreshing());
    QCOMPARE(nameOf(50'205), u"New"_s);
    QCOMPARE(nameOf(10), u"Thing 10"_s);

    // The others are read when somebody comes there.
    list->see(5, 25);
    QCOMPARE(pages->asked.size(), size_t(3));
    pages->give(page(counted(0, size), u"200"_s, u"New"_s));
    QCOMPARE(nameOf(10), u"New"_s);
    list->see(6, 26);
    QCOMPARE(pages->asked.size(), size_t(3));
    QCOMPARE(list->readCount(), many);
  }

  void aReadingThatFailsIsToldAndWaits() {
    make({});
    list->load();
    pages->give(page({1, 2}, u"a"_s));
    list->load();
    QVERIFY(list->refreshing());
    pages->give(failure(Kind::server));
    QCOMPARE(toasts(), QStringList{u"Couldn’t load things"_s});
    QCOMPARE(shown().size(), 2);
    // Scrolling does not ask again and again.
    list->see(0, 1);
    QCOMPARE(pages->asked.size(), size_t(2));
    list->load();
    pages->give(failure(Kind::offline));
    QCOMPARE(list->stateName(), State::Offline);
    QVERIFY(list->hasContent());
    // An answer elsewhere says that there is a connection again.
    life->f.context->cameOnline();
    pages->give(page({1, 2, 3}));
    QCOMPARE(list->stateName(), State::Ready);
    QCOMPARE(shown().size(), 3);
  }

  void aPageWhoseRowsHaveAllGoneIsStillRead() {
    make({.keepsLost = true});
    list->load();
    pages->give(page({1, 2}, u"a"_s));
    // A new row pushes the last one down: it waits to be read again, and is gone before somebody sees it there.
    list->load();
    pages->give(page({3, 1}, u"b"_s));
    QCOMPARE(shown(), (QStringList{u"t3"_s, u"t1"_s, u"t2"_s}));
    list->takeOut({u"t2"_s});
    QVERIFY(list->canLoadMore());
    list->loadMore();
    QCOMPARE(pages->cursors().last(), u"b"_s);
    pages->give(page({4, 5}, u"c"_s));
    QCOMPARE(shown(), (QStringList{u"t3"_s, u"t1"_s, u"t4"_s, u"t5"_s}));

    // The same before rows that are seen.
    list->loadMore();
    pages->give(page({6}));
    QVERIFY(!list->canLoadMore());
    list->load();
    pages->give(page({3, 1}, u"b"_s));
    list->takeOut({u"t4"_s, u"t5"_s});
    list->see(0, 3);
    QCOMPARE(pages->cursors().last(), u"b"_s);
    pages->give(page({7}, u"c"_s));
    QCOMPARE(pages->cursors().last(), u"c"_s);
    pages->give(page({6}));
    QCOMPARE(shown(), (QStringList{u"t3"_s, u"t1"_s, u"t7"_s, u"t6"_s}));
  }

  void changesCrossReadings() {
    make({});
    list->load();
    pages->give(page({1, 2, 3}, u"a"_s));
    QSignalSpy structure(list->rows(), &QAbstractItemModel::layoutChanged);
    list->load();
    list->put(thing(1, u"Renamed"_s));
    list->takeOut({u"t2"_s});
    QCOMPARE(shown(), (QStringList{u"t1"_s, u"t3"_s}));
    // The answer was asked for before either.
    pages->give(page({1, 2, 3}, u"a"_s));
    QCOMPARE(shown(), (QStringList{u"t1"_s, u"t3"_s}));
    QCOMPARE(nameOf(1), u"Renamed"_s);
    list->load();
    pages->give(page({1, 2, 3}, u"a"_s, u"Later"_s));
    QCOMPARE(shown().size(), 3);
    QCOMPARE(nameOf(1), u"Later"_s);
    QVERIFY(!list->put(thing(9)));
    QCOMPARE(structure.count(), 0);
  }

  void aWholeListGoesOnByItself() {
    make({.whole = true});
    list->load();
    pages->give(page({}, u"a"_s));
    QCOMPARE(list->stateName(), State::Loading);
    pages->give(page({1, 2}, u"b"_s));
    QCOMPARE(list->stateName(), State::Ready);
    QVERIFY(list->loadingMore() && !list->refreshing());
    // Usable before the rest has come.
    QCOMPARE(shown().size(), 2);
    pages->give(failure(Kind::timedOut));
    QVERIFY(list->moreFailed() && shown().size() == 2);
    list->loadMore();
    // A service that gives the same place again is not asked for ever.
    pages->give(page({3}, u"b"_s));
    QVERIFY(!list->loadingMore() && !list->moreFailed() && !list->canLoadMore());
    QCOMPARE(pages->cursors(), (QStringList{u"first"_s, u"a"_s, u"b"_s, u"b"_s}));
  }

  void aWholeListIsReplacedPageByPage() {
    make({.whole = true});
    list->load();
    pages->give(page({1, 2, 3}, u"3"_s));
    pages->give(page({4, 5, 6}, u"6"_s));
    pages->give(page({7}));
    QSignalSpy removed(list->rows(), &QAbstractItemModel::rowsRemoved);
    list->load();
    QVERIFY(list->refreshing());
    // One has come at the top, 5 has gone; nothing goes before it has had every chance to come.
    pages->give(page({0, 1, 2}, u"3"_s));
    QCOMPARE(shown().size(), 8);
    pages->give(page({3, 4, 6}, u"6"_s));
    QVERIFY(shown().contains(u"t5"_s) && removed.isEmpty());
    pages->give(page({7}));
    QCOMPARE(shown(), (QStringList{u"t0"_s, u"t1"_s, u"t2"_s, u"t3"_s, u"t4"_s, u"t6"_s, u"t7"_s}));
    QVERIFY(!list->refreshing() && !list->loadingMore());

    // Cut off in the middle, the old rest stays, and the reading goes on from there.
    list->load();
    pages->give(page({0, 1, 2}, u"3"_s, u"New"_s));
    pages->give(failure(Kind::server));
    QVERIFY(list->moreFailed() && shown().size() == 7);
    // Whoever comes back to it is not to take the old rest for new.
    QVERIFY(list->needsLoad());
    list->loadMore();
    QCOMPARE(pages->cursors().last(), u"3"_s);
    pages->give(page({3, 4}, u"6"_s));
    // Begun anew while it is under way, it starts at the top.
    list->load();
    QCOMPARE(pages->cursors().last(), u"first"_s);
    pages->give(page({1}));
    QCOMPARE(shown(), QStringList{u"t1"_s});
  }

  void rowsAreFilteredAndOrdered() {
    QString wanted;
    make({.matches = [&wanted](const ThingRow& row) { return row.prepared().searched.contains(wanted); }});
    list->load();
    ThingPage first = page({1, 2, 3}, u"a"_s);
    pages->give(first);
    list->setOrder([](const ThingRow& a, const ThingRow& b) { return a.record().name > b.record().name; });
    QCOMPARE(shown(), (QStringList{u"t3"_s, u"t2"_s, u"t1"_s}));
    list->put(thing(1, u"Zebra"_s));
    settle();
    QCOMPARE(shown(), (QStringList{u"t1"_s, u"t3"_s, u"t2"_s}));
    const QString before = list->question();
    wanted = u"thing"_s;
    list->arrange();
    QVERIFY(list->question() != before);
    QCOMPARE(shown(), (QStringList{u"t3"_s, u"t2"_s}));
    list->loadMore();
    pages->give(page({4, 5}));
    QCOMPARE(shown(), (QStringList{u"t5"_s, u"t4"_s, u"t3"_s, u"t2"_s}));
    QCOMPARE(list->readCount(), 5);
    list->put(thing(4, u"Yak"_s));
    list->put(thing(1, u"Thing again"_s));
    settle();
    QCOMPARE(shown(), (QStringList{u"t1"_s, u"t5"_s, u"t3"_s, u"t2"_s}));
    list->setOrder({});
    QCOMPARE(shown(), (QStringList{u"t1"_s, u"t2"_s, u"t3"_s, u"t5"_s}));
  }

  void newsOfRecordsAreFollowed() {
    make({.whole = true});
    Changes& changes = life->f.context->changes();
    list->load();
    ThingPage first;
    first.items = {thing(1, u"One"_s, 5), thing(2, u"Two"_s, 5)};
    pages->give(first);
    changes.publish(thing(1, u"One anew"_s, 6), changes.stamp(), true);
    QCOMPARE(nameOf(1), u"One anew"_s);
    changes.gone<Thing>(u"t2"_s, changes.stamp());
    settle();
    QCOMPARE(shown(), QStringList{u"t1"_s});
    // A reading that is older than what is known changes nothing.
    list->load();
    pages->give(first);
    QCOMPARE(nameOf(1), u"One anew"_s);
    QCOMPARE(pages->asked.size(), size_t(2));
    // One that somebody made stands where the service says.
    changes.publish(thing(3), changes.stamp(), true);
    QCOMPARE(pages->asked.size(), size_t(3));
    first.items.append(thing(3));
    pages->give(first);
    QCOMPARE(shown(), (QStringList{u"t1"_s, u"t2"_s, u"t3"_s}));
    changes.stale<Thing>(u"t3"_s);
    QCOMPARE(pages->asked.size(), size_t(4));
  }

  void newsOfManyCostLittle() {
    make({.whole = true});
    tester.reset();
    list->setOrder([](const ThingRow& a, const ThingRow& b) { return a.record().name < b.record().name; });
    list->load();
    pages->give(page(counted(0, 10'000)));
    QSignalSpy told(list, &ResourceBase::valueChanged), moved(list->rows(), &QAbstractItemModel::rowsMoved);
    Changes& changes = life->f.context->changes();
    for (int number = 0; number < 200; ++number)
      changes.publish(thing(number * 7, u"Zebra %1"_s.arg(number)), changes.stamp(), true);
    changes.gone<Thing>(u"t1"_s, changes.stamp());
    QVERIFY(told.isEmpty());
    settle();
    QCOMPARE(told.count(), 1);
    QVERIFY(moved.count() <= 200);
    QCOMPARE(list->rows()->count(), 9'999);
    QVERIFY(std::ranges::is_sorted(list->rows()->records(), {}, [](const ThingRow& row) { return row.record().name; }));
  }

  void ticksAreOfRecords() {
    make({});
    RowSelection ticked(*list);
    list->load();
    pages->give(page({1, 2, 3, 4, 5}, u"a"_s));
    ticked.toggle(u"t4"_s);
    ticked.extendTo(u"t1"_s, u"t2"_s);
    QCOMPARE(ticked.ids(), (QStringList{u"t2"_s, u"t3"_s, u"t4"_s}));
    ticked.extendTo(u"t2"_s, u"t5"_s);
    QCOMPARE(ticked.count(), 4);
    ticked.toggleAll();
    QCOMPARE(ticked.count(), 5);
    ticked.toggleAll();
    QVERIFY(ticked.isEmpty());
    ticked.extendTo(u"t3"_s, u"t4"_s);
    QCOMPARE(ticked.ids(), (QStringList{u"t3"_s, u"t4"_s}));

    // A reading keeps them; what it does not bring any more is let go when the owner says so.
    list->load();
    pages->give(page({5, 4, 6}, u"a"_s));
    QSignalSpy changed(&ticked, &RowSelection::changed);
    ticked.prune();
    ticked.prune();
    QCOMPARE(ticked.ids(), QStringList{u"t4"_s});
    QCOMPARE(changed.count(), 1);
    ticked.takeFirst(300);
    QVERIFY(ticked.ids().isEmpty() && ticked.count() == 300 && ticked.first() == 300);
    ticked.toggle(u"t6"_s);
    QVERIFY(!ticked.first() && ticked.count() == 1);
  }

  void aStoreThatClosesEndsTheReading() {
    make({.whole = true});
    list->load();
    pages->give(page({1}, u"a"_s));
    life->store.close();
    QVERIFY(!list->loadingMore() && !list->refreshing());
    pages->give(page({2}));
    QCOMPARE(shown().size(), 1);
  }
};

QTEST_GUILESS_MAIN(PagedListTest)
#include "pagedlist_test.moc"
