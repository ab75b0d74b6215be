#pragma once

#include <QSettings>

#include "app/base/desktop/Preferences.h"

namespace orv {

/// Preferences in the person's settings file.
class SettingsPreferences final : public Preferences {
 public:
  /// The file of the application's organisation and name.
  SettingsPreferences() = default;
  explicit SettingsPreferences(const QString& path) : m_settings(path, QSettings::IniFormat) {}

  QString path() const { return m_settings.fileName(); }
  /// What is set outlives the process.
  bool isKept() const { return m_settings.isWritable(); }

  bool sidebarRail() const override;
  void setSidebarRail(bool rail) override;
  QStringList recentCommands() const override;
  void setRecentCommands(const QStringList& ids) override;
  QString theme() const override;
  void setTheme(const QString& theme) override;
  bool leadFiltersFolded() const override;
  void setLeadFiltersFolded(bool folded) override;
  QMap<QString, QStringList> leadColumns() const override;
  void setLeadColumns(const QMap<QString, QStringList>& columns) override;
  QString signedInName() const override;
  void setSignedInName(const QString& name) override;
  QString versionTold() const override;
  void setVersionTold(const QString& version) override;
  int inboxLeadsWidth() const override;
  void setInboxLeadsWidth(int width) override;
  bool positiveReplies() const override;
  void setPositiveReplies(bool on) override;
  bool accountErrors() const override;
  void setAccountErrors(bool on) override;
  QString notifySince(const QString& workspace) const override;
  void setNotifySince(const QString& workspace, const QString& time) override;
  QStringList failedAccounts(const QString& workspace) const override;
  void setFailedAccounts(const QString& workspace, const QStringList& ids) override;
  QRect windowGeometry() const override;
  void setWindowGeometry(const QRect& geometry) override;
  bool windowMaximized() const override;
  void setWindowMaximized(bool maximized) override;

  /// Of everything, in percent.
  int size() const;
  void setSize(int percent);
  /// What the person made of a table, as the table itself wrote it; empty for one that is as it was made.
  QByteArray tableLayout(const QString& table) const;
  void setTableLayout(const QString& table, const QByteArray& layout);

 private:
  bool isOn(const QString& choice) const;
  void turn(const QString& choice, bool on);

  QSettings m_settings;
};

}  // namespace orv
