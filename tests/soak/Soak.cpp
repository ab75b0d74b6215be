#include "tests/soak/Soak.h"

#include <malloc.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <cstdio>

#include "app/campaigns/CampaignsStore.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "tests/soak/Comparison.h"
#include "tests/soak/Ring.h"
#include "tests/support/await.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#include <sanitizer/allocator_interface.h>
#include <sanitizer/common_interface_defs.h>
#define ORVELLA_SANITIZED
#endif
#endif

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv::soak {
namespace {

constexpr int quarters = 4;
constexpr int calmPresses = 150;
/// Longer than anything waits that a person is shown: a decision that can be taken back, a poll.
constexpr auto allWaits = 75s;
/// Of a page that was opened.
constexpr auto loadWaits = 1s;
constexpr int linesPrinted = 60;
constexpr auto longestTurn = 100ms;
constexpr double mostGrowth = 0.05;
/// Of somebody's open workspace: it keeps what stands on pages that were not opened sooner.
constexpr double mostGrowthOpen = 0.25;

#ifdef ORVELLA_SANITIZED
constexpr bool isSanitized = true;
qint64 heapInUse() { return qint64(__sanitizer_get_current_allocated_bytes()); }
void printHolders() { __sanitizer_print_memory_profile(95, 200); }
#else
constexpr bool isSanitized = false;
qint64 heapInUse() { return qint64(mallinfo2().uordblks); }
void printHolders() {}
#endif

/// The stores that live, and what keeps them.
void printStores(const AppModel& app) {
  for (const auto* session : app.findChildren<WorkspaceSession*>())
    for (const auto* store : session->findChildren<Store*>(Qt::FindDirectChildrenOnly))
      std::fprintf(stderr, "%s %s%s %s\n", qPrintable(session->slug()), store->metaObject()->className(),
                   store->isShown() ? ", shown:" : ":", qPrintable(store->unsavedWork().join(u' ')));
}

qint64 resident() {
  QFile file(u"/proc/self/statm"_s);
  if (!file.open(QIODevice::ReadOnly)) return 0;
  return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

}  // namespace

Soak::Soak(const SoakPlan& plan)
    : m_plan(plan), m_random(plan.seed), m_service(plan.seed), m_turns(*QAbstractEventDispatcher::instance()) {
  m_client = std::make_unique<SoakClient>(m_clock, m_service.url(), m_folder.path());
  m_client->transport().onRequest = [this](const QString& request) {
    ++m_requests;
    // What a comparison asks for would push out what led to it.
    if (!m_other) ring().add(u"      "_s + request);
  };
  m_hand = std::make_unique<Hand>(*m_client, m_random.next(), makeFiles());
}

QStringList Soak::makeFiles() {
  const QMap<QString, QByteArray> contents{
      {u"people.csv"_s, "email,first name,company\nnora@lund.example,Nora,Lund\nper@lund.example,Per,Lund\n"},
      {u"broken.csv"_s, "email;\"name\nnobody"},
      {u"empty.csv"_s, ""}};
  QStringList paths;
  for (auto file = contents.begin(); file != contents.end(); ++file) {
    paths.append(m_folder.filePath(file.key()));
    QFile written(paths.last());
    if (!written.open(QIODevice::WriteOnly) || written.write(file.value()) < 0) qFatal("No file can be written");
  }
  paths.append(m_folder.filePath(u"gone.csv"_s));
  return paths;
}

bool Soak::run() {
  pump(50ms);
  for (int quarter = 1; quarter <= quarters; ++quarter) {
    restless(m_plan.real / quarters, m_plan.simulated / quarters);
    mend();
    comeBack();
    rest(allWaits);
    compare(u"quarter %1, after “Refresh”"_s.arg(quarter), true);
    if (quarter == 1 && m_plan.compares) proveComparison();
    m_other.reset();
    calm(calmPresses);
    comeBack();
    rest(allWaits);
    compare(u"quarter %1, by itself"_s.arg(quarter), false);
    measure();
  }
  judge();
  return m_failures.isEmpty();
}

void Soak::restless(std::chrono::milliseconds real, std::chrono::milliseconds simulated) {
  m_service.setFaults(m_plan.faults);
  QElapsedTimer timer;
  timer.start();
  auto left = simulated;
  while (!timer.hasExpired(real.count())) {
    step();
    if (m_random.chance(0.02)) trouble();
    // As much of the hour as of the minute is over, in steps of their own lengths.
    const auto due = simulated * timer.elapsed() / std::max<qint64>(1, real.count()) - (simulated - left);
    const std::chrono::milliseconds passing(m_random.below(std::max<qint64>(1, 2 * due.count())));
    left -= passing;
    pass(passing, true);
  }
  pass(std::max(0ms, left), true);
}

/// Without faults, and with a service that does nothing by itself.
void Soak::calm(int presses) {
  for (int i = 0; i < presses; ++i) {
    step();
    pass(std::chrono::milliseconds(m_random.below(2000)), false);
    if (m_random.chance(0.5)) rest(loadWaits);
  }
}

void Soak::step() {
  QMetaObject::invokeMethod(
      m_client.get(),
      [this] {
        const QString what = m_hand->press();
        if (what.isEmpty()) return;
        ++m_pressed;
        ring().add(u"%1 s  %2"_s.arg(double(m_passed.count()) / 1000, 0, 'f', 1).arg(what));
        m_turns.setDoing(what);
        m_client->look();
      },
      Qt::QueuedConnection);
  pump(beat);
}

void Soak::trouble() {
  ++m_troubles;
  QString what;
  switch (m_random.below(6)) {
    case 0:
      m_isDown ? m_service.restart() : m_service.kill();
      m_isDown = !m_isDown;
      if (!m_isDown) Q_EMIT m_client->network().cameUp();
      what = m_isDown ? u"the service is gone"_s : u"the service is back"_s;
      break;
    case 1:
      m_isHeld = !m_isHeld;
      m_service.hold(m_isHeld ? m_random.pick(QStringList{u"/campaigns"_s, u"/mailboxes"_s, u"/inbox"_s}) : QString());
      what = m_isHeld ? u"some requests are not answered"_s : u"they are again"_s;
      break;
    case 2:
      if (m_random.chance(0.3)) m_service.failNext(demo::Faults::Kind::unauthorized);
      what = u"the session ends, maybe"_s;
      break;
    case 3:
    case 4:
      m_service.bringReply();
      what = u"somebody replies"_s;
      break;
    default:
      m_service.setFaults(m_random.chance(0.3) ? 0.5 : m_plan.faults);
      what = u"more faults, or fewer"_s;
  }
  ring().add(u"   -- "_s + what);
}

void Soak::mend() {
  if (m_isDown) m_service.restart();
  m_isDown = m_isHeld = false;
  m_service.setFaults(0);
  m_service.hold({});
  // Late answers are on their way.
  pass(10s, true);
  m_service.sync();
  Q_EMIT m_client->network().cameUp();
}

void Soak::pass(std::chrono::milliseconds time, bool serviceToo) {
  m_passed += time;
  if (serviceToo) m_service.pass(time);
  constexpr std::chrono::milliseconds longest = 500ms;
  while (time > 0ms) {
    const auto part = std::min(time, longest);
    time -= part;
    QMetaObject::invokeMethod(
        m_client.get(), [this, part] { m_clock.advance(part); }, Qt::QueuedConnection);
    pump(0ms);
  }
}

void Soak::pump(std::chrono::milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
  m_turns.end();
}

void Soak::rest(std::chrono::milliseconds quiet) {
  const QDeadlineTimer limit(5min);
  const auto isIdle = [this] { return m_client->transport().isIdle() && (!m_other || m_other->transport().isIdle()); };
  for (auto left = quiet; left > 0ms;) {
    pump(1ms);
    if (limit.hasExpired()) return fail(u"requests never end"_s);
    if (!isIdle()) continue;
    pass(250ms, false);
    left -= 250ms;
  }
  while (!isIdle() && !limit.hasExpired()) pump(1ms);
}

void Soak::comeBack() {
  m_client->app().overlays()->dismissAll();
  for (int attempt = 0; attempt < 20 && !m_client->isSignedIn(); ++attempt) {
    m_client->signInFurther();
    rest(loadWaits);
  }
  if (!m_client->isSignedIn()) fail(u"the person does not get in any more: "_s + m_client->app().signIn()->error());
  openTheirs(*m_client);
}

void Soak::compare(const QString& when, bool refreshing) {
  if (!m_plan.compares || !m_client->isSignedIn()) return;
  // Of a page that is another one altogether, some lines say enough.
  constexpr int linesOfPage = 6;
  QMap<QString, int> told;
  for (const QString& line : differencesNow(refreshing, {}))
    if (++told[line.section(u": "_s, 0, 0)] <= linesOfPage) fail(when + u": "_s + line);
}

QStringList Soak::differencesNow(bool refreshing, std::optional<Page> only) {
  m_turns.setDoing(u"compared"_s);
  m_other = std::make_unique<SoakClient>(m_clock, m_service.url(), m_folder.path());
  for (int attempt = 0; attempt < 5 && !m_other->isSignedIn(); ++attempt) {
    m_other->signInFurther();
    rest(loadWaits);
  }
  Comparison comparison(*m_client, *m_other, [this] { rest(loadWaits); });
  const QStringList lines = comparison.run(refreshing, only);
  m_compared += comparison.pages();
  m_fields += comparison.fields();
  return lines;
}

/// What the service holds grows meanwhile, and what a client shows of it with that. So the other one, which has been
/// led through the same pages, is measured beside this one: what it takes more than the time before is no growth of
/// this. What stays after signing out depends on nothing, and must not grow.
void Soak::measure() {
  for (SoakClient* client : {m_client.get(), m_other.get()})
    if (client) settle(*client);
  rest(allWaits);
  malloc_trim(0);
  const qint64 both = heapInUse();
  m_other.reset();
  rest(loadWaits);
  malloc_trim(0);
  m_heap.append(heapInUse());
  m_fresh.append(both - m_heap.last());
  m_resident.append(resident());
  signOut();
  rest(allWaits);
  malloc_trim(0);
  m_left.append(heapInUse());
  if (!m_plan.tellsHolders) return;
  printHolders();
  printStores(m_client->app());
}

void Soak::settle(SoakClient& client) {
  openTheirs(client);
  AppModel& app = client.app();
  app.router()->open(Page::dashboard);
  app.jobs()->clearEnded();
  app.toasts()->clear();
  client.forget();
  Q_EMIT client.memoryPressure().pressure();
}

void Soak::signOut() {
  AppModel& app = m_client->app();
  app.signOut();
  rest(loadWaits);
  if (app.overlays()->asking()) app.overlays()->answer(app.overlays()->token(), true);
  rest(loadWaits);
  if (m_client->isSignedIn()) fail(u"nobody can sign out any more"_s);
  app.toasts()->clear();
  m_client->forget();
}

/// The first workspace where the person may change something: the same one each time, and the largest. That of the last
/// page may be one that they only read.
bool Soak::openTheirs(SoakClient& client) {
  AppModel& app = client.app();
  for (const QVariant& one : app.workspaces()) {
    const QVariantMap workspace = one.toMap();
    if (!Role(workspace.value(u"role"_s).toString()).mayWrite()) continue;
    app.openWorkspace(workspace.value(u"slug"_s).toString());
    app.router()->open(Page::campaigns);
    client.look();
    rest(loadWaits);
    return true;
  }
  return false;
}

void Soak::proveComparison() {
  const bool isOpen = openTheirs(*m_client);
  const auto* campaigns = isOpen ? m_client->app().session()->store<CampaignsStore>()->list()->value() : nullptr;
  if (!campaigns || campaigns->items.isEmpty()) {
    std::printf("No campaign was left to try the comparison with.\n");
    return;
  }
  const QString id = campaigns->items.first().id, name = campaigns->items.first().name;
  // Comparing leads on to other workspaces, which do not have it.
  const QString workspace = m_client->app().current()->slug;
  const auto rename = [&](const QString& given) {
    test::await(m_client->transport().send(Requests::updateCampaign(id, {.name = given}, {}), workspace,
                                           m_client->app().stored()->token));
  };
  try {
    rename(u"Behind their back"_s);
    if (differencesNow(false, Page::campaigns).isEmpty()) fail(u"a change behind the client's back is not found"_s);
    if (!differencesNow(true, Page::campaigns).isEmpty()) fail(u"“Refresh” does not bring it"_s);
    // Other pages have not heard of it, and are compared as well.
    rename(name);
    differencesNow(true, Page::campaigns);
  } catch (const APIError& error) {
    fail(u"a campaign cannot be changed behind the client's back: "_s + error.description());
  }
}

void Soak::judge() {
  const auto grown = [](const QList<qint64>& sizes) { return double(sizes.last()) / double(sizes.first()) - 1; };
  const auto told = [](const QList<qint64>& sizes) {
    QStringList texts;
    for (const qint64 size : sizes) texts.append(QString::number(double(size) / 1e6, 'f', 2));
    return texts.join(u", "_s);
  };
  // What somebody typed keeps its workspace open beside the one that is shown until it is saved or thrown away: that
  // swells one measure or another, a leak all that follow.
  QList<qint64> more;
  for (int quarter = 0; quarter < quarters; ++quarter) more.append(m_heap[quarter] - m_fresh[quarter]);
  const double grownHere = double(std::ranges::min(more.sliced(1)) - more.first()) / double(m_heap.first());
  // Nothing is put away, and nothing measured beside it, where nothing is compared.
  if (m_plan.compares && grownHere > mostGrowthOpen)
    fail(u"memory in use by open workspaces grew by %1 %"_s.arg(100 * grownHere, 0, 'f', 1));
  // What is made once and kept is made in the first two quarters: the first alone does not come to every page.
  const double grownLeft = double(m_left.last() - m_left[1]) / double(std::ranges::max(m_heap));
  if (grownLeft > mostGrowth)
    fail(u"what stays after signing out grew by %1 % of the memory in use"_s.arg(100 * grownLeft, 0, 'f', 1));
  if (!isSanitized && grown(m_resident) > mostGrowth)
    fail(u"the resident set grew by %1 %"_s.arg(100 * grown(m_resident), 0, 'f', 1));
  const double longest = double(m_turns.longest().count()) / 1000;
  if (!isSanitized && m_turns.longest() > longestTurn)
    fail(u"the event loop stood for %1 ms: %2"_s.arg(longest).arg(m_turns.during()));
  std::printf("%d steps, %d troubles, %d requests in %.1f minutes of simulated time\n", m_pressed, m_troubles,
              m_requests, double(m_passed.count()) / 60'000);
  if (m_plan.compares)
    std::printf("%d pages compared, %lld fields\n", m_compared, (long long)m_fields);
  else
    std::printf("No page was compared\n");
  std::printf(
      "Memory in use after each quarter: %s MB, of a fresh client: %s MB, signed out: %s MB; resident: %s MB%s\n",
      qPrintable(told(m_heap)), qPrintable(told(m_fresh)), qPrintable(told(m_left)), qPrintable(told(m_resident)),
      isSanitized ? " (not judged: the sanitizer keeps what was freed)" : "");
  std::printf("Longest turn of the event loop: %.1f ms%s, %s\n", longest, isSanitized ? " (not judged)" : "",
              qPrintable(m_turns.during()));
}

void Soak::fail(const QString& what) {
  if (m_failures.isEmpty()) ring().print();
  m_failures.append(what);
  if (m_failures.size() <= linesPrinted) std::fprintf(stderr, "FAULT: %s\n", qPrintable(what));
}

}  // namespace orv::soak
