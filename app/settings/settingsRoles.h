#pragma once

#include "app/base/Choice.h"
#include "kit/session/records.h"

namespace orv {

/// The roles that somebody can be given, each with what it may do.
QList<Choice> roleChoices();
/// "Admin"; a role that is not known stands as it is.
QString roleLabel(const Role& role);
/// They manage members, invites and settings.
bool mayManage(const Role& role);

}  // namespace orv
