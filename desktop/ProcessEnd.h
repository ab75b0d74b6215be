#pragma once

#include <QGuiApplication>
#include <QSessionManager>

#include "app/shell/AppModel.h"
#include "desktop/services/EndSignals.h"

namespace orv {

/// The ways in which the process ends without anybody closing the window. What is typed is on the disk first.
class ProcessEnd final : public QObject {
  Q_OBJECT

 public:
  ProcessEnd(QGuiApplication& application, AppModel& app);

 private:
  void logOut(QSessionManager& manager);

  AppModel& m_app;
  EndSignals m_signals;
};

}  // namespace orv
