#include "app/base/Poll.h"

namespace orv {

Task<bool> poll(Clock& clock, PollPace pace, std::function<Task<bool>()> ask) {
  for (int asked = 0; asked < pace.most; ++asked) {
    co_await clock.sleep(pace.interval);
    if (co_await ask()) co_return true;
  }
  co_return false;
}

}  // namespace orv
