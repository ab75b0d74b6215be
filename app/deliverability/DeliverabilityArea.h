#pragma once

#include "app/base/Area.h"

namespace orv {

/// What the placement watcher sees.
Area deliverabilityArea();

}  // namespace orv
