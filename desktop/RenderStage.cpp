#include "desktop/RenderStage.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;

namespace orv {

std::unique_ptr<APITransport::Exchange> StagedTransport::exchange(APICall call,
                                                                  std::shared_ptr<AnswerReceiver> receiver) {
  switch (mode) {
    case Mode::passing:
      return m_demo.exchange(std::move(call), std::move(receiver));
    case Mode::holding:
      return nullptr;
    case Mode::failing:
      receiver->receive(HTTPAnswer{500, {}, {}});
      return nullptr;
    case Mode::offline:
      receiver->receive(TransportFailure::offline);
      return nullptr;
    case Mode::empty:
      if (!call.request.path.endsWith("/campaigns"_L1)) return m_demo.exchange(std::move(call), std::move(receiver));
      receiver->receive(HTTPAnswer{200, {}, R"({"items":[],"archivedCount":0})"});
      return nullptr;
  }
  return nullptr;
}

/// A desktop that does nothing and remembers nothing.
class Stage::Desktop final : public Browser,
                             public Clipboard,
                             public FileRevealer,
                             public FilePanel,
                             public Preferences {
 public:
  MemoryPressure memoryPressure;

  bool open(const QUrl&) override { return true; }
  void setText(const QString&) override {}
  void reveal(const QString&) override {}
  Task<std::optional<ChosenFile>> saveFile(QString, QString, QString) override { co_return std::nullopt; }
  Task<std::optional<QString>> openFile(QString, QString) override { co_return std::nullopt; }

  bool sidebarRail() const override { return false; }
  void setSidebarRail(bool) override {}
  QStringList recentCommands() const override {
    return {u"campaigns.new"_s, u"page.campaigns"_s, u"settings.members"_s};
  }
  void setRecentCommands(const QStringList&) override {}
  QString theme() const override { return u"system"_s; }
  void setTheme(const QString&) override {}
  QString signedInName() const override { return {}; }
  void setSignedInName(const QString&) override {}
  QRect windowGeometry() const override { return {}; }
  void setWindowGeometry(const QRect&) override {}
  bool windowMaximized() const override { return false; }
  void setWindowMaximized(bool) override {}
};

Stage::Stage(QQmlEngine& engine, bool signedIn, StagedTransport::Mode firstLoad, const QSize& size, bool dark,
             bool reducedMotion, int campaigns)
    : m_service(m_clock, 1, {campaigns, 0, 0}),
      m_transport(m_service),
      m_keychain(u"com.orvella.render"_s),
      m_desktop(new Desktop) {
  m_transport.mode = firstLoad;
  Platform platform{m_transport,
                    m_keychain,
                    m_clock,
                    *m_desktop,
                    *m_desktop,
                    *m_desktop,
                    *m_desktop,
                    *m_desktop,
                    m_desktop->memoryPressure,
                    QUrl(u"https://app.orvella.example"_s),
                    ClientWindow::thisDevice(),
                    {}};
  if (signedIn) platform.demoSession = StoredSession::from(m_service.signInDirectly(), m_clock.now());
  m_client = std::make_unique<ClientWindow>(engine, platform);
  app().appearance()->setSystemDark(dark);
  app().appearance()->setReducedMotion(reducedMotion);
  app().start();
  m_window = m_client->open();
  if (!m_window) return;
  m_window->resize(size);
  m_window->show();
  m_window->requestActivate();
  settle();
}

Stage::~Stage() = default;

void Stage::press(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
  for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(kind, key, modifiers, text);
    QGuiApplication::sendEvent(m_window, &event);
  }
}

void Stage::type(const QString& text) {
  for (const QChar letter : text) press(Qt::Key(letter.toUpper().unicode()), {}, QString(letter));
}

void Stage::settle() {
  // Longest of what is waited for: the skeleton and the busy ring appear after a tenth of a second.
  QEventLoop loop;
  QTimer::singleShot(160, &loop, &QEventLoop::quit);
  loop.exec();
}

QImage Stage::picture() {
  settle();
  return m_window->grabWindow();
}

}  // namespace orv
