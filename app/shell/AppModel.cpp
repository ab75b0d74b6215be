#include "app/shell/AppModel.h"

#include <QLoggingCategory>

#include "kit/session/authRequests.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {

Q_LOGGING_CATEGORY(lcApp, "orvella.app")

namespace {

const auto noWorkspaceNotice =
    u"You’re signed in, but you’re not in a workspace yet. Ask a workspace owner to invite you."_s;

QString keychainNotice(const KeychainError& error) {
  if (error.reason() == KeychainError::Reason::locked)
    return u"Your keyring is locked, so you’re signed out for now. Unlock it and start Orvella again, or sign in."_s;
  return u"Orvella can’t read your keyring. You can sign in, but you may be asked again next time."_s;
}

}  // namespace

AppModel::AppModel(Platform platform, QObject* parent)
    : QObject(parent),
      m_platform(std::move(platform)),
      m_sessionApi(m_platform.api, m_platform.clock),
      m_store(m_platform.keychain, m_platform.stateFolder),
      m_toasts(m_platform.clock),
      m_router(m_platform.preferences, m_platform.clock),
      m_appearance(m_platform.preferences),
      m_signIn(m_platform.api, m_platform.clock, m_platform.browser, m_platform.baseURL, m_platform.device),
      m_journal(m_platform.journalFiles ? *m_platform.journalFiles : m_memoryFiles, m_platform.clock),
      m_services{m_platform.clock,
                 m_toasts,
                 m_overlays,
                 m_router,
                 m_platform.browser,
                 m_platform.clipboard,
                 m_platform.filePanel,
                 m_platform.revealer,
                 m_platform.preferences,
                 m_journal,
                 m_jobs,
                 m_platform.baseURL},
      m_sessions(sessionsAtMost, StoreCache<WorkspaceSession>::Order::lastOpening),
      m_openPage(m_router),
      m_departure(
          m_platform.clock, m_overlays, m_jobs,
          {.unsaved = [this] { return m_sessions.unsavedWork(); }, .flush = [this] { return m_sessions.flush(); }}) {
  m_sessions.onNotSaved = [this](const QString& workspace, const WorkspaceSession& session) {
    m_toasts.show({.message = u"Unsaved changes in %1"_s.arg(session.name()),
                   .tone = Toasts::Tone::error,
                   .actionLabel = u"Open"_s,
                   .action = [this, workspace] { openWorkspace(workspace); },
                   .detail = session.unsavedWork().join(u'\n')});
  };
  m_router.onWorkspaceAsked = [this](const QString& slug) { openWorkspace(slug); };
  m_signIn.onSignedIn = [this](StoredSession session) { adopt(std::move(session)); };
  m_signIn.onDiscarded = [this](const QString& token) { m_farewells.start(logOut(token)); };
  connect(&m_journal, &Journal::opened, this, [this] {
    QList<Journal::Entry> kept = m_journal.entries();
    // Of a page that may not be opened for long: somebody has to say that it is there.
    std::ranges::sort(kept, std::greater(), &Journal::Entry::keptAt);
    for (const Journal::Entry& entry : kept) {
      const QStringList name = entry.key.name.split(u'/');
      const auto page = Pages::pageNamed(name.value(0));
      if (!page || name.value(1).isEmpty()) continue;
      m_toasts.show({.message = u"Unsaved work was kept from last time"_s,
                     .actionLabel = u"Open"_s,
                     .action = [this, slug = entry.key.workspace, at = *page, id = name.value(1)] {
                       openWorkspace(slug);
                       m_router.openItem(at, id);
                     }});
      return;
    }
  });
  connect(&m_platform.memoryPressure, &MemoryPressure::pressure, this, &AppModel::trim);
}

AppModel::~AppModel() = default;

void AppModel::start() {
  if (m_platform.demoSession) return restore(m_platform.demoSession);
  m_boot.start(boot());
  if (m_phase == Phase::booting) m_bootPatience.start(stopWaitingForKeychain());
}

