#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct Draft;
struct InboxThread;
struct ReplyAccepted;
struct ReplyBody;
struct ThreadDetail;
struct ThreadFilter;
struct ThreadPage;
struct ThreadPatch;

namespace Requests {

/// One page, newest message first; the next one continues with its cursor.
Request<ThreadPage> listThreads(const ThreadFilter& filter, const std::optional<QString>& cursor = {});
/// For its counts alone.
Request<ThreadPage> unreadThreads();
/// Unread replies with the label that came after `since`, the newest of them.
Request<ThreadPage> newReplies(const QString& label, const std::optional<QString>& since);
Request<ThreadDetail> getThread(const QString& id);
Request<InboxThread> updateThread(const QString& id, const ThreadPatch& patch);
Request<ReplyAccepted> replyToThread(const QString& id, const ReplyBody& body);
/// The agent writes a draft, or another one.
Request<Draft> draftReply(const QString& id);
/// Has every mailbox asked for new replies. Answered when they have been.
Request<Empty> checkMail();

}  // namespace Requests
}  // namespace orv
