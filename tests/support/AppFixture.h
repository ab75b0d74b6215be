#pragma once

#include <QDir>
#include <QList>
#include <map>

#include "app/base/Jobs.h"
#include "app/base/Journal.h"
#include "app/base/Program.h"
#include "app/base/WorkspaceContext.h"
#include "app/base/desktop/MemoryPressure.h"
#include "kit/async/ManualClock.h"
#include "kit/session/Keychain.h"
#include "tests/support/FakeTransport.h"
#include "tests/support/fixtures.h"

namespace orv::test {

/// Saves into `folder` under the suggested name; an empty folder is a cancelled panel.
class FakeFilePanel final : public FilePanel {
 public:
  QString folder;
  QString suggested;
  bool asksBeforeReplacing = true;
  Task<std::optional<ChosenFile>> saveFile(QString suggestedName, QString, QString) override {
    suggested = suggestedName;
    if (folder.isEmpty()) co_return std::nullopt;
    co_return ChosenFile{QDir(folder).filePath(suggestedName), asksBeforeReplacing};
  }
  /// The file that gets opened; empty is a cancelled panel.
  QString opened;
  Task<std::optional<QString>> openFile(QString, QString) override {
    co_return opened.isEmpty() ? std::nullopt : std::optional(opened);
  }
};

class FakeRevealer final : public FileRevealer {
 public:
  QString revealed;
  void reveal(const QString& path) override { revealed = path; }
};

class FakeClipboard final : public Clipboard {
 public:
  bool works = true;
  QString text;
  bool setText(const QString& copied) override {
    if (works) text = copied;
    return works;
  }
};

class FakeBrowser final : public Browser {
 public:
  bool works = true;
  QList<QUrl> opened;
  bool open(const QUrl& url) override {
    opened.append(url);
    return works;
  }
};

class MemoryPreferences final : public Preferences {
 public:
  bool rail = false;
  QStringList recent;
  QString chosenTheme = QStringLiteral("system");
  QRect geometry;
  bool maximized = false;
  QString name;
  bool foldedFilters = false;
  QMap<QString, QStringList> columns;
  QString toldVersion;
  int leadsWidth = 0;
  bool tellsOfReplies = true;
  bool tellsOfAccounts = true;
  /// By workspace.
  QMap<QString, QString> toldUntil;
  QMap<QString, QStringList> toldFailures;

  bool sidebarRail() const override { return rail; }
  void setSidebarRail(bool value) override { rail = value; }
  QStringList recentCommands() const override { return recent; }
  void setRecentCommands(const QStringList& ids) override { recent = ids; }
  QString theme() const override { return chosenTheme; }
  void setTheme(const QString& theme) override { chosenTheme = theme; }
  bool leadFiltersFolded() const override { return foldedFilters; }
  void setLeadFiltersFolded(bool value) override { foldedFilters = value; }
  QMap<QString, QStringList> leadColumns() const override { return columns; }
  void setLeadColumns(const QMap<QString, QStringList>& value) override { columns = value; }
  QString signedInName() const override { return name; }
  void setSignedInName(const QString& value) override { name = value; }
  QString versionTold() const override { return toldVersion; }
  void setVersionTold(const QString& version) override { toldVersion = version; }
  int inboxLeadsWidth() const override { return leadsWidth; }
  void setInboxLeadsWidth(int width) override { leadsWidth = width; }
  bool positiveReplies() const override { return tellsOfReplies; }
  void setPositiveReplies(bool on) override { tellsOfReplies = on; }
  bool accountErrors() const override { return tellsOfAccounts; }
  void setAccountErrors(bool on) override { tellsOfAccounts = on; }
  QString notifySince(const QString& workspace) const override { return toldUntil.value(workspace); }
  void setNotifySince(const QString& workspace, const QString& time) override { toldUntil[workspace] = time; }
  QStringList failedAccounts(const QString& workspace) const override { return toldFailures.value(workspace); }
  void setFailedAccounts(const QString& workspace, const QStringList& ids) override { toldFailures[workspace] = ids; }
  QRect windowGeometry() const override { return geometry; }
  void setWindowGeometry(const QRect& value) override { geometry = value; }
  bool windowMaximized() const override { return maximized; }
  void setWindowMaximized(bool value) override { maximized = value; }
};

/// Items in memory. `failure` makes every operation throw, `writeFailure` each write; `gate`, when set, keeps every
/// operation waiting. `changes` counts the writes and removals tried.
class MemoryKeychain final : public Keychain {
 public:
  MemoryKeychain() : Keychain(QStringLiteral("com.orvella.test")) {}
  std::map<QString, QByteArray> items;
  std::optional<KeychainError> failure, writeFailure;
  std::optional<OneShot<bool>> gate;
  int changes = 0;

