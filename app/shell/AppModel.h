#pragma once

#include <QAbstractListModel>
#include <QObject>
#include <memory>
#include <optional>

#include "app/base/EnumName.h"
#include "app/base/Jobs.h"
#include "app/base/Journal.h"
#include "app/base/Services.h"
#include "app/base/StoreCache.h"
#include "app/base/desktop/MemoryPressure.h"
#include "app/shell/Appearance.h"
#include "app/shell/Departure.h"
#include "app/shell/OpenPage.h"
#include "app/shell/Router.h"
#include "app/shell/SignInModel.h"
#include "app/shell/WorkspaceSession.h"
#include "kit/session/SessionStore.h"
#include "kit/session/SessionTransport.h"

namespace orv {

/// What the process gives the application: everything that touches the network, the desktop or time.
struct Platform {
  APITransport& api;
  Keychain& keychain;
  Clock& clock;
  Preferences& preferences;
  Browser& browser;
  Clipboard& clipboard;
  FilePanel& filePanel;
  FileRevealer& revealer;
  MemoryPressure& memoryPressure;
  QUrl baseURL;
  Device device;
  /// Set in demo mode: the session that is simply there. Nothing is then read from or written to the keychain.
  std::optional<StoredSession> demoSession;
  /// Where the person's state is kept that is no setting; empty to keep none.
  QString stateFolder = {};
  /// Where what is typed survives this process; null keeps it in memory alone.
  JournalFiles* journalFiles = nullptr;
};

/// The application's root: signed out or signed in, and the few workspaces kept warm.
class AppModel final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString phase READ phaseName NOTIFY changed)
  Q_PROPERTY(bool isDemo READ isDemo CONSTANT)
  Q_PROPERTY(QString greetedName READ greetedName CONSTANT)
  Q_PROPERTY(QString userName READ userName NOTIFY changed)
  Q_PROPERTY(QString userEmail READ userEmail NOTIFY changed)
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

 public:
  enum class Phase { booting, signedOut, signedIn };
  Q_ENUM(Phase)

  static constexpr qsizetype sessionsAtMost = 3;

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
  const QStringList& sessionOrder() const { return m_sessions.keys(); }

  /// Who was signed in when the program last ran; empty when nobody was.
  QString greetedName() const { return m_platform.preferences.signedInName(); }
  QString userName() const;
  QString userEmail() const;
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
  Journal& journal() { return m_journal; }

  Q_INVOKABLE void openWorkspace(const QString& slug);
  /// Saves what is unsaved first, and asks when that does not work.
  Q_INVOKABLE void signOut();
  /// The window wants to close. False when something has to be saved first; closable() tells when that is done.
  Q_INVOKABLE bool mayClose();
  /// The window became active: workspaces and roles may have changed meanwhile, or the session run out.
  Q_INVOKABLE void refreshAccount();
  /// A sign-out or a save is under way that the person would miss if the program ended now.
  bool isFinishing() const { return !m_keychain.isIdle() || !m_farewells.isIdle() || !m_journal.isIdle(); }

 Q_SIGNALS:
  void changed();
  void closable();

 private:
  Task<void> boot();
  Task<void> stopWaitingForKeychain();
  void adopt(StoredSession session);
  void restore(std::optional<StoredSession> session);
  void open(const WorkspaceSummary& workspace);
  std::shared_ptr<WorkspaceContext> contextOf(const WorkspaceSummary& workspace);
  void openInitialWorkspace();
  /// With the open session's token; a 401 ends that session.
  template <class R>
  Task<R> accountCall(Request<R> request);
  Task<void> rememberWorkspace(QString slug);
  Task<void> fetchAccount();
  void applyAccount(const MeResponse& account);
  void keep();
  Task<void> saveSession(StoredSession session);
  Task<void> clearSession();
  Task<void> signOutTask();
  Task<void> closeTask();
  Task<void> logOut(QString token);
  void endSession(const QString& token);
  /// What was typed stays for the same person, unless they go by choice.
  enum class Leaving { byChoice, sessionEnded };
  void leave(Leaving why);
  void trim();

  Platform m_platform;
  SessionTransport m_sessionApi;
  SessionStore m_store;
  Toasts m_toasts;
  Overlays m_overlays;
  Router m_router;
  Appearance m_appearance;
  SignInModel m_signIn;
  MemoryJournalFiles m_memoryFiles;
  Journal m_journal;
  Jobs m_jobs;
  Services m_services;

  Phase m_phase = Phase::booting;
  std::optional<StoredSession> m_stored;
  /// What the keychain was last given: each write may make the desktop ask for the keyring's password.
  std::optional<StoredSession> m_kept;
  std::optional<WorkspaceSummary> m_current;
  WorkspaceSession* m_session = nullptr;
  StoreCache<WorkspaceSession> m_sessions;
  OpenPage m_openPage;
  Departure m_departure;
  QHash<QString, std::weak_ptr<WorkspaceContext>> m_contexts;

  TaskSlot m_boot;
  TaskSlot m_bootPatience;
  TaskSlot m_account;
  TaskSlot m_remember;
  /// Saves what is unsaved before the person goes.
  TaskSlot m_leaving;
  /// The person was asked whether what could not be saved may go.
  bool m_closable = false;
  bool m_closing = false;
  /// Keychain writes, one after the other: a save overtaken by the clear of a sign-out would bring the session back.
  TaskSlot m_keychain;
  TaskScope m_farewells;
  bool m_toldUnsaved = false;
};

}  // namespace orv