Task<void> AppModel::boot() {
  try {
    restore(co_await m_store.load());
  } catch (const KeychainError& error) {
    qCWarning(lcApp, "No stored session: %s", error.what());
    restore(std::nullopt);
    m_signIn.setNotice(keychainNotice(error));
  }
}

Task<void> AppModel::stopWaitingForKeychain() {
  // A keyring may be asking for its password, or never answer at all. Signing in must be possible meanwhile, and the
  // stored session is still taken when it does come.
  co_await m_platform.clock.sleep(3s);
  if (m_phase != Phase::booting) co_return;
  m_phase = Phase::signedOut;
  m_signIn.setNotice(u"Waiting for your keyring. Unlock it, or sign in here."_s);
  m_signIn.checkMethods();
  Q_EMIT changed();
}

void AppModel::restore(std::optional<StoredSession> session) {
  m_bootPatience.cancel();
  if (session && session->isExpired(m_platform.clock.now())) {
    qCInfo(lcApp, "The stored session has expired");
    m_keychain.start(clearSession());
    session.reset();
  }
  // Who is signing in by now goes on with it; what the keyring had to say came too late.
  if (session && !session->workspaces.isEmpty() && !m_signIn.isUnderWay()) {
    m_stored = std::move(session);
    m_kept = m_stored;
    m_sessionApi.open(*m_stored);
    m_phase = Phase::signedIn;
    m_signIn.reset();
    openInitialWorkspace();
    refreshAccount();
    return;
  }
  m_phase = Phase::signedOut;
  m_signIn.setNotice({});
  m_signIn.checkMethods();
  Q_EMIT changed();
}

void AppModel::adopt(StoredSession session) {
  m_boot.cancel();
  m_bootPatience.cancel();
  m_signIn.reset();
  if (session.workspaces.isEmpty()) {
    m_phase = Phase::signedOut;
    m_signIn.setNotice(noWorkspaceNotice);
    m_farewells.start(logOut(session.token));
    Q_EMIT changed();
    return;
  }
  m_stored = std::move(session);
  m_sessionApi.open(*m_stored);
  m_phase = Phase::signedIn;
  openInitialWorkspace();
}

void AppModel::openInitialWorkspace() {
  m_journal.open({m_stored->user.id, m_platform.baseURL.toString(QUrl::RemovePath | QUrl::FullyEncoded)});
  const auto& list = m_stored->workspaces;
  const auto last = std::ranges::find_if(
      list, [this](const WorkspaceSummary& workspace) { return workspace.slug == m_stored->currentSlug; });
  open(last != list.end() ? *last : list.first());
}

void AppModel::open(const WorkspaceSummary& workspace) {
  m_session =
      m_sessions.open(workspace.slug, [this, &workspace] { return new WorkspaceSession(contextOf(workspace)); });
  m_session->context().setWorkspace(workspace);
  m_current = workspace;
  m_router.setWorkspace(workspace.slug);
  m_router.setFeaturesOff(m_session->featuresOff());
  m_openPage.setSession(m_session);
  m_stored->currentSlug = workspace.slug;
  keep();
  Q_EMIT changed();
}

/// The one that an undo or a job may still hold, though its session has left the cache: the workspace has one feed of
/// changes.
std::shared_ptr<WorkspaceContext> AppModel::contextOf(const WorkspaceSummary& workspace) {
  std::weak_ptr<WorkspaceContext>& known = m_contexts[workspace.slug];
  if (auto there = known.lock()) return there;
  const QString token = m_stored->token;
  const auto made = std::make_shared<WorkspaceContext>(workspace, token, m_sessionApi, m_services,
                                                       [this, token] { endSession(token); });
  known = made;
  return made;
}

