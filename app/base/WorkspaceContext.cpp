#include "app/base/WorkspaceContext.h"

namespace orv {

WorkspaceContext::WorkspaceContext(WorkspaceSummary workspace, QString token, APITransport& transport,
                                   Services& services, std::function<void()> sessionEnded)
    : m_workspace(std::move(workspace)), m_services(services), m_api(transport, m_workspace.slug, std::move(token)) {
  m_api.onUnauthorized(std::move(sessionEnded));
}

void WorkspaceContext::setWorkspace(const WorkspaceSummary& workspace) {
  if (m_workspace == workspace) return;
  m_workspace = workspace;
  Q_EMIT workspaceChanged();
}

bool WorkspaceContext::canWrite() const { return m_workspace.role.mayWrite(); }

void WorkspaceContext::open(Page page) {
  m_services.navigator.openWorkspace(m_workspace.slug);
  m_services.navigator.open(page);
}

void WorkspaceContext::openItem(Page page, const QString& id) {
  m_services.navigator.openWorkspace(m_workspace.slug);
  m_services.navigator.openItem(page, id);
}

void WorkspaceContext::showing(Page page, const QString& id) {
  if (m_services.navigator.workspace() == m_workspace.slug) m_services.navigator.showing(page, id);
}

QString WorkspaceContext::openedItem(Page page) const {
  return m_services.navigator.workspace() == m_workspace.slug ? m_services.navigator.openedItem(page) : QString();
}

void WorkspaceContext::cameOnline() {
  if (std::exchange(m_isOffline, false)) Q_EMIT reachable();
}

void WorkspaceContext::setUnread(qint64 count) {
  if (m_unread == count) return;
  m_unread = count;
  Q_EMIT unreadChanged();
}

void WorkspaceContext::needed(qint64& before, qint64 now) {
  if (std::exchange(before, now) != now) Q_EMIT attentionChanged();
}

void WorkspaceContext::sendingEnded() {
  if (--m_sending > 0 || std::exchange(m_tellsSent, true)) return;
  // Not from within the task that has just had its answer. Who waits is told even where that task held this last.
  QMetaObject::invokeMethod(
      this,
      [this, held = weak_from_this().lock()] {
        m_tellsSent = false;
        if (m_sending == 0) Q_EMIT sent(std::exchange(m_anyFailed, false));
      },
      Qt::QueuedConnection);
}

void WorkspaceContext::setWatched(bool watched) {
  if (std::exchange(m_isWatched, watched) != watched) Q_EMIT watchedChanged();
}

void WorkspaceContext::close() {
  m_api.close();
  m_work.cancel();
}

}  // namespace orv
