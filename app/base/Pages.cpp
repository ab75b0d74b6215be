#include "app/base/Pages.h"

#include "app/base/EnumName.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Pages {

const QList<PageInfo>& all() {
  static const QList<PageInfo> pages{
      {Page::dashboard, u"Dashboard"_s, u"view-statistics"_s, u'd', Group::figures, false},
      {Page::analytics, u"Analytics"_s, u"office-chart-bar"_s, u'a', Group::figures},
      {Page::leads, u"Leads"_s, u"system-users"_s, u'l', Group::audience},
      {Page::rampup, u"Rampup"_s, u"view-calendar-timeline"_s, u'r', Group::audience},
      {Page::deliverability, u"Deliverability"_s, u"security-high"_s, u'v', Group::audience},
      {Page::campaigns, u"Campaigns"_s, u"mail-send"_s, u'c', Group::work},
      {Page::inbox, u"Inbox"_s, u"mail-folder-inbox"_s, u'i', Group::work},
      {Page::accounts, u"Accounts"_s, u"mail-message"_s, u'e', Group::work},
      {Page::inboxSetup, u"Inbox setup"_s, u"tools-wizard"_s, u'b', Group::work},
      {Page::settings, u"Settings"_s, u"configure"_s, u's', Group::foot, false},
  };
  return pages;
}

const PageInfo& info(Page page) { return all().at(int(page)); }
QString name(Page page) { return enumName(page); }
std::optional<Page> pageNamed(const QString& name) { return enumNamed<Page>(name); }

const QList<TabInfo>& allTabs() {
  static const QList<TabInfo> tabs{
      {SettingsTab::account, u"Account"_s, u"General"_s},
      {SettingsTab::workspace, u"Workspace"_s, u"General"_s},
      {SettingsTab::company, u"Company"_s, u"General"_s},
      {SettingsTab::members, u"Members"_s, u"General"_s},
      {SettingsTab::credits, u"Credits"_s, u"General"_s},
      {SettingsTab::clients, u"Clients"_s, u"General"_s},
      {SettingsTab::notifications, u"Notifications"_s, u"General"_s},
      {SettingsTab::blocklist, u"Blocklist"_s, u"Outreach"_s},
      {SettingsTab::tags, u"Tags"_s, u"Outreach"_s},
      {SettingsTab::replyLabels, u"Reply labels"_s, u"Outreach"_s},
      {SettingsTab::ai, u"AI"_s, u"Connections"_s},
      {SettingsTab::integrations, u"Integrations"_s, u"Connections"_s},
      {SettingsTab::mcp, u"MCP"_s, u"Connections"_s},
      {SettingsTab::features, u"Features"_s, u"Advanced"_s},
      {SettingsTab::migration, u"Migration"_s, u"Advanced"_s},
  };
  return tabs;
}

QString name(SettingsTab tab) { return enumName(tab); }
std::optional<SettingsTab> tabNamed(const QString& name) { return enumNamed<SettingsTab>(name); }

}  // namespace orv::Pages
