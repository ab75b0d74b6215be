#include "app/shell/AppModel.h"

#include <QLoggingCategory>

#include "app/base/shownName.h"
#include "kit/api/APIEnvironment.h"
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
      m_account(m_sessionApi),
      m_toasts(m_platform.clock),
      m_keeper(m_platform, m_toasts),
      m_router(m_platform.preferences, m_platform.clock),
      m_appearance(m_platform.preferences),
      m_signIn(m_platform.api, m_platform.clock, m_platform.browser, m_platform.baseURL, m_platform.device),
      m_journal(m_platform.journalFiles ? *m_platform.journalFiles : m_memoryFiles, m_platform.clock),
      m_program(*this, m_platform, m_toasts),
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
                 m_platform.baseURL,
                 m_program},
      m_workspaces(m_sessionApi, m_services),
      m_openPage(m_router),
      m_departure(m_platform.clock, m_overlays, m_jobs,
                  {.unsaved = [this] { return m_workspaces.unsavedWork(); },
                   .flush = [this] { return m_workspaces.flush(); },
                   .sending = [this] { return m_workspaces.isSending(); }}),
      m_notifier(m_platform.clock, m_platform.preferences, m_router, m_platform.notifications,
                 [this] { return m_account.unread(m_stored->token); }) {
  connect(&m_departure, &Departure::closable, this, &AppModel::closable);
  connect(&m_departure, &Departure::stayed, this, [this] { m_startsAgain = false; });
  connect(&m_appearance, &Appearance::sizeChosen, this, &AppModel::tellSize);
  m_account.onRead = [this](const MeResponse& account) { applyAccount(account); };
  m_account.onEnded = [this](const QString& token) { endSession(token); };
  m_workspaces.onSent = [this](bool anyFailed) { m_departure.sent(anyFailed); };
  m_workspaces.onSessionEnded = [this](const QString& token) { endSession(token); };
  m_router.onWorkspaceAsked = [this](const QString& slug) { openWorkspace(slug); };
  m_notifier.onPlaceAsked = [this](Page page, const PagePlace& place) { m_router.open(page, place); };
  m_signIn.onSignedIn = [this](StoredSession session) { adopt(std::move(session)); };
  m_signIn.onServiceTime = [this](const QDateTime& at) { settleDoubt(at); };
  m_signIn.onDiscarded = [this](const QString& token) { m_farewells.start(logOut(token)); };
  connect(&m_journal, &Journal::opened, this, &AppModel::tellOfKept);
  connect(&m_platform.memoryPressure, &MemoryPressure::pressure, this,
          [this] { m_workspaces.trim(m_current ? m_current->slug : QString()); });
  if (m_platform.network) connect(m_platform.network, &NetworkWatch::cameUp, this, &AppModel::tryAgain);
}

AppModel::~AppModel() = default;

void AppModel::start() {
  if (m_platform.demoSession) return restore(m_platform.demoSession);
  m_boot.start(boot());
  if (m_phase == Phase::booting) m_bootPatience.start(stopWaitingForKeychain());
}

