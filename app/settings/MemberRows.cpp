#include "app/settings/MemberRows.h"

#include "app/base/cellText.h"
#include "app/base/momentText.h"
#include "app/settings/settingsRoles.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(MemberRow)
ORV_DEFINE_ROW(InviteRow)

std::vector<MemberRow> rowsOf(const QList<Member>& members, const QString& you, const QDateTime& now) {
  std::vector<MemberRow> rows;
  for (const Member& member : members) {
    QString signIn = momentText(member.lastSignInAt, now);
    if (signIn.isEmpty()) signIn = u"Never"_s;
    signIn[0] = signIn[0].toUpper();
    rows.push_back({member.userId, member.title(), member.email, roleLabel(member.role), signIn, member.userId == you});
  }
  return rows;
}

std::vector<InviteRow> rowsOf(const QList<Invite>& invites) {
  std::vector<InviteRow> rows;
  for (const Invite& invite : invites) {
    rows.push_back({invite.id, invite.email, roleLabel(invite.role), shortDay(invite.expiresAt)});
  }
  return rows;
}

}  // namespace orv
