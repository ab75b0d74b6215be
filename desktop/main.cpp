#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QOpenGLContext>
#include <QQuickStyle>
#include <QTextStream>
#include <QTimer>

#include "app/analytics/DashboardStore.h"
#include "demo/DemoService.h"
#include "desktop/ActivationToken.h"
#include "desktop/ClientWindow.h"
#include "desktop/MemoryKeychain.h"
#include "desktop/MissingParts.h"
#include "desktop/Options.h"
#include "desktop/ProcessEnd.h"
#include "desktop/WindowPlace.h"
#include "desktop/services/BrowserService.h"
#include "desktop/services/ClipboardService.h"
#include "desktop/services/ColorSchemeWatcher.h"
#include "desktop/services/DesktopFilePanel.h"
#include "desktop/services/DesktopNotifications.h"
#include "desktop/services/DesktopProxy.h"
#include "desktop/services/FeedReader.h"
#include "desktop/services/FileManagerRevealer.h"
#include "desktop/services/JournalFolder.h"
#include "desktop/services/LogFile.h"
#include "desktop/services/MemoryPressureMonitor.h"
#include "desktop/services/NetworkMonitor.h"
#include "desktop/services/Programs.h"
#include "desktop/services/SchemeRegistration.h"
#include "desktop/services/SettingsPreferences.h"
#include "desktop/services/SingleInstance.h"
#include "desktop/services/StallRecorder.h"
#include "kit/api/APIClient.h"
#include "kit/session/KeptPlaces.h"
#include "kit/session/SecretServiceKeychain.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

