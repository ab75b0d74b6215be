#pragma once

#include "kit/models/inbox/draft.h"
#include "kit/models/inbox/inboxThread.h"

namespace orv {

/// One email of a conversation. Its texts are a stranger's, `html` above all: it is never drawn as markup.
struct InboxMessage {
  QString id;
  /// "inbound" from the lead, "outbound" from the mailbox.
  QString direction;
  QString state;
  std::optional<QString> fromAddress;
  std::optional<QString> fromName;
  std::optional<QString> toAddress;
  std::optional<QString> subject;
  /// Plain text.
  QString body;
  std::optional<QString> html;
  std::optional<QString> kind;
  /// The draft that it was sent from.
  std::optional<QString> draftId;
  std::optional<QList<QString>> cc;
  std::optional<QList<QString>> bcc;
  std::optional<QString> scheduledAt;
  QString at;

  bool isInbound() const { return direction == QLatin1String("inbound"); }
  bool operator==(const InboxMessage&) const = default;
};
BOOST_DESCRIBE_STRUCT(InboxMessage, (),
                      (id, direction, state, fromAddress, fromName, toAddress, subject, body, html, kind, draftId, cc,
                       bcc, scheduledAt, at))

struct ThreadDetail {
  InboxThread thread;
  /// Oldest first.
  QList<InboxMessage> messages;
  QList<Draft> drafts;
  bool operator==(const ThreadDetail&) const = default;
};
BOOST_DESCRIBE_STRUCT(ThreadDetail, (), (thread, messages, drafts))

/// A member's own reply.
struct ReplyBody {
  QString body;
  std::optional<QList<QString>> cc;
  std::optional<QList<QString>> bcc;
  bool operator==(const ReplyBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(ReplyBody, (), (body, cc, bcc))

/// The reply waits as a draft that the job sends.
struct ReplyAccepted {
  Draft draft;
  QString jobId;
  bool operator==(const ReplyAccepted&) const = default;
};
BOOST_DESCRIBE_STRUCT(ReplyAccepted, (), (draft, jobId))

}  // namespace orv
