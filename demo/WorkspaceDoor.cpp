#include "demo/Routes.h"
#include "kit/models/workspace/workspaceDetail.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr int inviteDays = 7;

Role roleOf(const Call& call) { return Role(call.workspace->members.value(call.email)); }

WorkspaceDetail detailOf(const Call& call) {
  const DemoWorkspace& workspace = *call.workspace;
  return {.id = workspace.id,
          .publicId = u"ws_"_s + workspace.slug.toUpper(),
          .slug = workspace.slug,
          .name = workspace.name,
          .timeZone = workspace.timeZone,
          .plan = u"growth"_s,
          .role = roleOf(call),
          .opportunityValue = workspace.team.opportunityValue,
          .version = workspace.team.version,
          .canDelete = roleOf(call).isOwner(),
          .unsubscribesToBlocklist = workspace.team.unsubscribesToBlocklist};
}

HTTPAnswer detail(Call& call) { return jsonAnswer(toJSON(detailOf(call))); }

HTTPAnswer patch(Call& call) {
  DemoTeam& team = call.workspace->team;
  if (call.request.isMadeOnOther(team.version))
    return problemAnswer(409, u"version_conflict"_s, u"Someone else changed this workspace"_s);
  const auto patch = call.request.bodyAs<WorkspacePatch>();
  if (!patch) return invalid(u"This change can’t be read."_s, {});
  if (patch->name && patch->name->trimmed().isEmpty()) return invalid(u"A name is required."_s, u"name"_s);
  if (patch->opportunityValue && *patch->opportunityValue < 0)
    return invalid(u"The value is zero or more."_s, u"opportunityValue"_s);
  if (patch->name) call.workspace->name = patch->name->trimmed();
  if (patch->timeZone) call.workspace->timeZone = *patch->timeZone;
  if (patch->opportunityValue) team.opportunityValue = *patch->opportunityValue;
  if (patch->unsubscribesToBlocklist) team.unsubscribesToBlocklist = *patch->unsubscribesToBlocklist;
  ++team.version;
  return detail(call);
}

HTTPAnswer remove(Call& call) {
  const auto body = call.request.bodyAs<DeletionBody>();
  if (!body || body->confirm != "DELETE"_L1) return invalid(u"Type DELETE to confirm."_s, u"confirm"_s);
  const QString slug = call.workspace->slug;
  call.workspace = nullptr;
  call.state.workspaces.removeIf([&slug](const DemoWorkspace& workspace) { return workspace.slug == slug; });
  return emptyAnswer();
}

Member memberOf(const Call& call, const QString& email) {
  const User user = call.state.accounts.value(email).user;
  const DemoTeam& team = call.workspace->team;
  Member member{.userId = user.id, .email = email, .role = Role(call.workspace->members.value(email))};
  if (!user.name.isEmpty()) member.name = user.name;
  if (team.lastSignIns.contains(email)) member.lastSignInAt = team.lastSignIns.value(email);
  return member;
}

HTTPAnswer members(Call& call) {
  MemberPage page;
  // Who asks comes first.
  page.items.append(memberOf(call, call.email));
  for (const QString& email : call.workspace->members.keys())
    if (email != call.email) page.items.append(memberOf(call, email));
  return jsonAnswer(toJSON(page));
}

/// The address of the member with the path's id; empty for nobody.
QString addressed(const Call& call) {
  for (const QString& email : call.workspace->members.keys())
    if (call.state.accounts.value(email).user.id == call.ids.first()) return email;
  return {};
}

/// A workspace without an owner would be nobody's.
bool isLastOwner(const Call& call, const QString& email) {
  return call.workspace->members.value(email) == "owner"_L1 && call.workspace->members.values().count(u"owner"_s) == 1;
}

