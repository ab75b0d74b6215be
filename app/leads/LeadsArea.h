#pragma once

#include "app/base/Area.h"

namespace orv {

/// The search for leads, the lists of them, and a page for each list.
Area leadsArea();

}  // namespace orv
