#include "desktop/ProcessEnd.h"

namespace orv {

ProcessEnd::ProcessEnd(QGuiApplication& application, AppModel& app) : m_app(app) {
  connect(&m_signals, &EndSignals::asked, this, [this] {
    m_app.journal().finish();
    QCoreApplication::quit();
  });
  connect(&application, &QCoreApplication::aboutToQuit, this, [this] { m_app.journal().finish(); });
  // Only where the desktop has a session manager.
  connect(&application, &QGuiApplication::commitDataRequest, this, &ProcessEnd::logOut, Qt::DirectConnection);
}

/// A log-out asks as closing does: it is called off while the person is asked. The answer cannot be waited for here.
void ProcessEnd::logOut(QSessionManager& manager) {
  m_app.journal().finish();
  if (manager.allowsInteraction() && !m_app.mayClose()) manager.cancel();
}

}  // namespace orv
