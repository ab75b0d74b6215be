#include "kit/models/inbox/inboxRequests.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/requestBuilders.h"
#include "kit/models/inbox/threadDetail.h"
#include "kit/models/inbox/threadFilter.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {
namespace {

QString threads() { return u"/inbox/threads"_s; }
QString thread(const QString& id, const QString& rest = {}) { return threads() + u'/' + pathSegment(id) + rest; }

}  // namespace

Request<ThreadPage> listThreads(const ThreadFilter& filter, const std::optional<QString>& cursor) {
  auto request = get<ThreadPage>(threads(), filter.queryItems());
  addOptional(request.query, u"cursor"_s, cursor);
  return request;
}

Request<ThreadPage> unreadThreads() {
  return get<ThreadPage>(threads(), {{u"unread"_s, u"1"_s}, {u"limit"_s, u"1"_s}});
}

Request<ThreadPage> newReplies(const QString& label, const std::optional<QString>& since) {
  auto request = get<ThreadPage>(threads(), {{u"unread"_s, u"1"_s}, {u"tab"_s, u"primary"_s}, {u"label"_s, label}});
  addOptional(request.query, u"since"_s, since);
  request.query.append({u"limit"_s, u"20"_s});
  return request;
}

Request<ThreadDetail> getThread(const QString& id) {
  auto request = get<ThreadDetail>(thread(id));
  request.answerAtMost = wholeListAtMost;
  return request;
}

Request<InboxThread> updateThread(const QString& id, const ThreadPatch& patch) {
  return changing<InboxThread>(HTTPMethod::patch, thread(id), encodeJSON(patch));
}

Request<ReplyAccepted> replyToThread(const QString& id, const ReplyBody& body) {
  return changing<ReplyAccepted>(HTTPMethod::post, thread(id, u"/reply"_s), encodeJSON(body));
}

Request<Draft> draftReply(const QString& id) {
  return changing<Draft>(HTTPMethod::post, thread(id, u"/draft"_s), QJsonObject());
}

Request<Empty> checkMail() { return changing<Empty>(HTTPMethod::post, u"/inbox/poll"_s, QJsonObject()); }

}  // namespace orv::Requests
