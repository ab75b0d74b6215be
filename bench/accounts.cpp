#include "app/accounts/AccountsStore.h"
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
  store.refresh();
  stage.until([&] { return !store.list()->refreshing() && !store.list()->loadingMore(); }, u"the whole list"_s);
  line("read again whole, the sample service in the same thread", double(timer.nsecsElapsed()) / 1e6, "ms");
  line("its first page until it is drawn", first, "ms", "under 100");
  line("longest that the main thread was held, the service apart", held.longest, "ms", "under 16");
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
  stage.settle();
  auto* store = stage.app().session()->store<AccountsStore>();
  if (!store) return false;
  stage.until([&] { return store->list()->readCount() > 0 && !store->list()->canLoadMore(); }, u"the accounts"_s);
  const int rounds = scale.quick ? 1 : 20;
  look(stage, *store, rounds);
  change(stage, *store, rounds);
  readAgain(stage, *store, service);
  return true;
}

}  // namespace orv::bench
