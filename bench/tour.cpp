#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/CampaignsStore.h"
#include "bench/Frame.h"
#include "bench/Report.h"
#include "desktop/scenes/Stage.h"
#include "desktop/services/StallRecorder.h"
#include "desktop/services/Turns.h"
#include "kit/api/APIClient.h"
#include "kit/session/authRequests.h"
#include "tests/service/ServiceProcess.h"
#include "tests/support/await.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv::bench {
namespace {

/// Goes to places one after the other and says of each how long it held the window at most.
class Tourist {
 public:
  explicit Tourist(Stage& stage) : m_stage(stage), m_turns(*QAbstractEventDispatcher::instance()) {}

  void visit(const QString& place, const std::function<void()>& go) {
    m_turns.reset();
    // As a click does: from within the event loop.
    QMetaObject::invokeMethod(
        &m_stage.app(), [&go] { go(); }, Qt::QueuedConnection);
    m_stage.settle();
    const double ms = double(m_turns.longest().count()) / 1000;
    line(qPrintable(place), ms, "ms", ms > 33 ? "over 33" : "");
    longest = std::max(longest, ms);
  }
  double longest = 0;

 private:
  Stage& m_stage;
  Turns m_turns;
};

void goRound(Stage& stage, Tourist& tourist, const QString& how) {
  Router& router = *stage.app().router();
  for (const auto& info : Pages::all())
    tourist.visit(info.title + how, [&router, page = info.page] { router.open(page); });
}

}  // namespace

bool tour(Scale scale) {
  const auto times = [&scale](int full) { return QString::number(scale.of(full)); };
  const QString accounts = times(10'000), leads = times(100'000), threads = times(5'000);
  std::printf("Every page with %s accounts, %s leads and %s conversations, over HTTP\n", qPrintable(accounts),
              qPrintable(leads), qPrintable(threads));
  const test::ServiceProcess service({u"--mailboxes"_s, accounts, u"--leads"_s, leads, u"--threads"_s, threads});
  APIClient api({service.url()}, ClientIdentity::current(), APIClient::Limits());
  const SystemClock clock;
  const auto session = StoredSession::from(
      test::await(api.send(Requests::signInWithPassword(u"maren@northgate.example"_s, u"northgate-demo"_s), {}, {})),
      clock.now());
  QQmlEngine engine;
  ClientWindow::prepare(engine);
  Stage stage(engine, {.service = &api, .session = session});
  if (!stage.isReady()) return false;

  Tourist tourist(stage);
  const StallRecorder recorder(*QAbstractEventDispatcher::instance(), 33ms);
  goRound(stage, tourist, u", loaded"_s);
  const auto* campaigns = stage.app().session()->store<CampaignsStore>()->list()->value();
  if (!campaigns || campaigns->items.isEmpty()) {
    std::printf("  The campaigns were not loaded.\n");
    return false;
  }
  const QString first = campaigns->items.first().id;
  tourist.visit(u"A campaign"_s, [&] { stage.app().router()->openCampaign(first); });
  auto* campaign = stage.app().session()->item<CampaignStore>(Page::campaigns, first);
  tourist.visit(u"Its leads"_s, [campaign] { campaign->setProperty("tab", u"leads"_s); });
  goRound(stage, tourist, u", shown again"_s);
  line("longest that the window was held", tourist.longest, "ms", "under 33");
  line("held for over 33 ms, as the stall recorder counts", recorder.recorded(), "", "0");
  return true;
}

}  // namespace orv::bench
