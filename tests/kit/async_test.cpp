#include <QTest>

#include "kit/async/ManualClock.h"
#include "kit/async/OneShot.h"
#include "kit/async/TaskScope.h"
#include "tests/support/await.h"

using namespace orv;
using namespace orv::test;
using namespace std::chrono_literals;

namespace {

/// A local whose frame must neither be forgotten nor destroyed twice.
class Counted {
 public:
  Counted() { ++alive; }
  explicit Counted(std::function<void()> atEnd) : Counted() { m_atEnd = std::move(atEnd); }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  ~Counted() {
    --alive;
    if (m_atEnd) m_atEnd();
  }
  static inline int alive = 0;

 private:
  std::function<void()> m_atEnd;
};

/// What the tasks below work on. `act` runs inside the task, right after its `actAt`th suspension.
struct World {
  ManualClock clock;
  int steps = 0;
  int actAt = -1;
  std::function<void()> act;
  bool ended = false;
};

Task<void> step(World* world) {
  const Counted local;
  co_await world->clock.sleep(1ms);
  if (++world->steps == world->actAt) world->act();
}

Task<int> deeper(World* world, int levels) {
  const Counted local;
  if (levels == 0) {
    co_await step(world);
    co_return 1;
  }
  const int below = co_await deeper(world, levels - 1);
  const Counted later;
  co_await step(world);
  co_return below + 1;
}

Task<void> failing(World* world) {
  const Counted local;
  co_await step(world);
  throw std::runtime_error("failed");
}

/// Waits at every depth: as a leaf, between two nested tasks, in a loop, and after a caught failure.
Task<void> whole(World* world) {
  const Counted local;
  int sum = 0;
  for (int levels = 0; levels < 3; ++levels) sum += co_await deeper(world, levels);
  try {
    co_await failing(world);
  } catch (const std::runtime_error&) {
    ++sum;
  }
  co_await step(world);
  world->ended = sum == 7;
}
constexpr int suspensionsOfWhole = 8;

Task<void> sleepOnce(World* world) {
  const Counted local;
  co_await world->clock.sleep(1ms);
}

Task<void> waitFor(OneShot<int> shot, int* got) {
  const Counted local;
  *got = co_await shot.wait();
}

Task<int> rethrowing(World* world, int levels) {
  const Counted local;
  if (levels == 0) {
    co_await failing(world);
  } else {
    try {
      co_return co_await rethrowing(world, levels - 1);
    } catch (const std::runtime_error& error) {
      throw std::logic_error(std::string(error.what()) + " below");
    }
  }
  co_return 0;
}

Task<int> throwingAtOnce() {
  const Counted local;
  throw std::runtime_error("at once");
  co_return 0;
}

Task<int> immediate(int value) { co_return value; }

Task<int> addUp(int times) {
  int sum = 0;
  for (int i = 0; i < times; ++i) sum += co_await immediate(1);
  co_return sum;
}

/// How a task is taken away.
struct Owners {
  std::unique_ptr<TaskScope> scope = std::make_unique<TaskScope>();
  TaskSlot slot;
  OneShot<int> replacement;
  int replaced = 0;

  void start(const QByteArray& way, Task<void> task) {
    if (way.startsWith("slot"))
      slot.start(std::move(task));
    else
      scope->start(std::move(task));
  }
  void drop(const QByteArray& way) {
    if (way == "scope cancelled") scope->cancel();
    if (way == "scope destroyed") scope.reset();
    if (way == "slot cancelled") slot.cancel();
    if (way == "slot started anew") slot.start(waitFor(replacement, &replaced));
  }
};

}  // namespace

class AsyncTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void cleanup() { QCOMPARE(Counted::alive, 0); }

  void droppedAtEverySuspension_data() {
    QTest::addColumn<QByteArray>("way");
    QTest::addColumn<bool>("fromInside");
    for (const char* way : {"scope cancelled", "scope destroyed", "slot cancelled", "slot started anew"})
      for (const bool fromInside : {false, true})
        QTest::addRow("%s%s", way, fromInside ? " by the task itself" : "") << QByteArray(way) << fromInside;
  }
  void droppedAtEverySuspension() {
    QFETCH(QByteArray, way);
    QFETCH(bool, fromInside);
    for (int at = fromInside ? 1 : 0; at < suspensionsOfWhole; ++at) {
      World world;
      Owners owners;
      if (fromInside) {
        world.actAt = at;
        world.act = [&] { owners.drop(way); };
      }
      owners.start(way, whole(&world));
      for (int i = 0; i < at; ++i) world.clock.advance(1ms);
      QCOMPARE(world.steps, at);
      if (!fromInside) owners.drop(way);

      QCOMPARE(world.clock.running(), 0);
      QCOMPARE(Counted::alive, way == "slot started anew" ? 1 : 0);
      world.clock.advance(1h);
      QCOMPARE(world.steps, at);
      QVERIFY(!world.ended);
      owners.replacement.give(1);
      QCOMPARE(owners.replaced, way == "slot started anew" ? 1 : 0);
      QVERIFY(owners.slot.isIdle());
    }
  }

  void endsAndLeavesItsOwner() {
    World world;
    TaskScope scope;
    scope.start(whole(&world));
    for (int i = 0; i < suspensionsOfWhole; ++i) {
      QVERIFY(!scope.isIdle());
      world.clock.advance(1ms);
    }
    QVERIFY(world.ended);
    QVERIFY(scope.isIdle());
  }

  void neverStartedIsJustForgotten() {
    World world;
    { auto task = whole(&world); }
    { auto task = deeper(&world, 3); }
    QCOMPARE(world.clock.running(), 0);
  }

  void dropComesBackFromALocalsEnd() {
    World world;
    TaskSlot slot;
    auto scope = std::make_unique<TaskScope>();
    const auto task = [](World* inside, std::function<void()> atEnd) -> Task<void> {
      const Counted local(std::move(atEnd));
      co_await step(inside);
    };
    scope->start(task(&world, [&scope] { scope->cancel(); }));
    scope->start(task(&world, [&] { scope->start(sleepOnce(&world)); }));
    scope->cancel();
    QCOMPARE(Counted::alive, 1);
    scope->start(task(&world, [scope = scope.get(), &world] { scope->start(sleepOnce(&world)); }));
    scope.reset();
    QCOMPARE(Counted::alive, 0);

    slot.start(task(&world, [&] { slot.start(sleepOnce(&world)); }));
    slot.start(sleepOnce(&world));
    QCOMPARE(world.clock.running(), 1);
    world.clock.advance(1ms);
    QVERIFY(slot.isIdle());
    QCOMPARE(world.steps, 0);
  }

  void failuresRiseThroughEveryLevel() {
    World world;
    TaskScope scope;
    std::optional<int> value;
    std::exception_ptr failure;
    scope.start(keepOutcome(rethrowing(&world, 3), &value, &failure));
    world.clock.advance(1ms);
    QVERIFY(scope.isIdle() && !value && failure);
    QVERIFY_THROWS_EXCEPTION(std::logic_error, std::rethrow_exception(failure));
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, await(throwingAtOnce()));

    QTest::ignoreMessage(QtCriticalMsg, "A task ended with a failure that nobody handles: failed");
    scope.start(failing(&world));
    world.clock.advance(1ms);
    QVERIFY(scope.isIdle());
  }

  void shotIsGivenBeforeAfterAndTwice() {
    TaskScope scope;
    int before = 0, after = 0;
    OneShot<int> early, late;
    early.give(1);
    early.give(2);
    scope.start(waitFor(early, &before));
    QCOMPARE(before, 1);

    scope.start(waitFor(late, &after));
    QVERIFY(!late.isGiven());
    late.give(3);
    late.give(4);
    QCOMPARE(after, 3);
    QVERIFY(scope.isIdle());
  }

  void eitherHalfOfAShotMayGoFirst() {
    int got = 0;
    OneShot<int> left;
    {
      TaskScope scope;
      scope.start(waitFor(left, &got));
    }
    left.give(1);
    QCOMPARE(got, 0);

    TaskScope scope;
    { scope.start(waitFor(OneShot<int>(), &got)); }
    QVERIFY(!scope.isIdle());
  }

  /// The old task goes on until it suspends, and comes to wait for what the new one waits for already.
  void aDroppedWaiterLeavesTheNextOneWaiting() {
    World world;
    TaskSlot slot;
    OneShot<int> shot;
    int dropped = 0, next = 0;
    const auto task = [](World* inside, OneShot<int> shared, int* got) -> Task<void> {
      co_await step(inside);
      co_await waitFor(shared, got);
    };
    world.actAt = 1;
    world.act = [&] { slot.start(waitFor(shot, &next)); };
    slot.start(task(&world, shot, &dropped));
    world.clock.advance(1ms);
    shot.give(5);
    QCOMPARE(next, 5);
    QCOMPARE(dropped, 0);
  }

  /// A task answers the question that another waits for, and that one ends the first.
  void droppedByItsOwnContinuation() {
    World world;
    OneShot<int> answer;
    int got = 0;
    TaskScope scope;
    auto asker = std::make_unique<TaskScope>();
    const auto ask = [](OneShot<int> shot, int* into, std::unique_ptr<TaskScope>* other) -> Task<void> {
      co_await waitFor(shot, into);
      other->reset();
    };
    world.actAt = 2;
    world.act = [&] { answer.give(7); };
    asker->start(whole(&world));
    scope.start(ask(answer, &got, &asker));
    for (int i = 0; i < 4; ++i) world.clock.advance(1ms);
    QCOMPARE(got, 7);
    QCOMPARE(world.steps, 2);
    QVERIFY(scope.isIdle() && !asker);
  }

  void twoThousandAtOnce() {
    World world;
    int got = 0;
    OneShot<int> shot;
    auto kept = std::make_unique<TaskScope>();
    TaskScope cancelled;
    for (int i = 0; i < 2000; ++i) (i % 2 ? *kept : cancelled).start(whole(&world));
    for (int i = 0; i < 2000; ++i) cancelled.start(waitFor(i ? OneShot<int>() : shot, &got));
    QCOMPARE(world.clock.running(), 2000);
    world.clock.advance(1ms);
    QCOMPARE(world.steps, 2000);
    shot.give(1);
    cancelled.cancel();
    QCOMPARE(world.clock.running(), 1000);
    world.clock.advance(1s);
    QCOMPARE(world.steps, 2000 + 1000 * (suspensionsOfWhole - 1));
    QVERIFY(kept->isIdle() && cancelled.isIdle());
    QCOMPARE(got, 1);
  }

  void endlessAnswersAtOnceTakeNoStack() { QCOMPARE(await(addUp(300000)), 300000); }

  void systemClockWaitsAndLetsGo() {
    SystemClock clock;
    const QDateTime before = clock.now();
    QCOMPARE(before.timeSpec(), Qt::UTC);
    TaskScope scope;
    scope.start(clock.sleep(1h));
    await(clock.sleep(2ms));
    QVERIFY(clock.now() >= before.addMSecs(2));
    QVERIFY(!scope.isIdle());
  }
};

QTEST_GUILESS_MAIN(AsyncTest)
#include "async_test.moc"
