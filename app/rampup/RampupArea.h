#pragma once

#include "app/base/Area.h"

namespace orv {

/// The accounts' roadmaps and warm-up, and the templates of both.
Area rampupArea();

}  // namespace orv
