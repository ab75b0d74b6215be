#pragma once

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QVariantMap>
#include <functional>
#include <optional>

#include "app/base/Navigator.h"
#include "app/base/PageAction.h"
#include "app/base/desktop/Preferences.h"
#include "kit/async/Clock.h"
#include "kit/async/TaskScope.h"

namespace orv {

/// A page as the sidebar shows it.
struct PageEntry {
  Q_GADGET
  Q_PROPERTY(QString page MEMBER page)
  Q_PROPERTY(QString title MEMBER title)
  Q_PROPERTY(QString iconName MEMBER iconName)
  /// Second key of the "go to" chord.
  Q_PROPERTY(QString key MEMBER key)
  /// The same for pages that stand together.
  Q_PROPERTY(int group MEMBER group)
  Q_PROPERTY(bool atFoot MEMBER atFoot)

 public:
  QString page;
  QString title;
  QString iconName;
  QString key;
  int group = 0;
  bool atFoot = false;

  bool operator==(const PageEntry&) const = default;
};

/// Where the person is: the open page, what is selected in it, the palette and the sidebar.
class Router final : public QObject, public Navigator {
  Q_OBJECT
  Q_PROPERTY(QString page READ pageName NOTIFY changed)
  Q_PROPERTY(QList<orv::PageEntry> pages READ pages CONSTANT)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(int direction READ direction NOTIFY changed)
  Q_PROPERTY(QString inboxThread READ inboxThread NOTIFY changed)
  Q_PROPERTY(QString campaign READ campaign NOTIFY changed)
  Q_PROPERTY(QString leadList READ leadList NOTIFY changed)
  Q_PROPERTY(QString rampupTemplate READ rampupTemplate NOTIFY changed)
  Q_PROPERTY(QString inboxSetupProject READ inboxSetupProject NOTIFY changed)
  Q_PROPERTY(QString settingsTab READ settingsTabName NOTIFY changed)
  Q_PROPERTY(QString offFeature READ offFeature NOTIFY changed)
  Q_PROPERTY(bool paletteOpen READ paletteOpen WRITE setPaletteOpen NOTIFY changed)
  Q_PROPERTY(bool shortcutsOpen READ shortcutsOpen WRITE setShortcutsOpen NOTIFY changed)
  Q_PROPERTY(bool collapsed READ collapsed WRITE setCollapsed NOTIFY changed)
  Q_PROPERTY(bool foldable READ foldable WRITE setFoldable NOTIFY foldableChanged)
  Q_PROPERTY(bool goPending READ goPending NOTIFY changed)
  Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY changed)
  Q_PROPERTY(bool canGoForward READ canGoForward NOTIFY changed)

 public:
  Router(Preferences& preferences, Clock& clock, QObject* parent = nullptr);

  /// In the sidebar's order.
  static QList<PageEntry> pages();

  Page page() const { return m_page; }
  QString pageName() const { return Pages::name(m_page); }
  /// Title of what is shown: the page, or the feature that is off.
  QString title() const;
  /// 1 when the last change went down the sidebar's order, -1 when up, 0 when nothing changed.
  int direction() const { return m_direction; }
  QString inboxThread() const { return m_items.value(Page::inbox); }
  QString campaign() const { return m_items.value(Page::campaigns); }
  QString leadList() const { return m_items.value(Page::leads); }
  QString rampupTemplate() const { return m_items.value(Page::rampup); }
  QString inboxSetupProject() const { return m_items.value(Page::inboxSetup); }
  SettingsTab settingsTab() const { return m_settingsTab; }
  QString settingsTabName() const { return Pages::name(m_settingsTab); }
  /// Key of the switched-off feature that the person tried to open; empty when none.
  QString offFeature() const { return m_offFeature; }
  /// What a migration is to begin with, which its tab names. Nothing fills it yet: no answer of the service knows of
  /// any.
  const QStringList& migrationPick() const { return m_migrationPick; }
  bool paletteOpen() const { return m_paletteOpen; }
  /// The sheet of keyboard shortcuts is shown.
  bool shortcutsOpen() const { return m_shortcutsOpen; }
  bool collapsed() const { return m_collapsed; }
  /// False where the window has room for the rail only: nobody would see what they choose.
  bool foldable() const { return m_foldable; }
  bool goPending() const { return m_goPending; }

