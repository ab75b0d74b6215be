#pragma once

#include "app/base/Choice.h"
#include "app/base/PagedList.h"
#include "app/inbox/ThreadRows.h"
#include "kit/models/inbox/threadFilter.h"

namespace orv {

/// The list of conversations under a filter, what is counted over all of them, and whether there is newer mail.
class ThreadList final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::PagedListBase* list READ list CONSTANT)
  Q_PROPERTY(QString tab READ tabName WRITE setTab NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tabs READ tabs NOTIFY countsChanged)
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY changed)
  Q_PROPERTY(QString label READ label WRITE setLabel NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> labels READ labels NOTIFY countsChanged)
  Q_PROPERTY(QList<orv::Choice> labelsToSet READ labelsToSet NOTIFY countsChanged)
  Q_PROPERTY(QString mailbox READ mailbox WRITE setMailbox NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> mailboxes READ mailboxes NOTIFY countsChanged)
  Q_PROPERTY(bool filtered READ filtered NOTIFY changed)
  Q_PROPERTY(bool newMail READ newMail NOTIFY changed)
  Q_PROPERTY(bool polling READ polling NOTIFY changed)
  Q_PROPERTY(QDateTime syncedAt READ syncedAt NOTIFY changed)

 public:
  ThreadList(WorkspaceContext& context, Store* whole);

  using List = PagedList<ThreadPage, ThreadRowsModel>;
  List* list() { return &m_list; }
  ThreadRowsModel& rows() const { return *m_rows; }
  const InboxThread* find(const QString& id) const;

  const ThreadFilter& filter() const { return m_filter; }
  QString tabName() const;
  void setTab(const QString& name);
  /// With how many conversations there are in each, where that is counted.
  QList<Choice> tabs() const;
  /// As typed; it is asked for when the typing rests.
  const QString& query() const { return m_typed; }
  void setQuery(const QString& text);
  QString label() const { return m_filter.label.value_or(QString()); }
  void setLabel(const QString& key);
  /// What the list can be narrowed to.
  QList<Choice> labels() const;
  /// What a conversation can be labelled with.
  QList<Choice> labelsToSet() const;
  ReplyLabel read(const ThreadLabel& label) const;
  QString mailbox() const { return m_filter.mailbox.value_or(QString()); }
  void setMailbox(const QString& id);
  QList<Choice> mailboxes() const;
  /// More than the tab narrows it.
  bool filtered() const;
  /// There is newer mail than the list shows.
  bool newMail() const { return m_newMail; }
  bool polling() const { return !m_polling.isIdle(); }
  /// When every mailbox was last asked; invalid before.
  QDateTime syncedAt() const { return m_syncedAt; }

  /// Drafts that wait for a decision; -1 while nobody knows.
  int draftCount() const;
  /// As the list reckons.
  int unreadCount() const;

  /// The next one in the list from there; empty beyond its ends.
  QString neighbour(const QString& id, int by) const;
  QString first() const;

  /// See ThreadRowsModel; what is counted follows.
  void setShownRead(const QString& id, bool shown);
  /// Out of sight until its change is answered, and back when that fails.
  void setLeaving(const QString& id, bool leaving);
  /// Somebody here made this of the thread: what is counted follows.
  void count(const InboxThread& before, const InboxThread& after);
  /// The person decided the last of its drafts, or has one of them wait again: what is counted follows before anybody
  /// asks, for the list may not be on the screen.
  void setWaiting(const InboxThread& thread, bool waits);

  void ensureLoaded() override;
  void refresh() override;
  void close() override;
  /// Everything in this tab.
  Q_INVOKABLE void showAll() { showAllIn(tabName()); }
  void showAllIn(const QString& tab);
  /// Reads the list again, with the mail that came; it would not come up where the list is narrowed, or the archive's.
  Q_INVOKABLE void showNewMail();
  /// Asks every mailbox for new replies.
  Q_INVOKABLE void checkMail();

 Q_SIGNALS:
  void changed();
  void countsChanged();
  /// The workspace's own labels have been read.
  void labelsChanged();
  /// The list has been read.
  void arrived();

 private:
  Task<void> checkMailTask();
  Task<void> askTyped();
  Task<ThreadPage> readTask(PageRequest page);
  void ask(const ThreadFilter& filter);
  bool fits(const InboxThread& thread) const;
  QString staying(const QStringList& ids, qsizetype at, int by) const;
  void take();
  void hear(const QString& latestAt);
  void tellUnread();
  void hearUnread();
  const ThreadPage::Counts* counts() const;

  static constexpr std::chrono::milliseconds typingRest{250};

  ThreadFilter m_filter;
  QString m_typed;
  QSet<QString> m_leaving;
  List m_list;
  ThreadRowsModel* const m_rows = m_list.rows();
  Resource<ReplyLabelList> m_labels;
  TaskSlot m_typing;
  TaskSlot m_polling;
  QDateTime m_syncedAt;
  bool m_newMail = false;
  /// The page that was read last counts anew.
  bool m_isCounted = false;
  /// What of it the workspace knows.
  int m_toldUnread = -1;
  bool m_isTelling = false;
  /// Another number of unread ones than the list's, for which it has been read again to no avail.
  std::optional<qint64> m_doubted;
};

}  // namespace orv
