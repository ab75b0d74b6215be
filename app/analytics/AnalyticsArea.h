#pragma once

#include "app/base/Area.h"

namespace orv {

/// Dashboard and analytics.
Area analyticsArea();

}  // namespace orv
