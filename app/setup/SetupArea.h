#pragma once

#include "app/base/Area.h"

namespace orv {

/// Inbox setup: the projects, each with its run.
Area setupArea();

}  // namespace orv
