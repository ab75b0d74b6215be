#pragma once

#include <QHash>
#include <memory>

#include "app/base/StoreCache.h"
#include "app/shell/WorkspaceSession.h"

namespace orv {

/// The workspaces opened last, and of each that anything still holds the one context.
class WarmWorkspaces final {
 public:
  static constexpr qsizetype sessionsAtMost = 3;

  WarmWorkspaces(APITransport& api, Services& services);

  /// The service refuses a workspace's credential.
  std::function<void(const QString& token)> onSessionEnded;
  /// What one of them was sending has been answered.
  std::function<void(bool anyFailed)> onSent;

  WorkspaceSession* open(const WorkspaceSummary& workspace, const QString& token);
  /// The workspaces as the account has them now: their names, and the person's role in each.
  void update(const QList<WorkspaceSummary>& workspaces);
  /// Lets go of those that are none of the person's any more, and says so of each that holds what they wrote; but for
  /// those that they have `deleted` themselves.
  void keepOnly(const QList<WorkspaceSummary>& workspaces, const QStringList& deleted);
  /// The person was taken out of it.
  void tellOfLost(const QString& name, const QStringList& unsaved);
  /// Those that were opened are closed, with all that outlives them.
  void clear();
  /// Under memory pressure. The slug of the open one, which stays.
  void trim(const QString& open);

  /// Slugs, oldest first.
  const QStringList& order() const { return m_sessions.keys(); }
  QStringList unsavedWork() const { return m_sessions.unsavedWork(); }
  Task<bool> flush() { return m_sessions.flush(); }
  /// A change of one of them is on its way.
  bool isSending() const;

 private:
  std::shared_ptr<WorkspaceContext> contextOf(const WorkspaceSummary& workspace, const QString& token);

  APITransport& m_api;
  Services& m_services;
  StoreCache<WorkspaceSession> m_sessions;
  QHash<QString, std::weak_ptr<WorkspaceContext>> m_contexts;
  /// A context that has something to tell may outlive this.
  QObject m_hearing;
};

}  // namespace orv
