#pragma once

#include "app/base/Toasts.h"
#include "app/base/desktop/Browser.h"
#include "app/base/desktop/ReleaseFeed.h"
#include "kit/async/TaskScope.h"

namespace orv {

/// Says, once for each, that there is a newer version. Getting it is the person's doing.
class Updates {
 public:
  Updates(Clock& clock, Toasts& toasts, Browser& browser, QString version);

  /// Looks into the feed soon, and every day; null looks nowhere.
  void follow(ReleaseFeed* feed);

 private:
  Task<void> watch(ReleaseFeed* feed);
  void tell(const ReleaseFeed::Newest& newest);

  Clock& m_clock;
  Toasts& m_toasts;
  Browser& m_browser;
  QString m_version;
  QString m_told;
  TaskSlot m_watch;
};

}  // namespace orv
