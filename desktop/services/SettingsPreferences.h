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

  bool sidebarRail() const override;
  void setSidebarRail(bool rail) override;
  QStringList recentCommands() const override;
  void setRecentCommands(const QStringList& ids) override;
  QString theme() const override;
  void setTheme(const QString& theme) override;
  QString signedInName() const override;
  void setSignedInName(const QString& name) override;
  QRect windowGeometry() const override;
  void setWindowGeometry(const QRect& geometry) override;
  bool windowMaximized() const override;
  void setWindowMaximized(bool maximized) override;

  /// What the person made of a table, as the table itself wrote it; empty for one that is as it was made.
  QByteArray tableLayout(const QString& table) const;
  void setTableLayout(const QString& table, const QByteArray& layout);

 private:
  QSettings m_settings;
};

}  // namespace orv
