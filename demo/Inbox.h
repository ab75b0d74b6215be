#pragma once

#include "demo/Routes.h"

namespace orv::demo {

/// What has its time by now has happened: approved drafts have gone out, replies have come in.
void settleInbox(DemoWorkspace& workspace, double repliesPerMinute, const QDateTime& now);

/// Threads as everybody is told of them.
class ShownThreads {
 public:
  explicit ShownThreads(const DemoWorkspace& workspace);

  InboxThread of(const DemoThread& thread) const;
  /// Drafts that wait for a decision, by thread.
  const QHash<QString, qint64>& waiting() const { return m_waiting; }

 private:
  const DemoWorkspace& m_workspace;
  QHash<QString, qint64> m_waiting;
};

DemoThread* findThread(DemoWorkspace& workspace, const QString& id);
DemoDraft* findDraft(DemoWorkspace& workspace, const QString& id);

/// When somebody last wrote, and when the lead did; empty for never.
QString lastAt(const DemoThread& thread);
QString lastInboundAt(const DemoThread& thread);
/// A conversation, and not a bounce or an automatic answer.
bool isPrimary(const DemoThread& thread);
/// Unread conversations that are not archived.
qint64 unreadIn(const DemoInbox& inbox);
/// What the agent does in the thread.
QString modeIn(const DemoWorkspace& workspace, const DemoThread& thread);

/// The thread's next message; "inbound" is the lead's. {name} and {company} in the text are theirs.
InboxMessage messageIn(const DemoThread& thread, const QString& direction, const QString& text, const QDateTime& at);
/// Who answers, and what; what is left out is made up.
struct Incoming {
  /// What the answer means.
  QString label{};
  std::optional<CampaignLead> person{};
  /// A word of the campaign's name.
  QString campaign{};
  /// Among what means the same: 0 for the first.
  qsizetype question = 0;
};
/// Somebody answers a campaign.
DemoThread& receiveReply(DemoWorkspace& workspace, const Incoming& incoming, const QDateTime& now);
/// One of those that the workspace has, as long as it has any; those who have not answered yet come first. With no
/// label, anything.
DemoThread& receiveAnother(DemoWorkspace& workspace, const QString& label, const QDateTime& now);

/// The agent writes to what was said last; another draft of its own that waits goes.
DemoDraft& writeDraft(DemoWorkspace& workspace, const DemoThread& thread, const QDateTime& now);
/// On its way out from now on.
void approve(DemoDraft& draft, const QDateTime& now, std::chrono::seconds wait);
/// Decided otherwise; it does not go out.
void putAside(DemoDraft& draft, const QString& outcome, const QDateTime& now);
/// As if it had never been decided.
void putBack(DemoDraft& draft);

/// What the agent learns of a decision, once it has had the time; it is not done before.
DraftTraining trainOn(DemoWorkspace& workspace, DemoDraft& draft, const QDateTime& now);
SetterTraining trainingOf(const DemoInbox& inbox);

/// Gives a workspace its conversations: at least as many of them.
void addInbox(DemoWorkspace& workspace, qint64 threads, DemoRandom random, const QDate& today);

}  // namespace orv::demo
