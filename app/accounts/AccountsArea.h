#pragma once

#include "app/base/Area.h"

namespace orv {

/// The email accounts' list, and a page for each of them.
Area accountsArea();

}  // namespace orv
