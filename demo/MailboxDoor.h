#pragma once

#include "demo/Door.h"
#include "kit/models/campaigns/campaignSender.h"
#include "kit/models/mailboxes.h"

namespace orv::demo {

/// Answers about the workspace's mailboxes, its tags and the labels of its replies.
class MailboxDoor {
 public:
  explicit MailboxDoor(const DoorContext& context) : m_workspace(context.workspace), m_now(context.now) {}

  /// Nothing when the request is about something else.
  std::optional<HTTPAnswer> answer(const DemoRequest& request, const QStringList& parts) const;

 private:
  HTTPAnswer list(const QUrlQuery& query) const;
  HTTPAnswer tags() const;
  Mailbox mailboxOf(const DemoMailbox& listed) const;

  const DemoWorkspace& m_workspace;
  QDateTime m_now;
};

/// The mailboxes picked by id and then those that join by a tag; nothing when a picked one is not there.
std::optional<QList<CampaignSender>> sendersOf(const DemoWorkspace& workspace, const QList<QString>& pickedIds,
                                               const QList<QString>& tags);

}  // namespace orv::demo
