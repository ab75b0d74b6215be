#include "app/shell/Updates.h"

#include <QVersionNumber>

#include "app/base/openInBrowser.h"
#include "app/base/shownName.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {

Updates::Updates(Clock& clock, Toasts& toasts, Browser& browser, QString version, std::function<void()> found)
    : m_clock(clock), m_toasts(toasts), m_browser(browser), m_version(std::move(version)), m_found(std::move(found)) {}

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
  if (there <= here || (m_newest && newest.version == m_newest->version)) return;
  m_newest = newest;
  m_found();
  Toasts::Message message{.message = u"Orvella "_s + Updates::newest() + u" is out"_s,
                          .detail = u"You have "_s + m_version + u'.'};
  if (canOpen()) {
    message.actionLabel = u"Open"_s;
    message.action = [this] { open(); };
  }
  m_toasts.show(std::move(message));
}

QString Updates::newest() const { return m_newest ? shownName(m_newest->version) : QString(); }

bool Updates::canOpen() const { return m_newest && m_newest->page.scheme() == "https"_L1; }

void Updates::open() const {
  if (canOpen()) openInBrowser(m_browser, m_toasts, m_newest->page);
}

}  // namespace orv
