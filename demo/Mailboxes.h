#pragma once

#include "demo/Routes.h"

namespace orv::demo {

/// Mailboxes as everybody is told of them.
class ShownMailboxes {
 public:
  ShownMailboxes(const DemoWorkspace& workspace, const QDateTime& now);

  Mailbox of(const DemoMailbox& mailbox) const;

 private:
  const QDateTime m_localNow;
  const QHash<QString, qint64> m_sentToday;
};

HTTPAnswer mailboxAnswer(const Call& call, const DemoMailbox& mailbox, int status = 200);
/// After a change: the mailbox gets its next version, and the campaigns hear of it.
HTTPAnswer changedAnswer(const Call& call, DemoMailbox& mailbox, int status = 200);

/// The mailbox that the path names, wherever it is; what has come to its end by now has ended.
DemoMailbox* findMailbox(Call& call);
HTTPAnswer noSuchMailbox();

/// Answers about the mailbox that the path names.
template <HTTPAnswer (*answer)(Call&, DemoMailbox&)>
HTTPAnswer onMailbox(Call& call) {
  DemoMailbox* mailbox = findMailbox(call);
  return mailbox ? answer(call, *mailbox) : noSuchMailbox();
}

/// Ends the checks that are over and lets go of what was archived long enough.
void settleMailboxes(DemoWorkspace& workspace, const QDateTime& now);

/// The connection is being checked from now on, which ends some seconds later.
void beginCheck(DemoMailbox& mailbox, const Call& call);
void pause(DemoMailbox& mailbox, const QString& reason, const QDateTime& now);
/// A refusal when it cannot go on.
std::optional<QString> resume(DemoMailbox& mailbox);
/// Into the archive, and out of it.
void archiveMailbox(DemoWorkspace& workspace, const QString& id, const Call& call);
void restoreMailbox(DemoWorkspace& workspace, const QString& id, const QDateTime& now);

/// One that was just connected; not in the workspace yet.
DemoMailbox newMailbox(Call& call, const QString& address, const QString& displayName);
bool isConnected(const DemoWorkspace& workspace, const QString& address);
/// "Ana Berg" of "ana.berg@a.example".
QString nameOf(const QString& address);

/// Where tracking hosts must point.
constexpr QLatin1String trackingTarget("track.orvella.example");
/// The mailbox's own host, nothing to take it away. Whether it points at the service already.
bool setTrackingDomain(DemoMailbox& mailbox, const std::optional<QString>& host, const Call& call);

/// The mailboxes picked by id and then those that join by a tag; nothing when a picked one is not there.
std::optional<QList<CampaignSender>> sendersOf(const DemoWorkspace& workspace, const QList<QString>& pickedIds,
                                               const QList<QString>& tags, const QDateTime& now);
CampaignSender senderOf(const DemoMailbox& mailbox, const QDateTime& localNow);

/// Tells the campaigns who sends for them, after mailboxes have changed.
void retellSenders(DemoWorkspace& workspace, const QDateTime& now);

/// What the senders of a campaign have sent today, for all campaigns together, as their limits count it.
void tellTodaysSends(QList<CampaignSender>& senders, const DemoWorkspace& workspace, const QDateTime& now);

}  // namespace orv::demo
