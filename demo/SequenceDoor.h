#pragma once

#include "demo/DemoState.h"

namespace orv::demo {

/// What the check before a launch finds now.
Qc checkOf(DemoCampaign& campaign, const QDateTime& now);

}  // namespace orv::demo
