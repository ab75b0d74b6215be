#include "kit/api/Transfer.h"

#include <ifaddrs.h>
#include <net/if.h>

#include <QLoggingCategory>

namespace orv {

Q_DECLARE_LOGGING_CATEGORY(lcApi)

namespace {

bool hasAddressBesidesLoopback() {
  ifaddrs* all = nullptr;
  if (getifaddrs(&all) != 0) return true;
  bool found = false;
  for (const ifaddrs* one = all; one && !found; one = one->ifa_next) {
    const bool isInternet =
        one->ifa_addr && (one->ifa_addr->sa_family == AF_INET || one->ifa_addr->sa_family == AF_INET6);
    // A bridge that nothing is plugged into is up, and keeps its address; it does not run.
    found = isInternet && (one->ifa_flags & IFF_RUNNING) && !(one->ifa_flags & IFF_LOOPBACK);
  }
  freeifaddrs(all);
  return found;
}

}  // namespace

Transfer::Transfer(quint64 number, WireRequest wire, QString label, APIClient::Limits limits,
                   std::shared_ptr<AnswerReceiver> receiver)
    : m_number(number),
      m_wire(std::move(wire)),
      m_label(std::move(label)),
      m_limits(limits),
      m_receiver(std::move(receiver)) {}

Transfer::~Transfer() {
  curl_easy_cleanup(m_easy);
  curl_slist_free_all(m_headers);
}

Transfer* Transfer::of(CURL* easy) {
  Transfer* transfer = nullptr;
  curl_easy_getinfo(easy, CURLINFO_PRIVATE, &transfer);
  return transfer;
}

void Transfer::begin(CURLM* multi, const Route& route) {
  m_started = m_lastByte = SteadyClock::now();
  m_easy = curl_easy_init();
  for (const QByteArray& line : m_wire.headers) m_headers = curl_slist_append(m_headers, line.constData());
  // An empty value takes out a header that the library would add by itself.
  m_headers = curl_slist_append(m_headers, "Expect:");
  configure();
  configureConnection(route);
  curl_multi_add_handle(multi, m_easy);
}

Transfer::SteadyClock::time_point Transfer::deadline() const {
  return std::min(m_lastByte + m_limits.idle, m_started + m_limits.whole);
}

void Transfer::end(CURLcode code) {
  if (SteadyClock::now() >= deadline() && code == CURLE_ABORTED_BY_CALLBACK) code = CURLE_OPERATION_TIMEDOUT;
  ExchangeResult result = resultOf(code);
  report(result, code);
  m_receiver->receive(std::move(result));
}

void Transfer::configure() {
  set(CURLOPT_PRIVATE, this);
  set(CURLOPT_URL, m_wire.url.constData());
  // An id that looks like ".." must not turn the request into one for something else.
  set(CURLOPT_PATH_AS_IS, 1L);
  set(CURLOPT_HTTPHEADER, m_headers);
  set(CURLOPT_PROTOCOLS_STR, "http,https");
  set(CURLOPT_FOLLOWLOCATION, 0L);
  set(CURLOPT_HTTP09_ALLOWED, 0L);
  set(CURLOPT_ACCEPT_ENCODING, "");
  set(CURLOPT_CUSTOMREQUEST, m_wire.method.constData());
  if (m_wire.body) {
    set(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(m_wire.body->size()));
    set(CURLOPT_POSTFIELDS, m_wire.body->constData());
  }
  set(CURLOPT_MAXFILESIZE_LARGE, curl_off_t(m_limits.answerBytes));
  set(CURLOPT_WRITEFUNCTION, &Transfer::takeBody);
  set(CURLOPT_WRITEDATA, this);
  set(CURLOPT_HEADERFUNCTION, &Transfer::takeHeader);
  set(CURLOPT_HEADERDATA, this);
  set(CURLOPT_PREREQFUNCTION, &Transfer::goesOut);
  set(CURLOPT_PREREQDATA, this);
  set(CURLOPT_XFERINFOFUNCTION, &Transfer::watch);
  set(CURLOPT_XFERINFODATA, this);
  set(CURLOPT_NOPROGRESS, 0L);
}

void Transfer::configureConnection(const Route& route) {
  set(CURLOPT_HTTP_VERSION, m_limits.http2Unasked ? CURL_HTTP_VERSION_2_PRIOR_KNOWLEDGE : CURL_HTTP_VERSION_2TLS);
  set(CURLOPT_NOSIGNAL, 1L);
  set(CURLOPT_TCP_KEEPALIVE, 1L);
  set(CURLOPT_CONNECTTIMEOUT_MS, long(m_limits.idle.count()));
  // A look-up runs on a thread of the library's that nothing can end before the resolver answers; without this, giving
  // the request up waits for that thread, and all other requests with it.
  set(CURLOPT_QUICK_EXIT, 1L);
  // On a connection used before, the library repeats a request that the server closed unread; a change may be made
  // twice that way. A connection of its own is never repeated on.
  const bool fresh = m_wire.changing || route.fresh;
  set(CURLOPT_FRESH_CONNECT, fresh ? 1L : 0L);
  set(CURLOPT_FORBID_REUSE, fresh ? 1L : 0L);
  // The library counts whole seconds, and keeps a connection until there are more of them.
  set(CURLOPT_MAXAGE_CONN, std::max(1L, long(m_limits.kept.count()) - 1));
  if (route.proxy) set(CURLOPT_PROXY, route.proxy->constData());
}

size_t Transfer::takeBody(char* bytes, size_t, size_t count, void* self) {
  auto* transfer = static_cast<Transfer*>(self);
  if (transfer->m_answer.body.size() + qint64(count) > transfer->m_limits.answerBytes) {
    transfer->m_tooLong = true;
    return 0;
  }
  transfer->m_answer.body.append(bytes, qsizetype(count));
  return count;
}

size_t Transfer::takeHeader(char* bytes, size_t, size_t count, void* self) {
  auto* transfer = static_cast<Transfer*>(self);
  // The counts of watch() leave the head out.
  transfer->m_lastByte = SteadyClock::now();
  const QByteArrayView line = QByteArrayView(bytes, qsizetype(count)).trimmed();
  // Interim answers and a proxy's own come before the one that counts.
  if (line.startsWith("HTTP/")) {
    transfer->m_answer.headers.clear();
    transfer->m_headIsWhole = false;
  }
  if (line.isEmpty()) transfer->m_headIsWhole = true;
  if (const auto colon = line.indexOf(':'); colon > 0)
    transfer->m_answer.headers.append(
        {line.first(colon).trimmed().toByteArray(), line.sliced(colon + 1).trimmed().toByteArray()});
  return count;
}

int Transfer::watch(void* self, curl_off_t, curl_off_t down, curl_off_t, curl_off_t up) {
  auto* transfer = static_cast<Transfer*>(self);
  const auto now = SteadyClock::now();
  if (transfer->m_wire.sent) *transfer->m_wire.sent = up;
  if (std::exchange(transfer->m_bytes, down + up) != down + up) transfer->m_lastByte = now;
  return now >= transfer->deadline() ? 1 : 0;
}

int Transfer::goesOut(void* self, char*, char*, int, int) {
  static_cast<Transfer*>(self)->m_sent = true;
  return CURL_PREREQFUNC_OK;
}

ExchangeResult Transfer::resultOf(CURLcode code) {
  if (m_tooLong) return TransportFailure::invalidResponse;
  if (const auto failure = failureOf(code)) return NoAnswer(*failure, m_sent);
  long status = 0;
  curl_easy_getinfo(m_easy, CURLINFO_RESPONSE_CODE, &status);
  m_answer.status = int(status);
  return std::move(m_answer);
}

std::optional<TransportFailure> Transfer::failureOf(CURLcode code) const {
  switch (code) {
    case CURLE_OK:
      // To the library, a head that breaks off after its first line is an answer without a body.
      return m_headIsWhole ? std::nullopt : std::optional(TransportFailure::offline);
    case CURLE_GOT_NOTHING:
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
    case CURLE_PARTIAL_FILE:
      // Before the request has gone out, it is a proxy that broke off or refused.
      return m_sent ? TransportFailure::offline : TransportFailure::unreachable;
    case CURLE_OPERATION_TIMEDOUT:
      return TransportFailure::timedOut;
    case CURLE_ABORTED_BY_CALLBACK:
      return TransportFailure::cancelled;
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_WEIRD_SERVER_REPLY:
    case CURLE_BAD_CONTENT_ENCODING:
    case CURLE_FILESIZE_EXCEEDED:
      return TransportFailure::invalidResponse;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
      return hasAddressBesidesLoopback() ? TransportFailure::unreachable : TransportFailure::offline;
    case CURLE_COULDNT_CONNECT:
      return noRoute() ? TransportFailure::offline : TransportFailure::unreachable;
    default:
      return TransportFailure::unreachable;
  }
}

bool Transfer::noRoute() const {
  long error = 0;
  curl_easy_getinfo(m_easy, CURLINFO_OS_ERRNO, &error);
  return error == ENETUNREACH || error == ENETDOWN;
}

void Transfer::report(const ExchangeResult& result, CURLcode code) const {
  const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(SteadyClock::now() - m_started).count();
  if (const auto* answer = std::get_if<HTTPAnswer>(&result))
    qCInfo(lcApi, "%s: %d in %lld ms, request %s", qPrintable(m_label), answer->status, (long long)elapsed,
           qPrintable(answer->header("x-request-id").value_or(QStringLiteral("-"))));
  else
    qCInfo(lcApi, "%s: %s after %lld ms", qPrintable(m_label), curl_easy_strerror(code), (long long)elapsed);
}

}  // namespace orv
