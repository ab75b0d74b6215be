#pragma once

#include <QAbstractListModel>
#include <QObject>
#include <memory>
#include <optional>

#include "app/base/EnumName.h"
#include "app/base/Jobs.h"
#include "app/base/Journal.h"
#include "app/base/Services.h"
#include "app/shell/Account.h"
#include "app/shell/Appearance.h"
#include "app/shell/Departure.h"
#include "app/shell/Notifier.h"
#include "app/shell/OpenPage.h"
#include "app/shell/Platform.h"
#include "app/shell/ProgramModel.h"
#include "app/shell/Router.h"
#include "app/shell/SessionKeeper.h"
#include "app/shell/SignInModel.h"
#include "app/shell/WarmWorkspaces.h"
#include "kit/session/SessionTransport.h"

namespace orv {

/// The application's root: signed out or signed in, and the few workspaces kept warm.
class AppModel final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString phase READ phaseName NOTIFY changed)
  Q_PROPERTY(bool isDemo READ isDemo CONSTANT)
  Q_PROPERTY(QString greetedName READ greetedName CONSTANT)
  Q_PROPERTY(QString userName READ userName NOTIFY changed)
  Q_PROPERTY(QString userEmail READ userEmail NOTIFY changed)
  Q_PROPERTY(QString service READ service CONSTANT)
  Q_PROPERTY(QVariantList workspaces READ workspaces NOTIFY changed)
  Q_PROPERTY(orv::WorkspaceSession* session READ session NOTIFY changed)
  Q_PROPERTY(orv::Router* router READ router CONSTANT)
  Q_PROPERTY(orv::OpenPage* openPage READ openPage CONSTANT)
  Q_PROPERTY(orv::Toasts* toasts READ toasts CONSTANT)
  Q_PROPERTY(orv::Overlays* overlays READ overlays CONSTANT)
  Q_PROPERTY(orv::SignInModel* signIn READ signIn CONSTANT)
  Q_PROPERTY(orv::Appearance* appearance READ appearance CONSTANT)
  Q_PROPERTY(orv::Jobs* jobs READ jobs CONSTANT)
  Q_PROPERTY(orv::Departure* departure READ departure CONSTANT)
  Q_PROPERTY(orv::ProgramModel* program READ program CONSTANT)
  Q_PROPERTY(orv::Notifier* notifier READ notifier CONSTANT)

 public:
  enum class Phase { booting, signedOut, signedIn };
  Q_ENUM(Phase)

  explicit AppModel(Platform platform, QObject* parent = nullptr);
  ~AppModel() override;

  /// Reads the stored session and opens its workspace, or shows sign-in.
  void start();

  Phase phase() const { return m_phase; }
  QString phaseName() const { return enumName(m_phase); }
  bool isDemo() const { return m_platform.demoSession.has_value(); }
  const std::optional<StoredSession>& stored() const { return m_stored; }
  const std::optional<WorkspaceSummary>& current() const { return m_current; }
  WorkspaceSession* session() const { return m_session; }
  /// Slugs of the warm workspace sessions, oldest first.
  const QStringList& sessionOrder() const { return m_workspaces.order(); }

  /// Who was signed in when the program last ran; empty when nobody was.
  QString greetedName() const;
  QString userName() const;
  QString userEmail() const;
  /// Which service they are signed in to, when it is another than production's.
  QString service() const { return isDemo() ? QString() : m_signIn.service(); }
  /// Name, slug and role of each workspace, in the service's order, with `current` set on the open one.
  QVariantList workspaces() const;

  Router* router() { return &m_router; }
  OpenPage* openPage() { return &m_openPage; }
  Toasts* toasts() { return &m_toasts; }
  Overlays* overlays() { return &m_overlays; }
  SignInModel* signIn() { return &m_signIn; }
  Appearance* appearance() { return &m_appearance; }
  Jobs* jobs() { return &m_jobs; }
  Departure* departure() { return &m_departure; }
  /// Somebody has to begin() it.
  Notifier* notifier() { return &m_notifier; }
  Journal& journal() { return m_journal; }
  ProgramModel* program() { return &m_program; }

  Q_INVOKABLE void openWorkspace(const QString& slug);
  /// Saves what is unsaved first, and asks when that does not work.
  Q_INVOKABLE void signOut();
  /// The window wants to close. False when something has to be saved first; closable() tells when that is done.
  Q_INVOKABLE bool mayClose() { return m_departure.mayClose(); }
  /// The window became active: workspaces and roles may have changed meanwhile, or the session run out.
  Q_INVOKABLE void refreshAccount();
  /// The person changed their name, a workspace's, or a role.
  void rereadAccount();
  /// See Program::deletesWorkspace().
  void deletesWorkspace(const QString& slug, Program::Deletion deletion);
  /// Once it has ended, the person wants it to begin again.
  bool startsAgain() const { return m_startsAgain; }
  /// A sign-out or a save is under way that the person would miss if the program ended now.
  bool isFinishing() const {
    return !m_keeper.isIdle() || !m_farewells.isIdle() || !m_journal.isIdle() || m_workspaces.isSending();
  }

 Q_SIGNALS:
  void changed();
  void closable();

 private:
  Task<void> boot();
  Task<void> stopWaitingForKeychain();
  void adopt(StoredSession session);
  void restore(std::optional<StoredSession> session);
  void open(const WorkspaceSummary& workspace);
  void openInitialWorkspace();
  void applyAccount(const MeResponse& account);
  /// They are in no workspace any more.
  void leaveForNoWorkspace();
  QList<WorkspaceSummary> theirs(QList<WorkspaceSummary> said) const;
  void takeWorkspaces();
  void workspaceDeleted(const QString& slug);
  /// The open workspace is none of theirs any more.
  void leaveWorkspace(WorkspaceSummary lost);
  /// What was being typed when the program last ended, and is not on the screen.
  void tellOfKept();
  /// To the place that a text in the journal names.
  void leadTo(const QString& workspace, Page page, const QStringList& name);
  Task<void> logOut(QString token);
  Task<void> signOutAtService(QString token);
  /// A session that the clock of this computer says is over is not used, and is deleted when the service's says so too.
  void doubt(const StoredSession& session);
  void settleDoubt(const QDateTime& serviceTime);
  void endSession(const QString& token);
  void tellSize(int percent);
  Task<void> endInTime(QString token);
  /// What was typed stays for the same person, unless they go by choice.
  enum class Leaving { byChoice, sessionEnded, clockSaysOver };
  void leave(Leaving why);
  /// There may be a connection again.
  void tryAgain();

  Platform m_platform;
  SessionTransport m_sessionApi;
  Account m_account;
  Toasts m_toasts;
  SessionKeeper m_keeper;
  Overlays m_overlays;
  Router m_router;
  Appearance m_appearance;
  SignInModel m_signIn;
  MemoryJournalFiles m_memoryFiles;
  Journal m_journal;
  Jobs m_jobs;
  ProgramModel m_program;
  Services m_services;

  Phase m_phase = Phase::booting;
  QUuid m_sizeTold;
  bool m_startsAgain = false;
  std::optional<StoredSession> m_stored;
  /// When the session ended that the keychain still holds.
  std::optional<QDateTime> m_doubted;
  std::optional<WorkspaceSummary> m_current;
  /// Workspaces that the person deletes, by their slugs, until it is known what came of it.
  QHash<QString, Program::Deletion> m_deletions;
  WorkspaceSession* m_session = nullptr;
  WarmWorkspaces m_workspaces;
  OpenPage m_openPage;
  Departure m_departure;
  Notifier m_notifier;

  TaskSlot m_boot;
  TaskSlot m_bootPatience;
  TaskSlot m_expiry;
  TaskScope m_farewells;
};

}  // namespace orv