HTTPAnswer changeRole(Call& call) {
  const QString email = addressed(call);
  const auto body = call.request.bodyAs<RoleBody>();
  if (email.isEmpty()) return notFound();
  if (!body || body->role.rawValue.isEmpty()) return invalid(u"Pick a role."_s, u"role"_s);
  if (body->role.isOwner() && !roleOf(call).isOwner())
    return problemAnswer(403, u"forbidden"_s, u"Not allowed"_s, u"Only an owner can make somebody an owner."_s);
  if (isLastOwner(call, email)) return problemAnswer(409, u"last_owner"_s, u"A workspace needs an owner"_s);
  call.workspace->members.insert(email, body->role.rawValue);
  return jsonAnswer(toJSON(memberOf(call, email)));
}

HTTPAnswer removeMember(Call& call) {
  const QString email = addressed(call);
  if (email.isEmpty()) return notFound();
  if (isLastOwner(call, email)) return problemAnswer(409, u"last_owner"_s, u"A workspace needs an owner"_s);
  call.workspace->members.remove(email);
  return emptyAnswer();
}

HTTPAnswer invites(Call& call) { return jsonAnswer(toJSON(InvitePage{call.workspace->team.invites})); }

HTTPAnswer invite(Call& call) {
  const auto body = call.request.bodyAs<InviteBody>();
  if (!body || !body->email.contains(u'@')) return invalid(u"An email address is required."_s, u"email"_s);
  if (call.workspace->members.contains(body->email.toLower()))
    return problemAnswer(409, u"already_member"_s, u"They’re in this workspace already"_s);
  QList<Invite>& waiting = call.workspace->team.invites;
  waiting.removeIf([&body](const Invite& known) { return known.email == body->email; });
  waiting.prepend({call.random.id(u"inv"_s), body->email, body->role, call.state.accounts.value(call.email).user.name,
                   formatPlatformDate(call.now.addDays(inviteDays)), call.stamp()});
  return jsonAnswer(toJSON(waiting.first()), 201);
}

HTTPAnswer revoke(Call& call) {
  const auto gone = call.workspace->team.invites.removeIf([&](const Invite& i) { return i.id == call.ids.first(); });
  return gone > 0 ? emptyAnswer() : notFound();
}

HTTPAnswer createClient(Call& call) {
  const auto body = call.request.bodyAs<ClientWorkspaceBody>();
  if (!body || body->workspace.trimmed().isEmpty()) return invalid(u"A name is required."_s, u"workspace"_s);
  DemoWorkspace made;
  made.id = call.random.id(u"w"_s);
  made.slug = u"client-"_s + made.id.right(6).toLower();
  made.name = body->workspace.trimmed();
  made.timeZone = call.workspace->timeZone;
  made.members = {{call.email, u"owner"_s}};
  made.leads.base = call.workspace->leads.base;
  made.team.invites.append({call.random.id(u"inv"_s),
                            body->email,
                            Role(u"client"_s),
                            {},
                            formatPlatformDate(call.now.addDays(inviteDays)),
                            call.stamp()});
  const ClientWorkspace answer{made.id, made.slug, made.name};
  // The list may move, and the workspace that was asked with it.
  call.workspace = nullptr;
  call.state.workspaces.append(made);
  return jsonAnswer(toJSON(answer), 201);
}

}  // namespace

const QList<Route>& workspaceRoutes() {
  static const QList<Route> routes{
      {"GET", u"/"_s, Access::readers, detail},
      {"PATCH", u"/"_s, Access::managers, patch},
      {"DELETE", u"/"_s, Access::owners, remove},
      {"GET", u"/members"_s, Access::readers, members},
      {"PATCH", u"/members/{id}"_s, Access::managers, changeRole},
      {"DELETE", u"/members/{id}"_s, Access::managers, removeMember},
      {"GET", u"/invites"_s, Access::readers, invites},
      {"POST", u"/invites"_s, Access::managers, invite},
      {"DELETE", u"/invites/{id}"_s, Access::managers, revoke},
      {"POST", u"/client-workspaces"_s, Access::managers, createClient},
  };
  return routes;
}

}  // namespace orv::demo
