#pragma once

#include <QObject>
#include <memory>

#include "app/base/BusySet.h"
#include "app/base/Changes.h"
#include "app/base/Navigator.h"
#include "app/base/RecordTurns.h"
#include "app/base/Services.h"
#include "kit/api/APITransport.h"
#include "kit/async/TaskScope.h"
#include "kit/session/records.h"

namespace orv {

/// What every store of a workspace gets: the transport bound to it, its facts, its news.
///
/// Shared by the workspace's session and by whatever outlives a store: an "Undo", a job. It is closed when the person
/// signs out; what still holds it then sends nothing any more.
class WorkspaceContext final : public QObject, public std::enable_shared_from_this<WorkspaceContext> {
  Q_OBJECT

 public:
  /// `sessionEnded` is called when the service refuses the credential.
  WorkspaceContext(WorkspaceSummary workspace, QString token, APITransport& transport, Services& services,
                   std::function<void()> sessionEnded);

  APITransport& api() { return m_api; }
  Services& services() { return m_services; }
  Changes& changes() { return m_changes; }
  RecordTurns& turns() { return m_turns; }
  /// Records with something that the service refused to keep, for lists to mark them.
  BusySet& unsaved() { return m_unsaved; }

  /// As the account has it now: name and role may change while stores live.
  const WorkspaceSummary& workspace() const { return m_workspace; }
  void setWorkspace(const WorkspaceSummary& workspace);
  /// The person may change things here, and is not only let to look.
  bool canWrite() const;

  /// Leads somewhere in this workspace, and into it first when another one is open.
  void open(Page page);
  void openItem(Page page, const QString& id);
  /// A page says which of its records it shows in itself; empty for none.
  void showing(Page page, const QString& id);
  /// The record that the page shows; empty when it shows none, is not open, or another workspace is.
  QString openedItem(Page page) const;

  /// Runs what must not end with the store that began it: the restoring of what somebody takes back.
  void start(Task<void> task) { m_work.start(std::move(task)); }

  /// A change that the person made is on its way to the service, for as long as this lives: whoever waits for its
  /// answer is not let go of meanwhile.
  class Sending {
   public:
    explicit Sending(WorkspaceContext& context) : m_context(&context) { ++context.m_sending; }
    Sending(Sending&& other) noexcept : m_context(std::exchange(other.m_context, nullptr)) {}
    Sending& operator=(Sending&&) = delete;
    ~Sending() {
      if (m_context) m_context->sendingEnded();
    }
    /// It came to nothing, and the person has been told.
    void failed() { m_context->m_anyFailed = true; }

   private:
    WorkspaceContext* m_context;
  };
  /// Until sent() has told of it.
  bool isSending() const { return m_sending > 0 || m_tellsSent; }

  /// Somebody may be looking: the window is the active one.
  bool isWatched() const { return m_isWatched; }
  void setWatched(bool watched);

  /// A request found no connection.
  void wentOffline() { m_isOffline = true; }
  /// One was answered, or somebody has reason to think that the next one will be.
  void cameOnline();

  /// Unread conversations, as the service said last or somebody's action left them; nothing while nobody knows.
  std::optional<qint64> unread() const { return m_unread; }
  void setUnread(qint64 count);

  /// Accounts that need attention: those that failed, and those that send but poorly. Who counts one of them tells it;
  /// the newest word stands.
  qint64 attention() const { return m_failedAccounts + m_poorAccounts; }
  void setFailedAccounts(qint64 count) { needed(m_failedAccounts, count); }
  void setPoorAccounts(qint64 count) { needed(m_poorAccounts, count); }

  void close();

 Q_SIGNALS:
  void unreadChanged();
  void attentionChanged();
  /// Since somebody last asked, mail has come; the newest of it then, as the service writes it.
  void mailCame(const QString& latestAt);
  void workspaceChanged();
  void watchedChanged();
  /// There is a connection again: what could not be read can be tried anew.
  void reachable();
  /// Nothing is being sent any more, and whoever sent it has heard of it.
  void sent(bool anyFailed);

 private:
  void needed(qint64& before, qint64 now);
  void sendingEnded();

  WorkspaceSummary m_workspace;
  Services& m_services;
  WorkspaceTransport m_api;
  Changes m_changes;
  RecordTurns m_turns;
  BusySet m_unsaved;
  bool m_isOffline = false;
  bool m_isWatched = true;
  int m_sending = 0;
  bool m_tellsSent = false;
  bool m_anyFailed = false;
  std::optional<qint64> m_unread;
  qint64 m_failedAccounts = 0;
  qint64 m_poorAccounts = 0;
  TaskScope m_work;
};

}  // namespace orv