namespace {

const auto applicationId = u"com.orvella.desktop"_s;

Q_LOGGING_CATEGORY(lcMain, "orvella.main")

bool hasDisplay() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

/// Qt Quick ends the program where there is no OpenGL, and OpenGL in software takes twice the time and the memory of
/// the plain renderer, which draws everything this window has.
void useSoftwareWithoutGraphics() {
  for (const char* told : {"QT_QUICK_BACKEND", "QSG_RHI_BACKEND"})
    if (qEnvironmentVariableIsSet(told)) return;
  const bool hasCard = !QDir(u"/dev/dri"_s).entryList({u"renderD*"_s}, QDir::System).isEmpty();
  QOpenGLContext probe;
  if (!hasCard || !probe.create()) QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

void follow(const ColorSchemeWatcher& desktop, Appearance& appearance) {
  appearance.setSystemDark(desktop.scheme() == ColorSchemeWatcher::Scheme::dark);
  appearance.setReducedMotion(desktop.reducedMotion());
}

/// The toolkit reads its factor once, as the application is made.
void useChosenSize() {
  const int percent = SettingsPreferences().size();
  bool isNumber = false;
  const double desktop = qgetenv("QT_SCALE_FACTOR").toDouble(&isNumber);
  if (percent != 100) qputenv("QT_SCALE_FACTOR", QByteArray::number((isNumber ? desktop : 1) * percent / 100));
}

double residentMegabytes() {
  QFile status(u"/proc/self/status"_s);
  if (!status.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& line : status.readAll().split('\n'))
    if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
  return 0;
}

void endAtContent(QQuickWindow& window, AppModel& app) {
  QObject::connect(&window, &QQuickWindow::frameSwapped, &app, [&app] {
    const bool isSignIn = app.phase() == AppModel::Phase::signedOut;
    if (!isSignIn && (!app.session() || app.session()->store<DashboardStore>()->today().isEmpty())) return;
    QTextStream(stdout) << (isSignIn ? "sign-in, " : "content, ") << residentMegabytes() << " MB" << Qt::endl;
    QCoreApplication::quit();
  });
}

/// The sample's service with its door, for as long as the window needs them.
struct Demo {
  Demo(Clock& clock, int campaigns) : service(clock, 1, {.campaigns = campaigns, .database = 240'000}) {
    service.setRepliesPerMinute(0.5);
  }
  demo::DemoService service;
  demo::DemoTransport transport{service};
};

/// A sign-out that the keyring or the service has not heard of yet would leave the person signed in.
void letFinish(const AppModel& app) {
  const QDeadlineTimer deadline(std::chrono::seconds(3));
  QTimer wake;
  wake.start(std::chrono::milliseconds(20));
  while (app.isFinishing() && !deadline.hasExpired()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// Whether somebody waits for one: a page that opens links by itself has no business raising the window.
bool takeLinks(SignInModel& signIn, const QStringList& links) {
  bool isExpected = false;
  for (const QString& link : links) isExpected = signIn.takeGoogleLink(link) || isExpected;
  return isExpected;
}

int run(QGuiApplication& application, const Options& options, LogFile& log) {
  SingleInstance instance(applicationId, QDBusConnection::sessionBus());
  const QStringList links = instance.linksIn(options.arguments);
  // The sample neither takes links nor minds a second window.
  if (!options.demo && instance.claim(links) == SingleInstance::Start::second) return 0;

  SystemClock clock;
  SettingsPreferences preferences;
  BrowserService browser;
  ClipboardService clipboard;
  DesktopFilePanel files(QDBusConnection::sessionBus());
  FileManagerRevealer revealer(QDBusConnection::sessionBus());
  MemoryPressureMonitor memoryPressure(clock, QDBusConnection::systemBus());
  APIClient client;
  const auto kept = KeptPlaces::of(client.environment(), applicationId, LogFile::defaultFolder());
  NetworkMonitor network(clock);
  SecretServiceKeychain keyring(kept.keychainService, u"Orvella"_s, clock);
  MemoryKeychain memory(kept.keychainService);
  DesktopProxy proxy(QDBusConnection::sessionBus(), client.environment().baseURL,
                     [&client](std::optional<QByteArray> found) { client.useProxy(std::move(found)); });
  std::optional<Demo> sample;
  if (options.demo)
    sample.emplace(clock, options.demoCampaigns);
  else if (proxy.ask())
    client.holdForProxy(std::chrono::seconds(2));

  APITransport& api = sample ? static_cast<APITransport&>(sample->transport) : client;
  Keychain& keychain = options.fresh ? static_cast<Keychain&>(memory) : keyring;
  Platform platform{api,
                    keychain,
                    clock,
                    preferences,
                    browser,
                    clipboard,
                    files,
                    revealer,
                    memoryPressure,
                    client.environment().baseURL,
                    ClientWindow::thisDevice(),
                    {},
                    options.fresh ? QString() : kept.stateFolder};
  platform.log = &log;
  const auto feed = FeedReader::configured(QDBusConnection::sessionBus());
  platform.releases = feed.get();
  JournalFolder journal(LogFile::defaultFolder() + u"/journal"_s);
  platform.network = &network;
  DesktopNotifications notifications(QDBusConnection::sessionBus(), applicationId);
  platform.notifications = &notifications;
  // The sample and a start without a keyring leave nothing behind.
  if (!sample && !options.fresh) platform.journalFiles = &journal;
  if (sample) platform.demoSession = StoredSession::from(sample->service.signInDirectly(), clock.now());

  QQmlEngine engine;
  ClientWindow::prepare(engine);
  TableMemory tables(
      [&](const QString& table) { return preferences.tableLayout(table); },
      [&](const QString& table, const QByteArray& layout) { preferences.setTableLayout(table, layout); });
  ClientWindow main(engine, platform, {files.saveForm(), files.openForm()}, &tables);
  AppModel& app = main.app();

  const ColorSchemeWatcher desktop(QDBusConnection::sessionBus());
  follow(desktop, *app.appearance());
  QObject::connect(&desktop, &ColorSchemeWatcher::changed, &app, [&] { follow(desktop, *app.appearance()); });

  app.appearance()->setSize(preferences.size());
  QObject::connect(app.appearance(), &Appearance::sizeChosen, &app,
                   [&preferences](int percent) { preferences.setSize(percent); });

  const ProcessEnd processEnd(application, app);

  app.start();
  QQuickWindow* window = main.open();
  if (!window) return 1;
  WindowPlace place(*window, preferences);

  QObject::connect(&instance, &SingleInstance::opened, &app,
                   [&app, &place](const QStringList& opened, const QString& token) {
                     if (takeLinks(*app.signIn(), opened)) place.bringForward(token);
                   });
  QObject::connect(&instance, &SingleInstance::activated, &place,
                   [&place](const QString& token) { place.bringForward(token); });
  QObject::connect(app.notifier(), &Notifier::followed, &place,
                   [&place](const QString& token) { place.bringForward(token); });
  takeLinks(*app.signIn(), links);
  if (!options.demo) {
    // The portal does not tell when its answer changes.
    QObject::connect(&application, &QGuiApplication::applicationStateChanged, &proxy,
                     [&proxy](Qt::ApplicationState state) {
                       if (state == Qt::ApplicationActive) proxy.ask();
                     });
    findSchemeHandler(applicationId, &app, [](const QString& entry) {
      if (entry != applicationId + u".desktop"_s)
        qCInfo(lcMain, "Sign-in links go to \"%s\"; they have to be pasted here", qPrintable(entry));
    });
  }

  if (options.untilContent) endAtContent(*window, app);
  place.show();
  tellWhatIsMissing(QDBusConnection::sessionBus(), log, preferences, *app.toasts());
  const int code = application.exec();
  instance.release();
  letFinish(app);
  if (app.startsAgain()) startProgram(QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1));
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  keepToOneself();
  setActivationToken(qgetenv("XDG_ACTIVATION_TOKEN"));
  const Options options = Options::parse(argc, argv);
  if (!hasDisplay()) {
    QTextStream(stderr) << "There is no display here. Start Orvella on a desktop, or look at pictures of its pages: "
                           "orvella-render makes them.\n";
    return 1;
  }

  QQuickStyle::setStyle(u"Basic"_s);
  QGuiApplication::setOrganizationName(u"Orvella"_s);
  QGuiApplication::setApplicationName(u"Orvella"_s);
  useChosenSize();
  QGuiApplication application(argc, argv);
  QGuiApplication::setApplicationDisplayName(u"Orvella"_s);
  QGuiApplication::setApplicationVersion(QStringLiteral(ORVELLA_VERSION));
  QGuiApplication::setDesktopFileName(applicationId);

  LogFile log(LogFile::defaultFolder());
  const StallRecorder stalls(*QAbstractEventDispatcher::instance());
  useSoftwareWithoutGraphics();
  return run(application, options, log);
}
