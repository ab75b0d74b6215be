#pragma once

#include "kit/models/inbox/draftReview.h"
#include "kit/models/inbox/inboxThread.h"
#include "kit/models/inbox/setterSettings.h"
#include "kit/models/inbox/setterTraining.h"
#include "kit/models/inbox/threadDetail.h"

namespace orv::demo {

struct Talk;

struct DemoThread {
  /// Without what follows from its messages and drafts: that is worked out when it is shown (see Inbox.h).
  InboxThread record;
  /// Oldest first.
  QList<InboxMessage> messages;
  /// What was asked, as long as nobody has found another meaning in it; null where nobody knows.
  const Talk* talk = nullptr;

  const QString& id() const { return record.id; }
};

struct DemoDraft {
  Draft record;
  /// What the agent has made of the decision; nothing while it has not come to that.
  std::optional<DraftTraining> training;
  /// Of a member's own reply.
  QList<QString> cc, bcc;

  const QString& id() const { return record.id; }
};

struct DemoInbox {
  QList<DemoThread> threads;
  /// In the order in which they were written.
  QList<DemoDraft> drafts;
  SetterSettings settings;
  std::optional<SetterTraining::Flip> lastFlip;
  /// By campaign; the others follow the default.
  QMap<QString, QString> modes;
  QList<SetterLesson> lessons;
  /// Labels beside those that every workspace has.
  QList<ReplyLabel> ownLabels;
  qint64 lastNumber = 0;
  /// Up to when replies have come in by themselves.
  QDateTime receivedUntil;
};

}  // namespace orv::demo
