#pragma once

#include "demo/DemoState.h"

namespace orv::demo {

/// Gives the workspace its lists, searches, imports and allowance. It sees the database already.
void addLeads(DemoWorkspace& workspace, DemoRandom& random, const QDate& today);
/// In a workspace that only begins, nothing but the allowance, which is paid with credits.
void addCredits(DemoWorkspace& workspace);

}  // namespace orv::demo
