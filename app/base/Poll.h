#pragma once

#include <functional>

#include "kit/async/Clock.h"

namespace orv {

/// How long to wait before each time that something is asked, and how often at most.
struct PollPace {
  std::chrono::seconds interval;
  int most;
};

/// Waits and asks, again and again, until `ask` says that it has what it wanted. False when it never had.
///
/// The next wait begins when an answer has come, so that no two are under way. It goes on while nobody looks at the
/// window; while the machine sleeps no time passes for it. Whoever holds the task ends it by letting go.
Task<bool> poll(Clock& clock, PollPace pace, std::function<Task<bool>()> ask);

}  // namespace orv
