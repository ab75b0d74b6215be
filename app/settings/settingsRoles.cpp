#include "app/settings/settingsRoles.h"

#include "app/base/shownName.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QList<Choice> roleChoices() {
  return {{.key = u"owner"_s, .label = u"Owner"_s, .detail = u"Everything, including deleting the workspace."_s},
          {.key = u"admin"_s, .label = u"Admin"_s, .detail = u"Manages members, settings and every campaign."_s},
          {.key = u"member"_s, .label = u"Member"_s, .detail = u"Runs campaigns, leads and inboxes."_s},
          {.key = u"viewer"_s, .label = u"Viewer"_s, .detail = u"Sees everything, changes nothing."_s}};
}

QString roleLabel(const Role& role) {
  for (const Choice& choice : roleChoices())
    if (choice.key == role.rawValue) return choice.label;
  return shownName(role.rawValue);
}

bool mayManage(const Role& role) { return role.isOwner() || role.isAdmin(); }

}  // namespace orv
