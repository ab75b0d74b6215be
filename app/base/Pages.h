#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <optional>

namespace orv {

/// The sidebar's pages, in its order. Their names are what is stored, searched and switched off.
namespace Pages {
Q_NAMESPACE
enum class Page {
  dashboard,
  analytics,
  leads,
  rampup,
  deliverability,
  campaigns,
  inbox,
  accounts,
  inboxSetup,
  settings
};
Q_ENUM_NS(Page)

enum class SettingsTab {
  account,
  workspace,
  company,
  members,
  credits,
  clients,
  notifications,
  blocklist,
  tags,
  replyLabels,
  ai,
  integrations,
  mcp,
  features,
  migration
};
Q_ENUM_NS(SettingsTab)

/// Pages that the sidebar keeps together; the last stand at its foot.
enum class Group { figures, audience, work, foot };

/// What the shell says of a page, beside its name.
struct PageInfo {
  Page page;
  QString title;
  QString icon;
  /// Second key of the "go to" chord, in lower case.
  QChar key;
  Group group;
  /// Whether a workspace can switch it off; its name is the feature's key then.
  bool optional = true;
};

const QList<PageInfo>& all();
const PageInfo& info(Page page);
QString name(Page page);
std::optional<Page> pageNamed(const QString& name);

struct TabInfo {
  SettingsTab tab;
  QString title;
  QString section;
};
const QList<TabInfo>& allTabs();
QString name(SettingsTab tab);
std::optional<SettingsTab> tabNamed(const QString& name);
}  // namespace Pages

using Pages::Page;
using Pages::SettingsTab;

}  // namespace orv
