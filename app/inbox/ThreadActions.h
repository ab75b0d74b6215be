#pragma once

#include <QPointer>
#include <array>

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

  enum class Kind { status, unread, label, read, draft };
  /// A thread is busy with each kind of change by itself: one of another kind waits for its turn.
  bool isBusy(const QString& threadId, Kind kind) const { return m_busy[size_t(kind)].contains(threadId); }
  /// Those that the person is changing.
  QStringList busyIds() const;
  bool isMarkingRead(const QString& threadId) const { return isBusy(threadId, Kind::read); }
  /// A draft is being written for the thread.
  bool isGenerating(const QString& threadId) const { return isBusy(threadId, Kind::draft); }
  /// As the person chose it last, be that answered or not; empty for none.
  QString labelOf(const InboxThread& thread) const;

  void archive(const InboxThread& thread) { m_tasks.start(archiveTask(thread)); }
  void moveToInbox(const InboxThread& thread) { m_tasks.start(moveToInboxTask(thread)); }
  void markUnread(const InboxThread& thread) { m_tasks.start(markUnreadTask(thread)); }
  /// Because somebody looks at it; nothing is told.
  void markRead(const InboxThread& thread) { m_tasks.start(markReadTask(thread)); }
  /// An empty key clears it. Of several choices the last one stands.
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
  /// `leftBefore`: see Writing::Trace.
  Task<void> sendTask(InboxThread thread, QSet<QString> leftBefore, bool asksFirst);

 Q_SIGNALS:
  void busyChanged();
  /// The thread has been read again.
  void readAgain(const orv::ThreadDetail& detail);
  void sent(const QString& threadId);
  /// It was to leave the list, and did not.
  void stayed(const QString& threadId);

 private:
  /// `change` is called when its turn has come.
  Task<std::optional<InboxThread>> patch(InboxThread thread, std::function<ThreadPatch()> change, QString failure);
  static Task<void> undoArchive(std::shared_ptr<WorkspaceContext> context, QString id);
  /// Nothing where nobody can tell.
  Task<std::optional<bool>> hasArrived(QString threadId, Writing::Trace trace);
  void tellReplied(const InboxThread& thread, bool besideDraft);
  void tellDrafted(const InboxThread& thread);
  BusySet::Mark mark(const QString& threadId, Kind kind) { return m_busy[size_t(kind)].mark(threadId); }
  /// As the list has it by now.
  InboxThread latest(const InboxThread& thread) const;

  ThreadList& m_threads;
  Writings& m_writings;
  /// By the kind of change.
  std::array<BusySet, 5> m_busy;
  Actions m_actions;
  /// Chosen last, of threads whose label is on its way.
  QHash<QString, QString> m_labels;
};

}  // namespace orv
