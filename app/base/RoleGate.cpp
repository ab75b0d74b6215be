#include "app/base/RoleGate.h"

namespace orv {

bool canWrite(const Role& role) { return role.isOwner() || role.isAdmin() || role.isMember(); }

}  // namespace orv
