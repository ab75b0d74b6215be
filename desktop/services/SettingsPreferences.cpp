#include "desktop/services/SettingsPreferences.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {
const auto rail = u"orv-sidebar-rail"_s;
const auto recent = u"orv-palette-recent"_s;
const auto appearance = u"orv-appearance"_s;
const auto nameKey = u"orv-signed-in-name"_s;
const auto geometryKey = u"orv-window-geometry"_s;
const auto maximizedKey = u"orv-window-maximized"_s;
const auto tablesKey = u"orv-table-"_s;
}  // namespace

bool SettingsPreferences::sidebarRail() const { return m_settings.value(rail).toBool(); }
void SettingsPreferences::setSidebarRail(bool value) { m_settings.setValue(rail, value); }

QStringList SettingsPreferences::recentCommands() const { return m_settings.value(recent).toStringList(); }
void SettingsPreferences::setRecentCommands(const QStringList& ids) { m_settings.setValue(recent, ids); }

QString SettingsPreferences::theme() const { return m_settings.value(appearance, u"system"_s).toString(); }
void SettingsPreferences::setTheme(const QString& theme) { m_settings.setValue(appearance, theme); }

QString SettingsPreferences::signedInName() const { return m_settings.value(nameKey).toString(); }
void SettingsPreferences::setSignedInName(const QString& name) { m_settings.setValue(nameKey, name); }

QRect SettingsPreferences::windowGeometry() const {
  const QRect geometry = m_settings.value(geometryKey).toRect();
  return geometry.isValid() ? geometry : QRect();
}
void SettingsPreferences::setWindowGeometry(const QRect& geometry) { m_settings.setValue(geometryKey, geometry); }

bool SettingsPreferences::windowMaximized() const { return m_settings.value(maximizedKey).toBool(); }
void SettingsPreferences::setWindowMaximized(bool maximized) { m_settings.setValue(maximizedKey, maximized); }

QByteArray SettingsPreferences::tableLayout(const QString& table) const {
  return m_settings.value(tablesKey + table).toString().toUtf8();
}
void SettingsPreferences::setTableLayout(const QString& table, const QByteArray& layout) {
  if (layout.isEmpty())
    m_settings.remove(tablesKey + table);
  else
    m_settings.setValue(tablesKey + table, QString::fromUtf8(layout));
}

}  // namespace orv
