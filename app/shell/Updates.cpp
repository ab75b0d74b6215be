#include "app/shell/Updates.h"

#include <QVersionNumber>

#include "app/base/shownName.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {

Updates::Updates(Clock& clock, Toasts& toasts, Browser& browser, QString version)
    : m_clock(clock), m_toasts(toasts), m_browser(browser), m_version(std::move(version)) {}

void Updates::follow(ReleaseFeed* feed) {
  if (feed)
    m_watch.start(watch(feed));
  else
    m_watch.cancel();
}

Task<void> Updates::watch(ReleaseFeed* feed) {
  // Not while the window is made: nobody waits for this.
  for (std::chrono::milliseconds rest = 10s;; rest = 24h) {
    co_await m_clock.sleep(rest);
    if (const auto newest = co_await feed->newest()) tell(*newest);
  }
}

void Updates::tell(const ReleaseFeed::Newest& newest) {
  const auto there = QVersionNumber::fromString(newest.version), here = QVersionNumber::fromString(m_version);
  if (there <= here || newest.version == m_told) return;
  m_told = newest.version;
  Toasts::Message message{.message = u"Orvella "_s + shownName(newest.version) + u" is out"_s,
                          .detail = u"You have "_s + m_version + u'.'};
  if (newest.page.scheme() == "https"_L1) {
    message.actionLabel = u"Open"_s;
    message.action = [&browser = m_browser, page = newest.page] { browser.open(page); };
  }
  m_toasts.show(std::move(message));
}

}  // namespace orv
