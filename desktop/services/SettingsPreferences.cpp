#include "desktop/services/SettingsPreferences.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {
const auto rail = u"orv-sidebar-rail"_s;
const auto recent = u"orv-palette-recent"_s;
const auto appearance = u"orv-appearance"_s;
const auto leadFilters = u"orv-leads-filters-rail"_s;
const auto leadColumnsKey = u"orv-leads-columns"_s;
const auto nameKey = u"orv-signed-in-name"_s;
const auto versionKey = u"orv-version-told"_s;
const auto inboxLeadsKey = u"orv-inbox-leads-width"_s;
const auto positiveRepliesKey = u"positiveReplies"_s;
const auto accountErrorsKey = u"accountErrors"_s;
const auto notifySinceKey = u"orv-notify-since-"_s;
const auto failedAccountsKey = u"orv-failed-accounts-"_s;
const auto geometryKey = u"orv-window-geometry"_s;
const auto maximizedKey = u"orv-window-maximized"_s;
const auto sizeKey = u"orv-size"_s;
const auto tablesKey = u"orv-table-"_s;
}  // namespace

bool SettingsPreferences::sidebarRail() const { return m_settings.value(rail).toBool(); }
void SettingsPreferences::setSidebarRail(bool value) { m_settings.setValue(rail, value); }

QStringList SettingsPreferences::recentCommands() const { return m_settings.value(recent).toStringList(); }
void SettingsPreferences::setRecentCommands(const QStringList& ids) { m_settings.setValue(recent, ids); }

QString SettingsPreferences::theme() const { return m_settings.value(appearance, u"system"_s).toString(); }
void SettingsPreferences::setTheme(const QString& theme) { m_settings.setValue(appearance, theme); }

int SettingsPreferences::size() const { return std::clamp(m_settings.value(sizeKey, 100).toInt(), 50, 300); }
void SettingsPreferences::setSize(int percent) { m_settings.setValue(sizeKey, percent); }

bool SettingsPreferences::leadFiltersFolded() const { return m_settings.value(leadFilters).toBool(); }
void SettingsPreferences::setLeadFiltersFolded(bool folded) { m_settings.setValue(leadFilters, folded); }

QMap<QString, QStringList> SettingsPreferences::leadColumns() const {
  const auto kept = QJsonDocument::fromJson(m_settings.value(leadColumnsKey).toString().toUtf8()).object();
  QMap<QString, QStringList> columns;
  for (const QString& database : kept.keys()) columns.insert(database, kept.value(database).toVariant().toStringList());
  return columns;
}
void SettingsPreferences::setLeadColumns(const QMap<QString, QStringList>& columns) {
  QJsonObject kept;
  for (const auto& [database, keys] : columns.asKeyValueRange())
    kept.insert(database, QJsonArray::fromStringList(keys));
  m_settings.setValue(leadColumnsKey, QString::fromUtf8(QJsonDocument(kept).toJson(QJsonDocument::Compact)));
}

QString SettingsPreferences::signedInName() const { return m_settings.value(nameKey).toString(); }
void SettingsPreferences::setSignedInName(const QString& name) { m_settings.setValue(nameKey, name); }

QString SettingsPreferences::versionTold() const { return m_settings.value(versionKey).toString(); }
void SettingsPreferences::setVersionTold(const QString& version) { m_settings.setValue(versionKey, version); }

int SettingsPreferences::inboxLeadsWidth() const { return m_settings.value(inboxLeadsKey).toInt(); }
void SettingsPreferences::setInboxLeadsWidth(int width) { m_settings.setValue(inboxLeadsKey, width); }

bool SettingsPreferences::isOn(const QString& choice) const { return m_settings.value(choice).toString() != "off"_L1; }
void SettingsPreferences::turn(const QString& choice, bool on) { m_settings.setValue(choice, on ? u"on"_s : u"off"_s); }

bool SettingsPreferences::positiveReplies() const { return isOn(positiveRepliesKey); }
void SettingsPreferences::setPositiveReplies(bool on) { turn(positiveRepliesKey, on); }
bool SettingsPreferences::accountErrors() const { return isOn(accountErrorsKey); }
void SettingsPreferences::setAccountErrors(bool on) { turn(accountErrorsKey, on); }

QString SettingsPreferences::notifySince(const QString& workspace) const {
  return m_settings.value(notifySinceKey + workspace).toString();
}
void SettingsPreferences::setNotifySince(const QString& workspace, const QString& time) {
  m_settings.setValue(notifySinceKey + workspace, time);
}

QStringList SettingsPreferences::failedAccounts(const QString& workspace) const {
  return m_settings.value(failedAccountsKey + workspace).toStringList();
}
void SettingsPreferences::setFailedAccounts(const QString& workspace, const QStringList& ids) {
  m_settings.setValue(failedAccountsKey + workspace, ids);
}

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
