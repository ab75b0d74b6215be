#include "desktop/scenes/Stage.h"

#include <QAccessible>
#include <QCursor>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickItem>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {
namespace {

/// Real time, however slow the machine.
constexpr auto patience = 20s;
/// Of the Tab key, on the longest page.
constexpr int stopsAtMost = 100;

/// Runs the event loop until the condition holds.
bool runUntil(const std::function<bool()>& condition) {
  const QDeadlineTimer limit(patience);
  QCoreApplication::processEvents();
  QEventLoop loop;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &loop, [&] {
    if (condition() || limit.hasExpired()) loop.quit();
  });
  look.start(std::chrono::milliseconds(1));
  if (!condition()) loop.exec();
  return condition();
}

/// A name goes on with what changes, a count or a state.
bool isCalled(QAccessibleInterface* interface, const QString& words) {
  const QString name = interface->text(QAccessible::Name);
  return name.startsWith(words) && (name.size() == words.size() || !name[words.size()].isLetterOrNumber());
}

/// What is on the screen under the name.
QAccessibleInterface* named(QAccessibleInterface* among, const QString& name) {
  if (!among || among->state().invisible) return nullptr;
  if (isCalled(among, name)) return among;
  for (int i = 0; i < among->childCount(); ++i)
    if (auto* found = named(among->child(i), name)) return found;
  return nullptr;
}

}  // namespace

/// Ends when the waiting task has its answer or is gone.
class StagedTransport::Counted final : public Exchange {
 public:
  Counted(StagedTransport& transport, std::unique_ptr<Exchange> exchange)
      : m_transport(transport), m_exchange(std::move(exchange)) {
    ++m_transport.m_underWay;
  }
  ~Counted() override { --m_transport.m_underWay; }

 private:
  StagedTransport& m_transport;
  std::unique_ptr<Exchange> m_exchange;
};

std::unique_ptr<APITransport::Exchange> StagedTransport::exchange(APICall call,
                                                                  std::shared_ptr<AnswerReceiver> receiver) {
  ++m_begun;
  switch (mode) {
    case Mode::holding:
      return nullptr;
    case Mode::failing:
      receiver->receive(HTTPAnswer{500, {}, {}});
      break;
    case Mode::offline:
      receiver->receive(TransportFailure::offline);
      break;
    case Mode::empty:
      if (call.request.path.endsWith("/deliverability"_L1)) {
        receiver->receive(HTTPAnswer{200, {}, R"({"automatic":true,"pool":{"n":0},"inboxes":[],"decisions":[]})"});
        break;
      }
      if (call.request.path.endsWith("/rampup"_L1) || call.request.path.endsWith("/campaigns"_L1) ||
          call.request.path.endsWith("/mailboxes"_L1) || call.request.path.endsWith("/lead-lists"_L1) ||
          call.request.path.endsWith("/lead-imports"_L1) || call.request.path.endsWith("/members"_L1) ||
          call.request.path.endsWith("/invites"_L1) || call.request.path.endsWith("/inbox-setup/templates"_L1) ||
          call.request.path.endsWith("/inbox/drafts"_L1) || call.request.path.endsWith("/inbox/threads"_L1)) {
        receiver->receive(HTTPAnswer{200, {}, R"({"items":[],"archivedCount":0})"});
        break;
      }
      [[fallthrough]];
    case Mode::passing:
      return std::make_unique<Counted>(*this, m_api.exchange(std::move(call), std::move(receiver)));
  }
  return std::make_unique<Counted>(*this, nullptr);
}

/// A desktop that does nothing and remembers nothing.
class Stage::Desktop final : public Browser,
                             public Clipboard,
                             public FileRevealer,
                             public FilePanel,
                             public Preferences {
 public:
  MemoryPressure memoryPressure;
  QString saveFolder;

  bool open(const QUrl&) override { return true; }
  bool setText(const QString&) override { return true; }
  void reveal(const QString&) override {}
  Task<std::optional<ChosenFile>> saveFile(QString name, QString, QString) override {
    if (saveFolder.isEmpty()) co_return std::nullopt;
    co_return ChosenFile{saveFolder + u'/' + name, true};
  }
  Task<std::optional<QString>> openFile(QString, QString) override { co_return std::nullopt; }

  bool sidebarRail() const override { return false; }
  void setSidebarRail(bool) override {}
  QStringList recentCommands() const override {
    return {u"campaigns.new"_s, u"page.campaigns"_s, u"settings.members"_s};
  }
  void setRecentCommands(const QStringList&) override {}
  QString theme() const override { return u"system"_s; }
  void setTheme(const QString&) override {}
  bool leadFiltersFolded() const override { return false; }
  void setLeadFiltersFolded(bool) override {}
  QMap<QString, QStringList> leadColumns() const override { return {}; }
  void setLeadColumns(const QMap<QString, QStringList>&) override {}
  QString signedInName() const override { return {}; }
  void setSignedInName(const QString&) override {}
  QString versionTold() const override { return ClientWindow::thisDevice().appVersion; }
  void setVersionTold(const QString&) override {}
  int inboxLeadsWidth() const override { return 0; }
  void setInboxLeadsWidth(int) override {}
  bool positiveReplies() const override { return true; }
  void setPositiveReplies(bool) override {}
  bool accountErrors() const override { return true; }
  void setAccountErrors(bool) override {}
  QString notifySince(const QString&) const override { return {}; }
  void setNotifySince(const QString&, const QString&) override {}
  QStringList failedAccounts(const QString&) const override { return {}; }
  void setFailedAccounts(const QString&, const QStringList&) override {}
  QRect windowGeometry() const override { return {}; }
  void setWindowGeometry(const QRect&) override {}
  bool windowMaximized() const override { return false; }
  void setWindowMaximized(bool) override {}
};

