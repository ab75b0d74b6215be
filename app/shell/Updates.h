#pragma once

#include <functional>

#include "app/base/Toasts.h"
#include "app/base/desktop/Browser.h"
#include "app/base/desktop/ReleaseFeed.h"
#include "kit/async/TaskScope.h"

namespace orv {

/// Says, once for each, that there is a newer version. Getting it is the person's doing.
class Updates {
 public:
  /// `found` is called when one is known.
  Updates(Clock& clock, Toasts& toasts, Browser& browser, QString version, std::function<void()> found);

  /// Looks into the feed soon, and every day; null looks nowhere.
  void follow(ReleaseFeed* feed);

  /// The newest, as it is shown; empty while none is known that is newer than this.
  QString newest() const;
  /// There is a page about it.
  bool canOpen() const;
  void open() const;

 private:
  Task<void> watch(ReleaseFeed* feed);
  void tell(const ReleaseFeed::Newest& newest);

  Clock& m_clock;
  Toasts& m_toasts;
  Browser& m_browser;
  QString m_version;
  std::function<void()> m_found;
  std::optional<ReleaseFeed::Newest> m_newest;
  TaskSlot m_watch;
};

}  // namespace orv
