#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/Clearable.h"
#include "kit/models/inbox/threadLabel.h"

namespace orv {

/// A conversation with one lead, in one mailbox.
struct InboxThread {
  using Record = InboxThread;

  struct LeadRef {
    QString id;
    std::optional<QString> fullName;
    std::optional<QString> company;
    std::optional<QString> title;
    bool operator==(const LeadRef&) const = default;
  };

  QString id;
  std::optional<qint64> number;
  QString mailboxId;
  QString mailboxAddress;
  QString contactAddress;
  std::optional<QString> contactName;
  std::optional<LeadRef> lead;
  std::optional<QString> campaignId;
  std::optional<qint64> campaignStep;
  QString subject;
  std::optional<QString> snippet;
  std::optional<ThreadLabel> label;
  std::optional<QString> labelSource;
  std::optional<QString> prospectState;
  QString kind;
  QString status;
  std::optional<QString> deletedAt;
  bool unread = false;
  std::optional<QString> setterMode;
  /// The reply agent's, for this thread.
  std::optional<QString> effectiveMode;
  qint64 messageCount = 0;
  /// AI drafts that wait for somebody's decision.
  qint64 pendingDrafts = 0;
  std::optional<QString> lastMessageAt;
  std::optional<QString> lastInboundAt;
  std::optional<QString> lastOutboundAt;
  qint64 followupsSent = 0;
  bool humanTookOver = false;
  QString createdAt;

  bool isArchived() const { return status == QLatin1String("archived"); }
  bool operator==(const InboxThread&) const = default;
};
BOOST_DESCRIBE_STRUCT(InboxThread::LeadRef, (), (id, fullName, company, title))
BOOST_DESCRIBE_STRUCT(InboxThread, (),
                      (id, number, mailboxId, mailboxAddress, contactAddress, contactName, lead, campaignId,
                       campaignStep, subject, snippet, label, labelSource, prospectState, kind, status, deletedAt,
                       unread, setterMode, effectiveMode, messageCount, pendingDrafts, lastMessageAt, lastInboundAt,
                       lastOutboundAt, followupsSent, humanTookOver, createdAt))

struct ThreadPage {
  /// Of the whole inbox, whatever the filter.
  struct Counts {
    struct MailboxCount {
      QString id;
      QString address;
      qint64 n = 0;
      bool operator==(const MailboxCount&) const = default;
    };
    qint64 total = 0;
    qint64 unread = 0;
    /// Threads with a draft waiting.
    qint64 drafts = 0;
    std::optional<QMap<QString, qint64>> byLabel;
    std::optional<QList<MailboxCount>> byMailbox;
    bool operator==(const Counts&) const = default;
  };
  QList<InboxThread> items;
  /// Absent on the last page.
  std::optional<QString> nextCursor;
  std::optional<Counts> counts;
  bool operator==(const ThreadPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(ThreadPage::Counts::MailboxCount, (), (id, address, n))
BOOST_DESCRIBE_STRUCT(ThreadPage::Counts, (), (total, unread, drafts, byLabel, byMailbox))
BOOST_DESCRIBE_STRUCT(ThreadPage, (), (items, nextCursor, counts))

/// Carries only what is set. Of its fields the label alone can be taken away.
struct ThreadPatch {
  Clearable<QString> label;
  std::optional<QString> status;
  std::optional<bool> unread;
  std::optional<bool> humanTookOver;
  bool operator==(const ThreadPatch&) const = default;
};
BOOST_DESCRIBE_STRUCT(ThreadPatch, (), (label, status, unread, humanTookOver))

}  // namespace orv
