#pragma once

#include "app/base/Area.h"

namespace orv {

/// The inbox: conversations, drafts to review, and the reply agent.
Area inboxArea();

}  // namespace orv
