#include "app/settings/MembersStore.h"

#include "app/base/Program.h"
#include "app/base/shownName.h"
#include "app/settings/settingsRoles.h"
#include "kit/models/workspace/workspaceRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

MembersStore::MembersStore(Store& whole)
    : Store(whole.context(), &whole),
      m_list(*this, [this] { return api().send(Requests::listMembers()); },
             {.failed = u"Couldn’t load members"_s, .loadsByItself = false}),
      m_actions(whole.context(), m_busy, [this] { m_list.load(); }) {
  connect(&m_list, &ResourceBase::valueChanged, this, &MembersStore::show);
  connect(&m_busy, &BusySet::changed, this, &MembersStore::changed);
  connect(this, &Store::roleChanged, this, &MembersStore::changed);
}

bool MembersStore::canManage() const { return mayManage(context().workspace().role); }

QList<Choice> MembersStore::roles() const { return roleChoices(); }

const Member* MembersStore::find(const QString& id) const {
  if (!m_list.value()) return nullptr;
  const auto found = std::ranges::find(m_list.value()->items, id, &Member::userId);
  return found == m_list.value()->items.end() ? nullptr : &*found;
}

void MembersStore::show() {
  m_rows.update(rowsOf(m_list.value()->items, services().program.userId(), services().clock.now()));
}

QString MembersStore::roleOf(const QString& id) const { return find(id) ? find(id)->role.rawValue : QString(); }

bool MembersStore::canChange(const QString& id) const {
  return canManage() && find(id) && id != services().program.userId() && !m_busy.contains(id);
}

QList<PageAction> MembersStore::offered(const QString& record) {
  const Member* member = find(record);
  if (!member || !canManage() || record == services().program.userId()) return {};
  const bool isFree = canChange(record);
  QList<PageAction> actions;
  for (const Choice& role : roleChoices())
    actions.append({.key = u"role-"_s + role.key,
                    .title = u"Change role to "_s + role.label,
                    .possible = isFree && member->role.rawValue != role.key,
                    .run = [this, record, key = role.key] { changeRole(record, key); }});
  actions.append({.key = u"remove"_s,
                  .title = u"Remove "_s + shownName(member->title()),
                  .icon = u"edit-delete"_s,
                  .keys = u"Del"_s,
                  .danger = true,
                  .possible = isFree,
                  .run = [this, record] { remove(record); }});
  return actions;
}

Task<void> MembersStore::changeRoleTask(QString id, QString role) {
  if (!canChange(id) || roleOf(id) == role) co_return;
  const auto build = [id, role] { return Requests::changeRole(id, Role(role)); };
  const auto changed = co_await m_actions.perform<Member>({id, id}, build, u"Couldn’t change the role."_s);
  if (!changed) co_return;
  m_list.update([&](MemberPage& page) {
    for (Member& member : page.items)
      if (member.userId == id) member = *changed;
  });
  services().toasts.success(shownName(changed->title()) + u" is now "_s + roleLabel(changed->role));
}

Task<void> MembersStore::removeTask(QString id) {
  if (!canChange(id)) co_return;
  const auto mark = m_busy.mark(id);
  const QString name = shownName(find(id)->title());
  const bool sure = co_await services().overlays.confirm({.title = u"Remove "_s + name + u'?',
                                                          .text = u"They lose access to this workspace at once."_s,
                                                          .confirm = u"Remove"_s,
                                                          .destructive = true});
  if (!sure) co_return;
  if (!co_await m_actions.remove<Member>(id, Requests::removeMember(id), u"Couldn’t remove "_s + name + u'.'))
    co_return;
  m_list.update([&](MemberPage& page) { page.items.removeIf([&](const Member& m) { return m.userId == id; }); });
  services().toasts.success(u"Removed "_s + name);
}

InvitesStore::InvitesStore(Store& whole)
    : Store(whole.context(), &whole),
      m_list(*this, [this] { return api().send(Requests::listInvites()); },
             {.failed = u"Couldn’t load the invites"_s, .loadsByItself = false}),
      m_actions(whole.context(), m_busy, [this] { m_list.load(); }),
      m_form(whole.context()) {
  connect(&m_list, &ResourceBase::valueChanged, this, [this] { m_rows.update(rowsOf(m_list.value()->items)); });
  connect(&m_busy, &BusySet::changed, this, &InvitesStore::changed);
  m_form.onSubmit = [this](const InviteFields& fields) { m_tasks.start(inviteTask(fields)); };
}

QList<PageAction> InvitesStore::offered(const QString& record) {
  if (record.isEmpty() || !mayManage(context().workspace().role)) return {};
  return {{.key = u"revoke"_s,
           .title = u"Revoke invite"_s,
           .icon = u"edit-delete"_s,
           .keys = u"Del"_s,
           .danger = true,
           .possible = !m_busy.contains(record),
           .run = [this, record] { revoke(record); }}};
}

Task<void> InvitesStore::revokeTask(QString id) {
  const auto mark = m_busy.mark(id);
  if (!mark) co_return;
  if (!co_await m_actions.remove<Invite>(id, Requests::revokeInvite(id), u"Couldn’t revoke the invite."_s)) co_return;
  m_list.update([&](InvitePage& page) { page.items.removeIf([&](const Invite& i) { return i.id == id; }); });
  services().toasts.success(u"Invite revoked"_s);
}

Task<void> InvitesStore::inviteTask(InviteFields fields) {
  auto submission = m_form.begin();
  const auto told = [&submission, this](const APIError& error) {
    submission.fail(services().toasts, u"Couldn’t send the invite."_s, error);
    return true;
  };
  const auto sent = co_await m_actions.send(Requests::invite({fields.email, Role(fields.role)}), {}, {}, told);
  if (!sent) co_return;
  submission.succeed();
  services().toasts.success(u"Invitation sent to "_s + shownName(sent->email));
  m_list.load();
}

}  // namespace orv
