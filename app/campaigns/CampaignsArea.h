#pragma once

#include "app/base/Area.h"

namespace orv {

/// The campaigns' list, and a page for each of them.
Area campaignsArea();

}  // namespace orv
