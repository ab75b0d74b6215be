#include <QThreadPool>

#include "app/setup/SetupProjectStore.h"
#include "bench/Frame.h"
#include "bench/Report.h"
#include "desktop/scenes/Stage.h"
#include "desktop/services/Turns.h"
#include "kit/models/setup/setupRequests.h"
#include "kit/models/setup/setupRun.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

constexpr int inboxesOfDomain = 5;

/// Each round, every third inbox has come further.
QByteArray runOf(int inboxes, int round) {
  static const QStringList states{u"waiting"_s, u"gmail"_s, u"settings"_s, u"exists"_s};
  SetupRun run;
  run.id = u"sr1"_s;
  run.mode = SetupMode(u"new"_s);
  run.templateId = u"sp1"_s;
  run.createdAt = u"2026-11-21T12:00:00Z"_s;
  run.control = RunControl(u"running"_s);
  for (int i = 0; i < inboxes; ++i) {
    const QString domain = u"d%1.example"_s.arg(i / inboxesOfDomain);
    if (i % inboxesOfDomain == 0) run.domains.append({domain, u"admin@"_s + domain, {}});
    SetupRow row;
    row.id = u"r%1"_s.arg(i);
    row.domain = domain;
    row.role = InboxRole(u"sender"_s);
    row.address = u"person%1@"_s.arg(i % inboxesOfDomain) + domain;
    row.state = RowState(states[i % 3 == round % 3 ? (round + i) % states.size() : i % states.size()]);
    row.updatedAt = u"2026-11-21T12:%1:00Z"_s.arg(round % 60, 2, 10, '0'_L1);
    run.rows.append(row);
  }
  return encodeJSON(run);
}

/// The sample, but for the one run; that is answered, as by the network, from another thread.
class RunService final : public APITransport {
 public:
  explicit RunService(int inboxes) : m_service(m_clock), m_sample(m_service), m_inboxes(inboxes) {}
  ~RunService() override { QThreadPool::globalInstance()->waitForDone(); }

  StoredSession session() { return StoredSession::from(m_service.signInDirectly(), m_clock.now()); }
  int polls() const { return m_polls; }

  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override {
    static const QStringList ofTheRun{Requests::latestSetupRun(u"sp1"_s).label(),
                                      Requests::getSetupRun(u"sr1"_s).label()};
    if (!ofTheRun.contains(call.request.label())) return m_sample.exchange(std::move(call), std::move(receiver));
    ++m_polls;
    QThreadPool::globalInstance()->start([receiver = std::move(receiver), run = runOf(m_inboxes, m_polls)] {
      receiver->receive(HTTPAnswer{200, {}, run});
    });
    return std::make_unique<Exchange>();
  }

 private:
  SystemClock m_clock;
  demo::DemoService m_service;
  demo::DemoTransport m_sample;
  int m_inboxes;
  int m_polls = 0;
};

}  // namespace

bool runs(Scale scale) {
  const int inboxes = scale.of(500);
  std::printf("A run of %d inboxes, followed on its page\n", inboxes);
  QQmlEngine engine;
  ClientWindow::prepare(engine);
  RunService service(inboxes);
  Stage stage(engine, {.service = &service, .session = service.session()});
  if (!stage.isReady()) return false;
  stage.app().router()->openItem(Page::inboxSetup, u"sp1"_s);
  stage.settle();
  auto* store = stage.app().session()->item<SetupProjectStore>(Page::inboxSetup, u"sp1"_s);
  store->setTab(u"run"_s);
  stage.settle();
  if (store->runRows()->rowCount() < inboxes) {
    std::printf("  The run was not loaded.\n");
    return false;
  }
  Times turns;
  Turns clock(*QAbstractEventDispatcher::instance());
  for (int round = 0; round < (scale.quick ? 1 : 20); ++round) {
    const int before = service.polls();
    clock.reset();
    stage.until([&] { return service.polls() > before && stage.transport().isIdle(); }, u"the next poll"_s);
    frame(stage.window());
    turns.ms.push_back(double(clock.longest().count()) / 1000);
  }
  line("longest that a poll's answer holds the window, median", turns.median(), "ms", "under 16");
  line("the same, slowest", turns.at(1), "ms", "under 16");
  return true;
}

}  // namespace orv::bench
