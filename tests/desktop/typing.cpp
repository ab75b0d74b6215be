// The program as far as ends are concerned: somebody types the name of a new campaign, which is kept in the folder
// given. Prints "typed"; with "--log-out" the desktop's session then ends, and it prints "logged out".

#include <QGuiApplication>
#include <cstdio>

#include "app/campaigns/CampaignsStore.h"
#include "app/shell/AppModel.h"
#include "demo/DemoService.h"
#include "desktop/ProcessEnd.h"
#include "desktop/services/JournalFolder.h"
#include "tests/support/AppFixture.h"

using namespace orv;

namespace {

void say(const char* what) {
  std::puts(what);
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  SystemClock clock;
  demo::DemoService service(clock, 1, {});
  demo::DemoTransport transport(service);
  test::AppFixture fakes;
  JournalFolder journal(arguments.value(1));
  Platform platform{transport,
                    fakes.keychain,
                    clock,
                    fakes.preferences,
                    fakes.browser,
                    fakes.clipboard,
                    fakes.filePanel,
                    fakes.revealer,
                    fakes.memoryPressure,
                    fakes.services.webOrigin,
                    Device{},
                    StoredSession::from(service.signInDirectly(), clock.now()),
                    {},
                    &journal};
  AppModel app(platform);
  const ProcessEnd end(application, app);
  app.start();
  QMetaObject::invokeMethod(
      &app,
      [&] {
        auto& campaigns = *app.session()->store<CampaignsStore>();
        campaigns.beginCreate();
        campaigns.newCampaign()->setText(QStringLiteral("Spring fair"));
        say("typed");
        if (!arguments.contains(QStringLiteral("--log-out"))) return;
        // The toolkit has one for each application, whichever platform it is on.
        Q_EMIT application.commitDataRequest(*application.findChild<QSessionManager*>());
        say("logged out");
      },
      Qt::QueuedConnection);
  return QGuiApplication::exec();
}