void AppModel::openWorkspace(const QString& slug) {
  if (m_phase != Phase::signedIn || (m_current && m_current->slug == slug)) return;
  for (const WorkspaceSummary& workspace : m_stored->workspaces) {
    if (workspace.slug != slug) continue;
    m_router.reset();
    m_overlays.dismissAll();
    const WorkspaceSummary chosen = workspace;
    open(chosen);
    m_remember.start(rememberWorkspace(slug));
    return;
  }
}

template <class R>
Task<R> AppModel::accountCall(Request<R> request) {
  const QString token = m_stored->token;
  try {
    co_return co_await m_sessionApi.send(std::move(request), {}, token);
  } catch (const APIError& error) {
    if (error.is(APIError::Kind::unauthorized)) endSession(token);
    throw;
  }
}

Task<void> AppModel::rememberWorkspace(QString slug) {
  try {
    co_await accountCall(Requests::setCurrentWorkspace(slug));
  } catch (const APIError& error) {
    // Only the next start on another machine would have known.
    qCInfo(lcApp, "Last workspace not recorded: %s", qPrintable(error.description()));
  }
}

void AppModel::refreshAccount() {
  if (!m_stored) {
    if (m_phase == Phase::signedOut) m_signIn.checkMethods();
    return;
  }
  if (m_account.isIdle()) m_account.start(fetchAccount());
}

Task<void> AppModel::fetchAccount() {
  const QString token = m_stored->token;
  try {
    const MeResponse account = co_await accountCall(Requests::me());
    if (account.user)
      applyAccount(account);
    else
      endSession(token);
  } catch (const APIError& error) {
    qCInfo(lcApp, "The account could not be read: %s", qPrintable(error.description()));
  }
}

void AppModel::applyAccount(const MeResponse& account) {
  m_stored->user = *account.user;
  m_stored->workspaces = account.workspaces;
  if (account.workspaces.isEmpty()) {
    m_farewells.start(logOut(m_stored->token));
    leave(Leaving::sessionEnded);
    m_signIn.setNotice(noWorkspaceNotice);
    return;
  }
  bool currentListed = false;
  for (const WorkspaceSummary& workspace : account.workspaces) {
    if (const auto context = m_contexts[workspace.slug].lock()) context->setWorkspace(workspace);
    if (!m_current || workspace.slug != m_current->slug) continue;
    m_current = workspace;
    currentListed = true;
  }
  if (!currentListed) return openWorkspace(account.workspaces.first().slug);
  keep();
  Q_EMIT changed();
}

void AppModel::keep() {
  if (isDemo() || m_kept == m_stored) return;
  m_kept = m_stored;
  m_platform.preferences.setSignedInName(m_stored->user.name);
  m_keychain.start(saveSession(*m_stored));
}

Task<void> AppModel::saveSession(StoredSession session) {
  try {
    co_await m_store.save(session);
  } catch (const KeychainError& error) {
    qCWarning(lcApp, "The session is kept in memory only: %s", error.what());
    if (std::exchange(m_toldUnsaved, true)) co_return;
    m_toasts.show({.message = u"Your sign-in couldn’t be saved"_s,
                   .detail = u"The system keyring isn’t available, so Orvella asks again next time."_s});
  }
}

Task<void> AppModel::clearSession() {
  if (isDemo()) co_return;
  try {
    co_await m_store.clear(m_platform.clock.now());
  } catch (const KeychainError& error) {
    qCWarning(lcApp, "The stored session could not be removed: %s", error.what());
    if (error.reason() == KeychainError::Reason::absent) co_return;
    m_toasts.show({.message = u"Your sign-in is still in the system keyring"_s,
                   .tone = Toasts::Tone::error,
                   .detail = u"It couldn’t be removed. Unlock the keyring, then sign in and out once more."_s});
  }
}

void AppModel::signOut() {
  if (m_stored) m_leaving.start(signOutTask());
}

