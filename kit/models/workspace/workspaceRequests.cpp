#include "kit/models/workspace/workspaceRequests.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/requestBuilders.h"
#include "kit/models/workspace/members.h"
#include "kit/models/workspace/workspaceDetail.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {
namespace {

const auto root = u"/"_s;

QString member(const QString& userId) { return u"/members/"_s + pathSegment(userId); }

}  // namespace

Request<WorkspaceDetail> getWorkspace() { return get<WorkspaceDetail>(root); }

Request<WorkspaceDetail> updateWorkspace(const WorkspacePatch& patch, std::optional<qint64> version) {
  auto request = changing<WorkspaceDetail>(HTTPMethod::patch, root, encodeJSON(patch));
  request.ifMatch = version;
  return request;
}

Request<Empty> deleteWorkspace() {
  return changing<Empty>(HTTPMethod::del, root, encodeJSON(DeletionBody{u"DELETE"_s}));
}

Request<MemberPage> listMembers() { return get<MemberPage>(u"/members"_s, {{u"limit"_s, u"200"_s}}); }

Request<Member> changeRole(const QString& userId, const Role& role) {
  return changing<Member>(HTTPMethod::patch, member(userId), encodeJSON(RoleBody{role}));
}

Request<Empty> removeMember(const QString& userId) { return changing<Empty>(HTTPMethod::del, member(userId)); }

Request<InvitePage> listInvites() { return get<InvitePage>(u"/invites"_s); }

Request<Invite> invite(const InviteBody& body) {
  return changing<Invite>(HTTPMethod::post, u"/invites"_s, encodeJSON(body));
}

Request<Empty> revokeInvite(const QString& id) {
  return changing<Empty>(HTTPMethod::del, u"/invites/"_s + pathSegment(id));
}

Request<ClientWorkspace> createClientWorkspace(const ClientWorkspaceBody& body) {
  return changing<ClientWorkspace>(HTTPMethod::post, u"/client-workspaces"_s, encodeJSON(body));
}

}  // namespace orv::Requests
