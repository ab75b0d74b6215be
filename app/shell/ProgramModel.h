#pragma once

#include "app/base/Program.h"
#include "app/shell/Updates.h"

namespace orv {

class AppModel;
struct Platform;

/// The program as its pages see it: the application's model behind a door of its own, and what the program tells of
/// itself.
class ProgramModel final : public Program {
  Q_OBJECT
  Q_PROPERTY(bool changelogShown READ changelogShown WRITE setChangelogShown NOTIFY shownChanged)
  Q_PROPERTY(QString changelog READ changelog CONSTANT)
  Q_PROPERTY(bool logShown READ logShown WRITE setLogShown NOTIFY shownChanged)
  Q_PROPERTY(QString log READ log NOTIFY shownChanged)

 public:
  ProgramModel(AppModel& app, Platform& platform, Toasts& toasts);

  QString userName() const override;
  QString userEmail() const override;
  QString userId() const override;
  QString theme() const override;
  void setTheme(const QString& theme) override;
  QString version() const override;
  QString device() const override;
  QString newVersion() const override { return m_updates.newest(); }
  bool newVersionOpens() const override { return m_updates.canOpen(); }
  void openNewVersion() override { m_updates.open(); }
  QString notificationTrouble() const override;
  QStringList featuresOff() const override;
  QStringList migrationPick() const override;
  void signOut() override;
  void showChangelog() override { setChangelogShown(true); }
  void showLog() override { setLogShown(true); }
  void rereadAccount() override;
  void deletesWorkspace(const QString& slug, Deletion deletion) override;

  bool changelogShown() const { return m_changelogShown; }
  void setChangelogShown(bool shown);
  QString changelog() const;
  bool logShown() const { return m_logShown; }
  /// Reads the log anew whenever it is opened.
  void setLogShown(bool shown);
  const QString& log() const { return m_log; }
  /// For who helps: version, system and the ids of the last requests, and nothing that says who did what.
  QString diagnostics() const;
  Q_INVOKABLE void copyDiagnostics();

 Q_SIGNALS:
  void shownChanged();

 private:
  void greet();

  AppModel& m_app;
  Platform& m_platform;
  Toasts& m_toasts;
  Updates m_updates;
  bool m_changelogShown = false;
  bool m_logShown = false;
  QString m_log;
};

}  // namespace orv