bool AppModel::mayClose() {
  if (m_closable || !m_departure.isUnsaved()) return true;
  // A second wish to close is no other one.
  if (!std::exchange(m_closing, true) || m_leaving.isIdle()) m_leaving.start(closeTask());
  return false;
}

Task<void> AppModel::closeTask() {
  const bool cutsOff = m_jobs.running() > 0;
  const bool goes = co_await m_departure.mayGo(
      {.question = u"Close without saving?"_s,
       .confirm = u"Close"_s,
       .price = cutsOff ? u"What you wrote is kept on this computer. What is under way is cut off."_s
                        : u"What you wrote is kept on this computer for when you’re back."_s,
       .now = u"Close now"_s});
  m_closing = false;
  if (!goes) co_return;
  m_closable = true;
  Q_EMIT closable();
}

Task<void> AppModel::signOutTask() {
  m_closing = false;
  const bool goes = co_await m_departure.mayGo({.question = u"Sign out without saving?"_s,
                                                .confirm = u"Sign out"_s,
                                                .price = u"They would be lost."_s,
                                                .now = u"Sign out now"_s});
  if (!goes || !m_stored) co_return;
  m_farewells.start(logOut(m_stored->token));
  leave(Leaving::byChoice);
}

Task<void> AppModel::logOut(QString token) {
  try {
    co_await m_platform.api.send(Requests::logOut(), {}, token);
  } catch (const APIError& error) {
    qCInfo(lcApp, "Sign-out not heard by the service: %s", qPrintable(error.description()));
  }
}

void AppModel::endSession(const QString& token) {
  // An answer to an older sign-in says nothing about this one.
  if (!m_stored || m_stored->token != token) return;
  qCInfo(lcApp, "The session has ended");
  leave(Leaving::sessionEnded);
  m_signIn.setNotice(u"Your session ended. Sign in again."_s);
}

void AppModel::leave(Leaving why) {
  m_leaving.cancel();
  m_closing = false;
  // Before the stores go: they have what was typed.
  why == Leaving::byChoice ? m_journal.forget() : m_journal.close();
  m_account.cancel();
  m_remember.cancel();
  m_overlays.dismissAll();
  m_toasts.clear();
  m_stored.reset();
  m_sessionApi.close();
  m_kept.reset();
  m_current.reset();
  m_session = nullptr;
  // Screens let go of their stores before the stores go.
  m_openPage.setSession(nullptr);
  m_phase = Phase::signedOut;
  m_signIn.reset();
  m_router.reset();
  Q_EMIT changed();
  m_sessions.clear();
  for (const QString& name : m_jobs.clear())
    if (why == Leaving::sessionEnded)
      m_toasts.show({.message = name + u" was cut off"_s,
                     .tone = Toasts::Tone::error,
                     .detail = u"Your session ended before it was done."_s});
  // What outlives a session (an undo, a job) does not outlive the sign-in.
  for (const auto& context : std::exchange(m_contexts, {}))
    if (const auto there = context.lock()) there->close();
  m_platform.preferences.setSignedInName({});
  m_keychain.start(clearSession());
  m_signIn.checkMethods();
}

void AppModel::trim() {
  if (!m_current) return m_sessions.clear();
  m_sessions.keepOnly(m_current->slug);
  m_session->trim();
}

QString AppModel::userName() const { return m_stored ? m_stored->user.name : QString(); }
QString AppModel::userEmail() const { return m_stored ? m_stored->user.email : QString(); }

QVariantList AppModel::workspaces() const {
  QVariantList list;
  if (!m_stored) return list;
  for (const WorkspaceSummary& workspace : m_stored->workspaces) {
    list.append(QVariantMap{{u"slug"_s, workspace.slug},
                            {u"name"_s, workspace.name},
                            {u"role"_s, workspace.role.rawValue},
                            {u"current"_s, m_current && workspace.slug == m_current->slug}});
  }
  return list;
}

}  // namespace orv
