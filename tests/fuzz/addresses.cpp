#include <curl/curl.h>

#include <memory>

#include "kit/api/APIEnvironment.h"
#include "kit/api/WireRequest.h"
#include "tests/fuzz/fuzz.h"

using namespace orv;

namespace {

/// As the network library reads an address, which is where requests really go.
QByteArray part(const QByteArray& url, CURLUPart which) {
  const std::unique_ptr<CURLU, void (*)(CURLU*)> parsed(curl_url(), curl_url_cleanup);
  if (curl_url_set(parsed.get(), CURLUPART_URL, url.constData(), 0) != CURLUE_OK) return {};
  char* text = nullptr;
  if (curl_url_get(parsed.get(), which, &text, 0) != CURLUE_OK) return {};
  const std::unique_ptr<char, void (*)(void*)> owned(text, curl_free);
  return QByteArray(text).toLower();
}

}  // namespace

int LLVMFuzzerTestOneInput(const unsigned char* bytes, size_t size) {
  fuzz::beQuiet();
  const APIEnvironment environment = APIEnvironment::resolve({QString::fromUtf8(fuzz::input(bytes, size))});
  fuzz::require(!environment.baseURL.host().isEmpty(), "there is a host");
  APICall call;
  call.request.path = QStringLiteral("/campaigns");
  call.slug = QStringLiteral("northgate");
  call.token = QStringLiteral("orv_sess_1");
  const WireRequest wire = wireRequest(call, environment, ClientIdentity::current());
  for (const QByteArray& line : wire.headers)
    fuzz::require(!line.contains('\n') && !line.contains('\r'), "a header is one line");
  const QByteArray host = part(wire.url, CURLUPART_HOST);
  if (host.isEmpty()) return 0;
  QByteArray meant = environment.baseURL.host(QUrl::FullyEncoded).toLatin1().toLower();
  if (meant.contains(':')) meant = '[' + meant + ']';
  fuzz::require(host == meant, "requests go to the host that is shown");
  fuzz::require(part(wire.url, CURLUPART_SCHEME) == environment.baseURL.scheme().toLatin1(), "and by its scheme");
  return 0;
}
