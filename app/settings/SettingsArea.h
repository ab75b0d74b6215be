#pragma once

#include "app/base/Area.h"

namespace orv {

/// The settings of the person, of the workspace, and of what it does.
Area settingsArea();

}  // namespace orv
