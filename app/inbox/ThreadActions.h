#pragma once

#include <QPointer>

#include "app/base/Actions.h"
#include "app/base/Store.h"
#include "app/inbox/ThreadList.h"
#include "app/inbox/Writings.h"
#include "kit/models/inbox/threadDetail.h"

namespace orv {

/// What is done with a conversation: by its record as it was when the person acted. Answers go to the change feed.
class ThreadActions final : public Store {
  Q_OBJECT

 public:
  ThreadActions(WorkspaceContext& context, Store* whole, ThreadList& threads, Writings& writings);

  const BusySet& busy() const { return m_busy; }
  bool isMarkingRead(const QString& threadId) const;
  /// A draft is being written for the thread.
  bool isGenerating(const QString& threadId) const;

  void archive(const InboxThread& thread) { m_tasks.start(archiveTask(thread)); }
  void moveToInbox(const InboxThread& thread) { m_tasks.start(moveToInboxTask(thread)); }
  void markUnread(const InboxThread& thread) { m_tasks.start(markUnreadTask(thread)); }
  /// Because somebody looks at it; nothing is told.
  void markRead(const InboxThread& thread) { m_tasks.start(markReadTask(thread)); }
  /// An empty key clears it.
  void setLabel(const InboxThread& thread, const QString& key) { m_tasks.start(setLabelTask(thread, key)); }
  /// Has the agent write a draft, or another one than `waiting`.
  void generate(const InboxThread& thread, const Draft* waiting);
  /// Sends what the person wrote. `shown` is the thread as far as it has been read, null where it has not; `asksFirst`:
  /// a draft waits there that this is not.
  void send(const InboxThread& thread, const ThreadDetail* shown, bool asksFirst);

  Task<void> archiveTask(InboxThread thread);
  Task<void> moveToInboxTask(InboxThread thread);
  Task<void> markUnreadTask(InboxThread thread);
  Task<void> markReadTask(InboxThread thread);
  Task<void> setLabelTask(InboxThread thread, QString key);
  Task<void> generateTask(InboxThread thread, std::optional<Draft> waiting);
  Task<void> sendTask(InboxThread thread, bool asksFirst);

 Q_SIGNALS:
  void busyChanged();
  /// The thread has been read again.
  void readAgain(const orv::ThreadDetail& detail);
  void sent(const QString& threadId);
  /// It was to leave the list, and did not.
  void stayed(const QString& threadId);

 private:
  Task<std::optional<InboxThread>> patch(InboxThread thread, ThreadPatch change, QString failure);
  static Task<void> undoArchive(std::shared_ptr<WorkspaceContext> context, QString id);
  /// Nothing where nobody can tell.
  Task<std::optional<bool>> hasArrived(InboxThread thread, QPointer<Writing> writing);
  /// As the list has it by now.
  InboxThread latest(const InboxThread& thread) const;

  ThreadList& m_threads;
  Writings& m_writings;
  BusySet m_busy;
  Actions m_actions;
};

}  // namespace orv
