#include "demo/DemoState.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

QString stamp(const QDate& today, int daysAgo, const QTime& time) {
  return formatPlatformDate(QDateTime(today.addDays(-daysAgo), time, Qt::UTC));
}

}  // namespace

void addTeam(DemoState& state, DemoWorkspace& workspace, const QDate& today) {
  struct Colleague {
    QString first, last, role;
    /// Of their last sign-in; negative for never.
    int daysAgo;
  };
  const QList<Colleague> colleagues{{u"Ellen"_s, u"Marsh"_s, u"admin"_s, 0},
                                    {u"Ruben"_s, u"Aalto"_s, u"member"_s, 1},
                                    {u"Lena"_s, u"Hartwig"_s, u"member"_s, 4},
                                    {u"Noel"_s, u"Byrne"_s, u"viewer"_s, 12},
                                    {u"Pia"_s, u"Lorentzen"_s, u"client"_s, -1}};
  for (const Colleague& colleague : colleagues) {
    const QString email = colleague.first.toLower() + u"@northgate.example"_s;
    state.accounts.insert(
        email, {{u"u_"_s + colleague.first.toLower(), email, colleague.first + u' ' + colleague.last, {}, {}}, {}, {}});
    workspace.members.insert(email, colleague.role);
    if (colleague.daysAgo >= 0) workspace.team.lastSignIns.insert(email, stamp(today, colleague.daysAgo, QTime(7, 40)));
  }
  workspace.team.lastSignIns.insert(u"maren@northgate.example"_s, stamp(today, 0, QTime(8, 12)));
  const auto invite = [&](const QString& id, const QString& email, const QString& role, int daysAgo) {
    workspace.team.invites.append({id, email, Role(role), u"Maren Kolbe"_s, stamp(today, daysAgo - 7, QTime(9, 0)),
                                   stamp(today, daysAgo, QTime(9, 0))});
  };
  invite(u"inv_siobhan"_s, u"siobhan@ardmore.example"_s, u"viewer"_s, 4);
  invite(u"inv_mikael"_s, u"mikael@northgate.example"_s, u"member"_s, 2);
}

}  // namespace orv::demo