Stage::Stage(QQmlEngine& engine, const StageSetting& setting, StageTime* time)
    : m_time(time),
      m_service(time ? time->clock() : m_systemClock, 1, {setting.campaigns, setting.mailboxes, 0}),
      m_transport(setting.service ? *setting.service : m_demo),
      m_keychain(u"com.orvella.render"_s),
      m_desktop(new Desktop) {
  m_transport.mode = setting.mode;
  m_desktop->saveFolder = setting.saveFolder;
  Clock& clock = time ? time->clock() : m_systemClock;
  Platform platform{m_transport,
                    m_keychain,
                    clock,
                    *m_desktop,
                    *m_desktop,
                    *m_desktop,
                    *m_desktop,
                    *m_desktop,
                    m_desktop->memoryPressure,
                    QUrl(u"https://app.orvella.example"_s),
                    ClientWindow::thisDevice(),
                    {}};
  if (setting.session)
    platform.demoSession = setting.session;
  else if (setting.signedIn)
    platform.demoSession = StoredSession::from(m_service.signInDirectly(), clock.now());
  m_client = std::make_unique<ClientWindow>(engine, platform);
  app().appearance()->setSystemDark(setting.dark);
  app().appearance()->setReducedMotion(setting.reducedMotion);
  app().start();
  m_window = m_client->open();
  if (!m_window) return;
  m_window->resize(setting.size);
  // The pointer rests where nothing answers to it; at the corner, where it would be, is the workspace's button.
  QCursor::setPos(m_window->mapToGlobal(QPoint(setting.size.width() / 2, 0)));
  // Nobody has touched a key yet, whatever the stage before was left with.
  QObject nobody;
  QMouseEvent touch(QEvent::MouseButtonPress, {}, {}, Qt::LeftButton, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&nobody, &touch);
  m_window->show();
  m_window->requestActivate();
  settle();
}

Stage::~Stage() = default;

CampaignsStore& Stage::openCampaigns() {
  app().router()->open(Page::campaigns);
  settle();
  return *app().session()->store<CampaignsStore>();
}

void Stage::press(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
  for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(kind, key, modifiers, text);
    QGuiApplication::sendEvent(m_window, &event);
  }
}

void Stage::type(const QString& text) {
  for (const QChar letter : text) press(Qt::Key(letter.toUpper().unicode()), {}, QString(letter));
}

void Stage::press(const QString& name) {
  auto* control = named(QAccessible::queryAccessibleInterface(m_window), name);
  if (!control) throw StageTrouble(u"Nothing on the screen is called “%1”."_s.arg(name));
  auto* actions = control->actionInterface();
  if (control->state().disabled || !actions || !actions->actionNames().contains(actions->pressAction()))
    throw StageTrouble(u"“%1” cannot be pressed."_s.arg(name));
  actions->doAction(actions->pressAction());
}

void Stage::tabTo(const QString& name) {
  const auto isThere = [this, &name] {
    auto* focused = QAccessible::queryAccessibleInterface(m_window->activeFocusItem());
    return focused && isCalled(focused, name);
  };
  QStringList passed;
  while (!isThere()) {
    if (passed.size() == stopsAtMost)
      throw StageTrouble(u"Tab never comes to “%1”, but to %2."_s.arg(name, passed.join(u", "_s)));
    press(Qt::Key_Tab);
    auto* focused = QAccessible::queryAccessibleInterface(m_window->activeFocusItem());
    passed.append(focused ? focused->text(QAccessible::Name) : u"nothing"_s);
  }
}

void Stage::frame() {
  QEventLoop loop;
  bool drawn = false;
  QObject::connect(m_window, &QQuickWindow::frameSwapped, &loop, [&] {
    drawn = true;
    loop.quit();
  });
  QTimer::singleShot(patience, &loop, &QEventLoop::quit);
  m_window->update();
  loop.exec();
  if (!drawn) throw StageTrouble(u"The window draws no frame."_s);
}

void Stage::settle() {
  // Rings and skeletons come after a tenth of a second, previews and what saves itself after most of one.
  static constexpr std::chrono::milliseconds steps[] = {50ms, 100ms, 150ms, 300ms, 400ms};
  int begun = -1;
  while (begun != m_transport.begun()) {
    begun = m_transport.begun();
    frame();
    until([this] { return m_transport.isIdle(); }, u"the service’s answers"_s);
    if (!m_time) continue;
    for (const auto step : steps) {
      m_time->pass(step);
      frame();
    }
  }
}

void Stage::until(const std::function<bool()>& condition, const QString& what) {
  const auto holds = [&] {
    if (condition()) return true;
    if (m_time) m_time->pass(5ms);
    return false;
  };
  if (!runUntil(holds)) throw StageTrouble(u"Waited in vain for %1."_s.arg(what));
}

QImage Stage::picture() {
  settle();
  return m_window->grabWindow();
}

}  // namespace orv
