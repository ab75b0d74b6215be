#include <malloc.h>

#include "app/accounts/AccountsStore.h"
#include "app/rampup/RampupStore.h"
#include "bench/Frame.h"
#include "bench/Metered.h"
#include "bench/Report.h"
#include "desktop/scenes/Stage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

void look(Stage& stage, AccountsStore& store, int rounds) {
  Times keystroke, untilFrame, sort;
  for (int round = 0; round < rounds; ++round) {
    for (const auto& text : {u"n"_s, u"no"_s, u"nor"_s, u"north"_s, u"nor"_s, u"no"_s, u"n"_s, QString()}) {
      QElapsedTimer timer;
      timer.start();
      store.setQuery(text);
      keystroke.ms.push_back(double(timer.nsecsElapsed()) / 1e6);
      frame(stage.window());
      untilFrame.ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
  }
  for (const auto& column : {u"account"_s, u"status"_s, u"sent"_s, u"health"_s})
    for (const bool down : {true, false}) sort.ms.push_back(milliseconds([&] { store.sort(column, down); }));
  store.sort({}, false);
  frame(stage.window());
  line("filter keystroke, store, model and bindings, 95th percentile", keystroke.at(0.95), "ms", "under 8");
  line("filter keystroke until its frame is drawn, median", untilFrame.median(), "ms");
  line("sort, median", sort.median(), "ms");
}

void change(Stage& stage, AccountsStore& store, int rounds) {
  Times all, one;
  const auto& rows = store.list()->rows()->records();
  for (int round = 0; round < rounds; ++round) {
    all.ms.push_back(milliseconds([&] {
      store.selection()->toggleAll();
      frame(stage.window());
    }));
    Mailbox changed = rows[size_t(round) * 7919 % rows.size()].record();
    changed.dailyCap = 1000 + round;
    one.ms.push_back(milliseconds([&] { store.list()->put(changed); }));
    frame(stage.window());
  }
  store.selection()->clear();
  line("select all until its frame is drawn, median", all.median(), "ms", "under 16");
  line("one changed record taken over, figures told, median", one.median(), "ms");
}

void refresh(Stage& stage, AccountsStore& store) {
  store.refresh();
  stage.until([&] { return !store.list()->refreshing() && !store.list()->loadingMore(); }, u"the whole list"_s);
}

void readAgain(Stage& stage, AccountsStore& store, const Metered& service) {
  Held held(service);
  QElapsedTimer timer;
  timer.start();
  double first = 0;
  QObject::connect(store.list(), &ResourceBase::valueChanged, &held, [&] {
    if (first > 0) return;
    frame(stage.window());
    first = double(timer.nsecsElapsed()) / 1e6;
  });
  refresh(stage, store);
  line("read again whole, the sample service in the same thread", double(timer.nsecsElapsed()) / 1e6, "ms");
  line("its first page until it is drawn", first, "ms", "under 100");
  line("longest that the main thread was held, the service apart", held.longest, "ms", "under 16");
}

void readSorted(Stage& stage, AccountsStore& store, const Metered& service) {
  store.sort(u"account"_s, false);
  frame(stage.window());
  Held held(service);
  refresh(stage, store);
  line("the same while the list is sorted by account", held.longest, "ms", "under 16");
  store.sort({}, false);
}

void openAhead(Stage& stage, int rounds) {
  stage.app().router()->open(Page::rampup);
  auto& store = *stage.app().session()->store<RampupStore>();
  stage.until([&] { return store.list()->readCount() > 0 && !store.list()->canLoadMore(); }, u"the roadmaps"_s);
  stage.settle();
  Times opened;
  for (int round = 0; round < rounds; ++round) {
    const QString id = store.list()->shownIds().value(round * 7);
    store.details()->prefetch(id);
    stage.until([&] { return store.details()->find(id) != nullptr; }, u"the account ahead"_s);
    opened.ms.push_back(milliseconds([&] {
      store.open(id);
      frame(stage.window());
    }));
    stage.app().router()->open(Page::rampup);
    stage.settle();
  }
  line("an account’s roadmap, read ahead, until drawn, median", opened.median(), "ms", "under 50");
  line("the same, slowest", opened.at(1), "ms");
}

/// In megabytes, by the allocator's own count.
double inUse() {
  const auto counted = mallinfo2();
  return double(counted.uordblks + counted.hblkhd) / 1e6;
}

void waitForAll(Stage& stage, AccountsStore& store) {
  stage.until([&] { return store.list()->readCount() > 0 && !store.list()->canLoadMore(); }, u"the accounts"_s);
}

/// What the page takes with so many accounts, all of them read; the sample's own records apart.
double heldBy(QQmlEngine& engine, int accounts) {
  SystemClock clock;
  demo::DemoService sample(clock, 1, {.mailboxes = accounts});
  demo::DemoTransport door(sample);
  Stage stage(engine, {.service = &door, .session = StoredSession::from(sample.signInDirectly(), clock.now())});
  if (!stage.isReady()) return 0;
  stage.settle();
  const double before = inUse();
  stage.app().router()->open(Page::accounts);
  stage.settle();
  waitForAll(stage, *stage.app().session()->store<AccountsStore>());
  stage.settle();
  return inUse() - before;
}

}  // namespace

bool accounts(Scale scale) {
  const int count = scale.of(10'000);
  std::printf("%d email accounts on their page\n", count);
  QQmlEngine engine;
  ClientWindow::prepare(engine);
  SystemClock clock;
  demo::DemoService sample(clock, 1, {.mailboxes = count});
  demo::DemoTransport door(sample);
  Metered service(door);
  Stage stage(engine, {.service = &service, .session = StoredSession::from(sample.signInDirectly(), clock.now())});
  if (!stage.isReady()) return false;
  stage.app().router()->open(Page::accounts);
  frame(stage.window());
  auto* store = stage.app().session()->store<AccountsStore>();
  if (!store) return false;
  {
    const Held held(service);
    waitForAll(stage, *store);
    stage.settle();
    line("longest that reading the first time held the main thread", held.longest, "ms", "under 16");
  }
  const int rounds = scale.quick ? 1 : 20;
  look(stage, *store, rounds);
  change(stage, *store, rounds);
  readAgain(stage, *store, service);
  readSorted(stage, *store, service);
  openAhead(stage, rounds);
  const double few = heldBy(engine, 0), many = heldBy(engine, count);
  line("memory over the page of the small sample", many - few, "MB", "under 40");
  return true;
}

}  // namespace orv::bench
