#include "kit/models/inbox/draftRequests.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/requestBuilders.h"
#include "kit/models/inbox/draftReview.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {
namespace {

QString drafts() { return u"/inbox/drafts"_s; }
QString draft(const QString& id, const QString& rest) { return drafts() + u'/' + pathSegment(id) + rest; }

}  // namespace

Request<ReviewDraftPage> listDrafts(const QString& status, const std::optional<QString>& cursor) {
  auto request = get<ReviewDraftPage>(drafts(), {{u"status"_s, status}, {u"limit"_s, u"100"_s}});
  addOptional(request.query, u"cursor"_s, cursor);
  return request;
}

Request<Draft> approveDraft(const QString& id, const ApproveDraftBody& body) {
  return changing<Draft>(HTTPMethod::post, draft(id, u"/approve"_s), encodeJSON(body));
}

Request<Draft> rejectDraft(const QString& id, const RejectDraftBody& body) {
  return changing<Draft>(HTTPMethod::post, draft(id, u"/reject"_s), encodeJSON(body));
}

Request<Draft> undoApproveDraft(const QString& id) {
  return changing<Draft>(HTTPMethod::post, draft(id, u"/undo-approve"_s), QJsonObject());
}

Request<Draft> restoreDraft(const QString& id) {
  return changing<Draft>(HTTPMethod::post, draft(id, u"/restore"_s), QJsonObject());
}

Request<DraftVersions> draftVersions(const QString& id) {
  return changing<DraftVersions>(HTTPMethod::post, draft(id, u"/versions"_s), QJsonObject());
}

Request<DraftTraining> draftTraining(const QString& id) { return get<DraftTraining>(draft(id, u"/training"_s)); }

}  // namespace orv::Requests
