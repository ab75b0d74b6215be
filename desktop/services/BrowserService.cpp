#include "desktop/services/BrowserService.h"

#include "desktop/services/Programs.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

BrowserService::BrowserService() : BrowserService(openByDesktop) {}

bool BrowserService::open(const QUrl& url) {
  // Links come from answers and message bodies; anything else could start a program or open a local file.
  const bool isWeb = (url.scheme() == "https"_L1 || url.scheme() == "http"_L1) && !url.host().isEmpty();
  // A header field in it could have the mail program attach a file.
  const bool isMail = url.scheme() == "mailto"_L1 && !url.path().isEmpty() && !url.hasQuery() && !url.hasFragment();
  return url.isValid() && (isWeb || isMail) && m_open(url.toString(QUrl::FullyEncoded));
}

}  // namespace orv