Task<void> AppModel::boot() {
  try {
    restore(co_await m_keeper.load());
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
  const bool isOver = session && session->isExpired(m_platform.clock.now());
  if (isOver) {
    doubt(*session);
    session.reset();
  }
  // Who is signing in by now goes on with it; what the keyring had to say came too late.
  if (session && !session->workspaces.isEmpty() && !m_signIn.isUnderWay()) {
    m_stored = std::move(session);
    m_sessionApi.open(*m_stored);
    m_phase = Phase::signedIn;
    m_signIn.reset();
    openInitialWorkspace();
    refreshAccount();
    return;
  }
  m_phase = Phase::signedOut;
  m_signIn.setNotice({});
  // A keyring that took its time may speak after the service has told its own.
  isOver ? m_signIn.checkMethodsAgain() : m_signIn.checkMethods();
  Q_EMIT changed();
}

void AppModel::adopt(StoredSession session) {
  m_boot.cancel();
  m_bootPatience.cancel();
  m_doubted.reset();
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

/// Nothing may be asked for hours while somebody writes, and what they write then would have nowhere to go. In pieces,
/// for no timer counts while the machine sleeps.
Task<void> AppModel::endInTime(QString token) {
  while (m_stored && m_stored->token == token) {
    const std::chrono::milliseconds left(m_platform.clock.now().msecsTo(m_stored->expiresAt));
    if (left <= 0ms) co_return endSession(token);
    co_await m_platform.clock.sleep(std::min<std::chrono::milliseconds>(left, 1h));
  }
}

void AppModel::openInitialWorkspace() {
  m_expiry.start(endInTime(m_stored->token));
  // Written down with each text: an address may have a password in it.
  m_journal.open({m_stored->user.id, APIEnvironment{m_platform.baseURL}.origin()});
  const auto& list = m_stored->workspaces;
  const auto last = std::ranges::find_if(
      list, [this](const WorkspaceSummary& workspace) { return workspace.slug == m_stored->currentSlug; });
  open(last != list.end() ? *last : list.first());
}

void AppModel::open(const WorkspaceSummary& workspace) {
  m_session = m_workspaces.open(workspace, m_stored->token);
  m_current = workspace;
  m_router.setWorkspace(workspace.slug);
  m_router.setFeaturesOff(m_session->featuresOff());
  m_openPage.setSession(m_session);
  m_notifier.enter(m_session->context().shared_from_this());
  m_stored->currentSlug = workspace.slug;
  m_keeper.keep(*m_stored);
  Q_EMIT changed();
}

void AppModel::tellSize(int percent) {
  // The toolkit takes it up as it starts; of several steps only the last counts.
  m_toasts.dismiss(m_sizeTold);
  m_sizeTold = m_toasts.show({.message = u"Everything is shown at %1 % from the next start on"_s.arg(percent),
                              .actionLabel = u"Start again"_s,
                              .action = [this] {
                                m_startsAgain = true;
                                Q_EMIT closable();
                              }});
}

void AppModel::openWorkspace(const QString& slug) {
  if (m_phase != Phase::signedIn || (m_current && m_current->slug == slug)) return;
  for (const WorkspaceSummary& workspace : m_stored->workspaces) {
    if (workspace.slug != slug) continue;
    m_router.reset();
    m_overlays.dismissAll();
    const WorkspaceSummary chosen = workspace;
    open(chosen);
    m_account.remember(m_stored->token, slug);
    return;
  }
}

void AppModel::refreshAccount() {
  if (!m_stored) {
    if (m_phase == Phase::signedOut) m_signIn.checkMethods();
    return;
  }
  tryAgain();
  m_account.read(m_stored->token);
}

void AppModel::tryAgain() {
  if (m_session) m_session->context().cameOnline();
}

void AppModel::applyAccount(const MeResponse& account) {
  m_stored->user = *account.user;
  const QList<WorkspaceSummary> before = std::exchange(m_stored->workspaces, theirs(account.workspaces));
  const auto isTheirs = [&account](const QString& slug) {
    return std::ranges::find(account.workspaces, slug, &WorkspaceSummary::slug) != account.workspaces.end();
  };
  QStringList deleted;
  for (const WorkspaceSummary& known : before)
    if (m_deletions.value(known.slug) == Program::Deletion::unknown && !isTheirs(known.slug))
      deleted.append(shownName(known.name));
  takeWorkspaces();
  for (const QString& name : deleted) m_toasts.success(u"Deleted "_s + name);
}

/// Those that the account has now.
void AppModel::takeWorkspaces() {
  if (m_stored->workspaces.isEmpty()) return leaveForNoWorkspace();
  m_workspaces.update(m_stored->workspaces);
  const auto open = std::ranges::find(m_stored->workspaces, m_current->slug, &WorkspaceSummary::slug);
  if (open == m_stored->workspaces.end())
    leaveWorkspace(*m_current);
  else
    m_current = *open;
  m_workspaces.keepOnly(m_stored->workspaces, m_deletions.keys());
  m_deletions.removeIf([](const auto& deletion) { return deletion.value() == Program::Deletion::unknown; });
  m_keeper.keep(*m_stored);
  Q_EMIT changed();
}

/// Of a workspace that is being deleted the answer is still to come, and whoever waits for it with it.
QList<WorkspaceSummary> AppModel::theirs(QList<WorkspaceSummary> said) const {
  for (const WorkspaceSummary& known : m_stored->workspaces) {
    const auto deletion = m_deletions.constFind(known.slug);
    const bool isUnderWay = deletion != m_deletions.cend() && *deletion == Program::Deletion::underWay;
    if (isUnderWay && std::ranges::find(said, known.slug, &WorkspaceSummary::slug) == said.end()) said.append(known);
  }
  return said;
}

void AppModel::rereadAccount() {
  if (m_stored) m_account.readAnew(m_stored->token);
}

void AppModel::deletesWorkspace(const QString& slug, Program::Deletion deletion) {
  if (!m_stored) return;
  if (deletion == Program::Deletion::underWay || deletion == Program::Deletion::unknown)
    m_deletions.insert(slug, deletion);
  else
    m_deletions.remove(slug);
  if (deletion == Program::Deletion::done) workspaceDeleted(slug);
  if (deletion == Program::Deletion::unknown) rereadAccount();
}

void AppModel::workspaceDeleted(const QString& slug) {
  m_stored->workspaces.removeIf([&slug](const WorkspaceSummary& workspace) { return workspace.slug == slug; });
  if (m_stored->workspaces.isEmpty()) return leaveForNoWorkspace();
  // Screens let go of their stores before the stores go.
  if (m_current && m_current->slug == slug) openWorkspace(m_stored->workspaces.first().slug);
  m_workspaces.keepOnly(m_stored->workspaces, {slug});
  m_keeper.keep(*m_stored);
  rereadAccount();
  Q_EMIT changed();
}

void AppModel::leaveForNoWorkspace() {
  m_farewells.start(logOut(m_stored->token));
  leave(Leaving::sessionEnded);
  m_signIn.setNotice(noWorkspaceNotice);
}

void AppModel::leaveWorkspace(WorkspaceSummary lost) {
  const bool isUnsaved = !m_session->unsavedWork().isEmpty();
  // Screens let go of their stores before the stores go.
  openWorkspace(m_stored->workspaces.first().slug);
  if (m_deletions.contains(lost.slug)) return;
  // Of what was not saved whoever lets go of it tells.
  if (!isUnsaved) m_workspaces.tellOfLost(shownName(lost.name), {});
}

void AppModel::signOut() {
  if (!m_stored) return;
  const Departure::Words words{.question = u"Sign out without saving?"_s,
                               .confirm = u"Sign out"_s,
                               .price = u"They would be lost."_s,
                               .now = u"Sign out now"_s};
  m_departure.go(words, [this] {
    if (!m_stored) return;
    m_farewells.start(signOutAtService(m_stored->token));
    leave(Leaving::byChoice);
  });
}

Task<void> AppModel::logOut(QString token) {
  try {
    co_await m_platform.api.send(Requests::logOut(), {}, token);
  } catch (const APIError& error) {
    qCInfo(lcApp, "Sign-out not heard by the service: %s", qPrintable(error.description()));
  }
}

Task<void> AppModel::signOutAtService(QString token) {
  std::optional<APIError> failure;
  try {
    co_await m_platform.api.send(Requests::logOut(), {}, token);
  } catch (const APIError& error) {
    failure = error;
  }
  // Who has no session there any more is signed out as well.
  if (!failure || failure->is(APIError::Kind::unauthorized)) co_return;
  qCInfo(lcApp, "Sign-out not heard by the service: %s", qPrintable(failure->description()));
  if (m_phase != Phase::signedOut) co_return;
  m_signIn.setNotice(
      u"You’re signed out on this computer, but the service didn’t hear of it: there, this sign-in lasts until it runs out."_s);
}

void AppModel::doubt(const StoredSession& session) {
  qCInfo(lcApp, "The session has run out, by this computer's clock");
  m_doubted = session.expiresAt;
}

void AppModel::settleDoubt(const QDateTime& serviceTime) {
  const auto expiry = std::exchange(m_doubted, std::nullopt);
  if (!expiry) return;
  if (serviceTime >= *expiry) return m_keeper.forget();
  m_signIn.setNotice(
      u"This computer’s clock is wrong, so your sign-in seems to be over. Set the clock and start Orvella again, or sign in here."_s);
}

void AppModel::endSession(const QString& token) {
  // An answer to an older sign-in says nothing about this one.
  if (!m_stored || m_stored->token != token) return;
  const bool isOver = m_stored->isExpired(m_platform.clock.now());
  if (isOver)
    doubt(*m_stored);
  else
    qCInfo(lcApp, "The session has ended");
  leave(isOver ? Leaving::clockSaysOver : Leaving::sessionEnded);
  m_signIn.setNotice(u"Your session ended. Sign in again."_s);
}

void AppModel::leave(Leaving why) {
  m_departure.cancel();
  // Before the stores go: they have what was typed.
  why == Leaving::byChoice ? m_journal.forget() : m_journal.close();
  m_account.cancel();
  m_deletions.clear();
  m_notifier.leave();
  m_program.setLogShown(false);
  m_program.setChangelogShown(false);
  m_overlays.dismissAll();
  m_toasts.clear();
  m_stored.reset();
  m_sessionApi.close();
  m_current.reset();
  m_session = nullptr;
  // Screens let go of their stores before the stores go.
  m_openPage.setSession(nullptr);
  m_phase = Phase::signedOut;
  m_signIn.reset();
  m_router.reset();
  Q_EMIT changed();
  m_workspaces.clear();
  for (const QString& name : m_jobs.clear())
    if (why != Leaving::byChoice)
      m_toasts.show({.message = name + u" was cut off"_s,
                     .tone = Toasts::Tone::error,
                     .detail = u"Your session ended before it was done."_s});
  if (why != Leaving::clockSaysOver) {
    m_keeper.forget();
    m_signIn.checkMethods();
  } else {
    m_signIn.checkMethodsAgain();
  }
}

void AppModel::tellOfKept() {
  QList<Journal::Entry> kept = m_journal.entries();
  std::ranges::sort(kept, std::greater(), &Journal::Entry::keptAt);
  for (const Journal::Entry& entry : kept) {
    const QStringList name = entry.key.name.split(u'/');
    const auto page = Pages::pageNamed(name.value(0));
    const auto workspace = std::ranges::find(m_stored->workspaces, entry.key.workspace, &WorkspaceSummary::slug);
    if (!page || name.value(1).isEmpty() || workspace == m_stored->workspaces.end()) continue;
    // Of a page that may not be opened for long: somebody has to say that it is there.
    m_toasts.show({.message = u"Unsaved work was kept from last time"_s,
                   .actionLabel = u"Open"_s,
                   .action = [this, slug = entry.key.workspace, at = *page, name] { leadTo(slug, at, name); }});
    return;
  }
}

void AppModel::leadTo(const QString& workspace, Page page, const QStringList& name) {
  const QString place = name.value(1);
  openWorkspace(workspace);
  if (place.startsWith("tab:"_L1))
    m_router.open(page, PagePlace{.tab = place.mid(4)});
  else if (place == "new"_L1)
    m_router.open(page);
  else
    m_router.openItem(page, place);
  if (Store* store = m_openPage.store(); store && name.last() == "new"_L1) store->act(u"new"_s);
}

QString AppModel::greetedName() const { return shownName(m_platform.preferences.signedInName()); }
QString AppModel::userName() const { return m_stored ? shownName(m_stored->user.name) : QString(); }
QString AppModel::userEmail() const { return m_stored ? shownName(m_stored->user.email) : QString(); }

QVariantList AppModel::workspaces() const {
  QVariantList list;
  if (!m_stored) return list;
  for (const WorkspaceSummary& workspace : m_stored->workspaces) {
    list.append(QVariantMap{{u"slug"_s, workspace.slug},
                            {u"name"_s, shownName(workspace.name)},
                            {u"role"_s, workspace.role.rawValue},
                            {u"current"_s, m_current && workspace.slug == m_current->slug}});
  }
  return list;
}

}  // namespace orv