  Task<std::optional<QByteArray>> read(QString account) override {
    if (gate) co_await gate->wait();
    if (failure) throw *failure;
    const auto found = items.find(account);
    if (found == items.end()) co_return std::nullopt;
    co_return found->second;
  }
  Task<void> write(QString account, QByteArray data) override {
    ++changes;
    if (gate) co_await gate->wait();
    if (failure) throw *failure;
    if (writeFailure) throw *writeFailure;
    items[account] = data;
  }
  Task<void> remove(QString account) override {
    ++changes;
    if (gate) co_await gate->wait();
    if (failure) throw *failure;
    items.erase(account);
  }
};

/// Remembers where a store led.
class FakeNavigator final : public Navigator {
 public:
  Page page = Page::dashboard;
  QString item;
  void open(Page opened) override { openItem(opened, {}); }
  void openItem(Page opened, const QString& id) override {
    page = opened;
    item = id;
  }
  std::optional<SettingsTab> tab;
  void openSettings(SettingsTab opened) override {
    open(Page::settings);
    tab = opened;
  }
  void showing(Page shown, const QString& id) override {
    if (shown == page) item = id;
  }
  QString openedItem(Page asked) const override { return asked == page ? item : QString(); }
  QString slug = QStringLiteral("acme");
  QString workspace() const override { return slug; }
  void openWorkspace(const QString& opened) override { slug = opened; }
};

/// Remembers what a page asked of the program.
class FakeProgram final : public Program {
 public:
  QString chosenTheme = QStringLiteral("system");
  QStringList off, pick;
  QStringList deleted;
  int readings = 0, signedOut = 0;
  QString userName() const override { return QStringLiteral("Ana Lind"); }
  QString userEmail() const override { return QStringLiteral("ana@acme.example"); }
  QString userId() const override { return QStringLiteral("u1"); }
  QString theme() const override { return chosenTheme; }
  void setTheme(const QString& theme) override { chosenTheme = theme; }
  QString version() const override { return QStringLiteral("1.2.3"); }
  QString device() const override { return QStringLiteral("desk"); }
  QString newer, trouble;
  QString newVersion() const override { return newer; }
  bool newVersionOpens() const override { return !newer.isEmpty(); }
  QString notificationTrouble() const override { return trouble; }
  void openNewVersion() override {}
  QStringList featuresOff() const override { return off; }
  QStringList migrationPick() const override { return pick; }
  void signOut() override { ++signedOut; }
  void showChangelog() override {}
  void showLog() override {}
  void rereadAccount() override { ++readings; }
  void deletesWorkspace(const QString& slug, Deletion deletion) override {
    if (deletion == Deletion::done) deleted.append(slug);
    if (deletion == Deletion::unknown) rereadAccount();
  }
};

/// Everything a store needs, faked.
struct AppFixture {
  ManualClock clock;
  FakeTransport api;
  FakeFilePanel filePanel;
  FakeRevealer revealer;
  FakeClipboard clipboard;
  FakeBrowser browser;
  MemoryPreferences preferences;
  MemoryKeychain keychain;
  MemoryPressure memoryPressure;
  Toasts toasts{clock};
  Overlays overlays;
  FakeNavigator navigator;
  FakeProgram program;
  MemoryJournalFiles journalFiles;
  Journal journal{journalFiles, clock};
  Jobs jobs;
  Services services{clock,       toasts,    overlays,  navigator,
                    browser,     clipboard, filePanel, revealer,
                    preferences, journal,   jobs,      QUrl(QStringLiteral("https://app.orvella.example")),
                    program};
  /// Of the workspace "acme", whose member the person is.
  std::shared_ptr<WorkspaceContext> context = std::make_shared<WorkspaceContext>(
      WorkspaceSummary{
          QStringLiteral("w1"), QStringLiteral("acme"), QStringLiteral("Acme"), {QStringLiteral("member")}, {}, {}},
      QString(), api, services, [] {});
};

}  // namespace orv::test
