#pragma once

#include "kit/session/records.h"

namespace orv {

/// Whether the role may change things. Client logins, viewers and roles this client does not know may only read.
bool canWrite(const Role& role);

}  // namespace orv
