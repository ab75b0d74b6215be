#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct ClientWorkspace;
struct ClientWorkspaceBody;
struct Invite;
struct InviteBody;
struct InvitePage;
struct Member;
struct MemberPage;
struct Role;
struct WorkspaceDetail;
struct WorkspacePatch;

namespace Requests {

Request<WorkspaceDetail> getWorkspace();
/// `version` as last read, when it is known.
Request<WorkspaceDetail> updateWorkspace(const WorkspacePatch& patch, std::optional<qint64> version);
/// The whole workspace the request is sent to, for good. Whatever somebody else changed meanwhile goes with it.
Request<Empty> deleteWorkspace();

Request<MemberPage> listMembers();
Request<Member> changeRole(const QString& userId, const Role& role);
Request<Empty> removeMember(const QString& userId);
Request<InvitePage> listInvites();
Request<Invite> invite(const InviteBody& body);
Request<Empty> revokeInvite(const QString& id);
Request<ClientWorkspace> createClientWorkspace(const ClientWorkspaceBody& body);

}  // namespace Requests
}  // namespace orv
