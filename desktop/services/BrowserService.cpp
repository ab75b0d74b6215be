#include "desktop/services/BrowserService.h"

#include "desktop/services/Programs.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

BrowserService::BrowserService() : BrowserService(openByDesktop) {}

bool BrowserService::open(const QUrl& url) {
  // Links come from answers and message bodies; anything but a web page could start a program or open a local file.
  const bool isWeb =
      url.isValid() && (url.scheme() == "https"_L1 || url.scheme() == "http"_L1) && !url.host().isEmpty();
  return isWeb && m_open(url.toString(QUrl::FullyEncoded));
}

}  // namespace orv
