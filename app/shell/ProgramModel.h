#pragma once

#include "app/base/Program.h"

namespace orv {

class AppModel;
struct Platform;

/// The program as its pages see it: the application's model behind a door of its own.
class ProgramModel final : public Program {
  Q_OBJECT

 public:
  ProgramModel(AppModel& app, const Platform& platform);

  QString userName() const override;
  QString userEmail() const override;
  QString userId() const override;
  QString theme() const override;
  void setTheme(const QString& theme) override;
  QString version() const override;
  QString device() const override;
  QStringList featuresOff() const override;
  QStringList migrationPick() const override;
  void signOut() override;
  void showChangelog() override {}
  void showLog() override {}
  void rereadAccount() override;
  void workspaceDeleted(const QString& slug) override;

 private:
  AppModel& m_app;
  const Platform& m_platform;
};

}  // namespace orv