  void open(Page page) override;
  void openItem(Page page, const QString& id) override;
  void openSettings(SettingsTab tab) override;
  void showing(Page page, const QString& id) override;
  /// Opens the page where the place says.
  void open(Page page, const PagePlace& place);
  QString openedItem(Page page) const override;
  QString workspace() const override { return m_workspace; }
  void openWorkspace(const QString& slug) override {
    if (slug != m_workspace && onWorkspaceAsked) onWorkspaceAsked(slug);
  }
  /// Opens another workspace, which ends in setWorkspace().
  std::function<void(const QString& slug)> onWorkspaceAsked;
  void setWorkspace(const QString& slug) { m_workspace = slug; }
  /// The same by name; a name that no page has changes nothing.
  Q_INVOKABLE void open(const QString& page);
  Q_INVOKABLE void openCampaign(const QString& id) { openItem(Page::campaigns, id); }
  /// Whether there is a place to go back to, or forward again.
  bool canGoBack() const { return m_at > 0; }
  bool canGoForward() const { return m_at + 1 < m_places.size(); }
  Q_INVOKABLE void goBack() { goTo(m_at - 1); }
  Q_INVOKABLE void goForward() { goTo(m_at + 1); }
  /// From a record's page to the list that it is one of.
  Q_INVOKABLE void goUp() { open(m_page); }
  /// What the page looks like where the person is: which row is current, how far lists are scrolled. Nobody reads it
  /// but the page when they come back.
  Q_INVOKABLE void keepView(const QVariantMap& view) { m_places[m_at].view = view; }
  Q_INVOKABLE QVariantMap keptView() const { return m_places[m_at].view; }
  /// The person went elsewhere within the open page: to another tab, or on with a search. What is typed in one go is
  /// one place.
  void moveTo(const PagePlace& place);
  /// Says where in the open page they are, as a page is shown.
  void amendPlace(const PagePlace& place);
  void setPaletteOpen(bool open);
  void setShortcutsOpen(bool open);
  void setCollapsed(bool collapsed);
  void setFoldable(bool foldable);

  /// First key of the "go to" chord; the second is waited for briefly.
  Q_INVOKABLE void startGo();
  /// Second key of the chord. True when it opened a page.
  Q_INVOKABLE bool finishGo(const QString& key);

  const QSet<QString>& featuresOff() const { return m_featuresOff; }
  /// Page names of the switched-off features of the open workspace.
  void setFeaturesOff(QSet<QString> features);
  /// Forgets the selections of one workspace: an id of one is nothing in the next.
  void reset();

 Q_SIGNALS:
  void changed();
  void foldableChanged();
  /// Somebody asked for the page itself, be it the open one: it shows what it begins with.
  void pageAsked(orv::Pages::Page page);
  /// Back or forward: the page shows what it showed then.
  void walked(const orv::PagePlace& place);
  /// Another place is about to be shown: the last moment to keep the view of this one.
  void leaving();
  /// A place is shown again that keeps a view.
  void returned();

 private:
  /// Where the person was: a page, what was open in it, and where in that.
  struct Place {
    Page page;
    QString item;
    PagePlace within;
    QVariantMap view = {};
    bool operator==(const Place& other) const {
      return page == other.page && item == other.item && within == other.within;
    }
  };

  static constexpr qsizetype placesAtMost = 20;
  /// Who types on after a shorter rest is still typing the same.
  static constexpr std::chrono::milliseconds typingRest{1500};
  /// What lay ahead is given up, as everywhere.
  void remember(const PagePlace& within);
  void viewAsBefore();
  void goTo(qsizetype place);
  /// Which tab the settings show, where it is they that are open.
  void followTab(const PagePlace& place);
  bool isOff(Page page) const;
  bool show(Page page);
  Task<void> endGo();

  Preferences& m_preferences;
  Clock& m_clock;
  QString m_workspace;
  QSet<QString> m_featuresOff;
  Page m_page = Page::dashboard;
  int m_direction = 0;
  /// The record that is open, of pages that have one open.
  QHash<Page, QString> m_items;
  SettingsTab m_settingsTab = SettingsTab::account;
  QString m_offFeature;
  QStringList m_migrationPick;
  bool m_paletteOpen = false;
  bool m_shortcutsOpen = false;
  bool m_collapsed = false;
  bool m_foldable = true;
  bool m_goPending = false;
  TaskSlot m_goTimer;
  /// Oldest first; the one at m_at is shown.
  QList<Place> m_places{{m_page, {}, {}}};
  qsizetype m_at = 0;
  /// When the value of the place was last changed; invalid once something else happened.
  QDateTime m_typedAt;
};

}  // namespace orv
