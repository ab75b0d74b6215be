#include "app/base/RoleGate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

bool canWrite(const Role& role) {
  return role.rawValue == "owner"_L1 || role.rawValue == "admin"_L1 || role.rawValue == "member"_L1;
}

}  // namespace orv
