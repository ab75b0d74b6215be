#include "app/inbox/InboxStore.h"
#include "bench/Frame.h"
#include "bench/Metered.h"
#include "bench/Report.h"
#include "desktop/scenes/Stage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

void move(Stage& stage, InboxStore& store, const Metered& service, int rounds) {
  Times ahead, archived, read;
  for (int round = 0; round < rounds; ++round) {
    ahead.ms.push_back(service.apart([&] {
      store.step(1);
      frame(stage.window());
    }));
    stage.settle();
  }
  for (int round = 0; round < rounds; ++round) {
    archived.ms.push_back(service.apart([&] {
      store.act(u"archive"_s);
      frame(stage.window());
    }));
    stage.settle();
  }
  for (int round = 0; round < rounds; ++round) {
    const QStringList ids = store.threads()->list()->shownIds();
    // Not the next one, nor one of those that are kept.
    store.open(ids[(ids.indexOf(store.openId()) + 11) % ids.size()]);
    QElapsedTimer timer;
    const auto answered = QObject::connect(store.conversation()->detail(), &ResourceBase::valueChanged, &stage.app(),
                                           [&timer] { timer.start(); });
    stage.until([&] { return store.conversation()->detail()->hasContent(); }, u"the conversation"_s);
    frame(stage.window());
    QObject::disconnect(answered);
    if (timer.isValid()) read.ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    stage.settle();
  }
  std::printf("  the sample service’s share apart, which answers in the same thread\n");
  line("the next conversation, read ahead, until drawn, 95th perc.", ahead.at(0.95), "ms", "under 16");
  line("the same, median", ahead.median(), "ms");
  line("archiving until the next one is drawn, 95th percentile", archived.at(0.95), "ms", "under 50");
  line("another one from its answer until drawn, 95th percentile", read.at(0.95), "ms", "under 50");
}

void scroll(Stage& stage, InboxStore& store, QQuickItem& rows, int rounds) {
  auto& list = *store.threads()->list();
  while (list.canLoadMore()) {
    const int before = list.readCount();
    list.loadMore();
    stage.until([&] { return list.readCount() > before || !list.canLoadMore(); }, u"a page further"_s);
  }
  stage.settle();
  Times scrolled;
  const double most = std::max(0.0, rows.property("contentHeight").toDouble() - rows.height());
  for (int round = 0; round < rounds; ++round) {
    const double at = std::fmod(round * 437.0, std::max(1.0, most));
    scrolled.ms.push_back(milliseconds([&] {
      rows.setProperty("contentY", at);
      frame(stage.window());
    }));
  }
  stage.settle();
  std::printf("  %d conversations in the list\n", list.readCount());
  line("a step of scrolling until its frame, 95th percentile", scrolled.at(0.95), "ms", "under 12");
  line("the same, slowest", scrolled.at(1), "ms");
}

void write(Stage& stage, InboxStore& store, int rounds) {
  store.act(u"reply"_s);
  stage.settle();
  Times keystroke;
  for (int round = 0; round < rounds; ++round)
    keystroke.ms.push_back(milliseconds([&] {
      stage.type(u"a"_s);
      frame(stage.window());
    }));
  const Writing* reply = store.conversation()->reply();
  if (!reply || reply->body().size() != rounds) throw StageTrouble(u"what was typed did not reach the reply"_s);
  line("keystroke in the composer until its frame, 95th percentile", keystroke.at(0.95), "ms", "under 8");
}

void fold(Stage& stage, InboxStore& store, QQuickItem& rows, demo::DemoService& sample, const Metered& service) {
  auto& list = *store.threads()->list();
  const double rowHeight = rows.property("contentHeight").toDouble() / std::max(1, list.shownCount());
  rows.setProperty("contentY", 20 * rowHeight);
  stage.settle();
  const auto seen = [&] { return list.shownIds().value(rows.property("firstRow").toInt()); };
  const QString before = seen();
  constexpr int news = 50;
  for (int i = 0; i < news; ++i) sample.bringReply(u"northgate"_s, u"interested"_s);
  Held held(service);
  store.threads()->refresh();
  stage.until([&] { return !list.refreshing(); }, u"the first page"_s);
  frame(stage.window());
  std::printf("  %d conversations answered while the list stood at its %dth row\n", news, 20);
  line("longest that reading them held the window, service apart", held.longest, "ms", "under 16");
  line("rows by which the first one in sight moved",
       double(std::abs(list.shownIds().indexOf(before) - rows.property("firstRow").toInt())), "", "0");
}

}  // namespace

bool inbox(Scale scale) {
  const int count = std::max(100, scale.of(5000)), rounds = scale.quick ? 2 : 100;
  std::printf("The inbox with %d conversations\n", count);
  QQmlEngine engine;
  ClientWindow::prepare(engine);
  SystemClock clock;
  demo::DemoService sample(clock, 1, {.threads = count});
  demo::DemoTransport door(sample);
  Metered service(door);
  Stage stage(engine, {.service = &service, .session = StoredSession::from(sample.signInDirectly(), clock.now())});
  if (!stage.isReady()) return false;
  stage.app().router()->open(Page::inbox);
  stage.settle();
  auto& store = *stage.app().session()->store<InboxStore>();
  QQuickItem* const rows = rowsIn(stage.window().contentItem());
  if (!rows || store.threads()->list()->readCount() == 0) {
    std::printf("  The conversations are not on the screen.\n");
    return false;
  }
  store.step(1);
  stage.settle();
  try {
    move(stage, store, service, rounds);
    scroll(stage, store, *rows, rounds);
    fold(stage, store, *rows, sample, service);
    write(stage, store, rounds);
  } catch (const StageTrouble& trouble) {
    std::printf("  %s\n", trouble.what());
    return false;
  }
  return true;
}

}  // namespace orv::bench
