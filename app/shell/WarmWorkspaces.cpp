#include "app/shell/WarmWorkspaces.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

WarmWorkspaces::WarmWorkspaces(APITransport& api, Services& services)
    : m_api(api), m_services(services), m_sessions(sessionsAtMost, StoreCache<WorkspaceSession>::Order::lastOpening) {
  m_sessions.onNotSaved = [this](const QString& workspace, const WorkspaceSession& session) {
    m_services.toasts.show({.message = u"Unsaved changes in %1"_s.arg(session.name()),
                            .tone = Toasts::Tone::error,
                            .actionLabel = u"Open"_s,
                            .action = [this, workspace] { m_services.navigator.openWorkspace(workspace); },
                            .detail = session.unsavedWork().join(u'\n')});
  };
}

WorkspaceSession* WarmWorkspaces::open(const WorkspaceSummary& workspace, const QString& token) {
  WorkspaceSession* session =
      m_sessions.open(workspace.slug, [&, this] { return new WorkspaceSession(contextOf(workspace, token)); });
  session->context().setWorkspace(workspace);
  return session;
}

/// The one that an undo or a job may still hold, though its session has left the cache: the workspace has one feed of
/// changes.
std::shared_ptr<WorkspaceContext> WarmWorkspaces::contextOf(const WorkspaceSummary& workspace, const QString& token) {
  std::weak_ptr<WorkspaceContext>& known = m_contexts[workspace.slug];
  if (auto there = known.lock()) return there;
  const auto made =
      std::make_shared<WorkspaceContext>(workspace, token, m_api, m_services, [this, token] { onSessionEnded(token); });
  known = made;
  QObject::connect(made.get(), &WorkspaceContext::sent, &m_hearing, [this](bool anyFailed) { onSent(anyFailed); });
  return made;
}

bool WarmWorkspaces::isSending() const {
  return std::ranges::any_of(m_contexts, [](const auto& context) {
    const auto there = context.lock();
    return there && there->isSending();
  });
}

void WarmWorkspaces::update(const QList<WorkspaceSummary>& workspaces) {
  for (const WorkspaceSummary& workspace : workspaces)
    if (const auto context = m_contexts.value(workspace.slug).lock()) context->setWorkspace(workspace);
}

void WarmWorkspaces::keepOnly(const QList<WorkspaceSummary>& workspaces, const QStringList& deleted) {
  for (const QString& slug : m_contexts.keys()) {
    if (std::ranges::find(workspaces, slug, &WorkspaceSummary::slug) != workspaces.end()) continue;
    if (const WorkspaceSession* lost = deleted.contains(slug) ? nullptr : m_sessions.find(slug))
      if (const QStringList unsaved = lost->unsavedWork(); !unsaved.isEmpty()) tellOfLost(lost->name(), unsaved);
    m_sessions.drop(slug);
    // An undo or a job of it gets no answer that it could use.
    if (const auto context = m_contexts.take(slug).lock()) context->close();
  }
}

void WarmWorkspaces::tellOfLost(const QString& name, const QStringList& unsaved) {
  m_services.toasts.show({.message = u"You’re no longer in "_s + name,
                          .tone = Toasts::Tone::error,
                          .detail = unsaved.isEmpty() ? u"Somebody there took you out of it."_s : unsaved.join(u'\n')});
}

void WarmWorkspaces::clear() {
  m_sessions.clear();
  for (const auto& context : std::exchange(m_contexts, {}))
    if (const auto there = context.lock()) there->close();
}

void WarmWorkspaces::trim(const QString& open) {
  if (open.isEmpty()) return m_sessions.clear();
  m_sessions.keepOnly(open);
  if (WorkspaceSession* session = m_sessions.find(open)) session->trim();
}

}  // namespace orv
