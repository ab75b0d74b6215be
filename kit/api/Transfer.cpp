#include "kit/api/Transfer.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <sys/socket.h>

#include <QLoggingCategory>

#include "kit/api/wipe.h"

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

/// The library's own sockets stay open in programs that are started from here.
curl_socket_t openSocket(void*, curlsocktype, curl_sockaddr* address) {
  return ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

}  // namespace

Transfer::Transfer(quint64 number, WireRequest wire, QString label, APIClient::Limits limits,
                   std::shared_ptr<AnswerReceiver> receiver)
    : m_number(number),
      m_wire(std::move(wire)),
      m_label(std::move(label)),
      m_limits(limits),
      m_receiver(std::move(receiver)),
      m_intake(m_wire.answerAtMost, m_receiver->readsBody()) {}

Transfer::~Transfer() {
  curl_easy_cleanup(m_easy);
  curl_slist_free_all(m_headers);
  // It is sent once, and nobody reads it again.
  if (m_wire.secret && m_wire.body) wipe(*m_wire.body);
}

Transfer* Transfer::of(CURL* easy) {
  Transfer* transfer = nullptr;
  curl_easy_getinfo(easy, CURLINFO_PRIVATE, &transfer);
  return transfer;
}

void Transfer::begin(CURLM* multi, const Route& route) {
  m_started = m_lastByte = SteadyClock::now();
  m_meter = route.meter;
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

ExchangeResult Transfer::end(CURLcode code) {
  if (SteadyClock::now() >= deadline() && code == CURLE_ABORTED_BY_CALLBACK) code = CURLE_OPERATION_TIMEDOUT;
  ExchangeResult result = resultOf(code);
  report(result, code);
  return result;
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
  set(CURLOPT_WRITEFUNCTION, &Transfer::takeBody);
  set(CURLOPT_WRITEDATA, this);
  set(CURLOPT_HEADERFUNCTION, &Transfer::takeHeader);
  set(CURLOPT_HEADERDATA, this);
  set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
  set(CURLOPT_PREREQFUNCTION, &Transfer::goesOut);
  set(CURLOPT_PREREQDATA, this);
  set(CURLOPT_XFERINFOFUNCTION, &Transfer::watch);
  set(CURLOPT_XFERINFODATA, this);
  set(CURLOPT_NOPROGRESS, 0L);
}

void Transfer::configureConnection(const Route& route) {
  set(CURLOPT_HTTP_VERSION, m_limits.http2Unasked ? CURL_HTTP_VERSION_2_PRIOR_KNOWLEDGE : CURL_HTTP_VERSION_2TLS);
  set(CURLOPT_NOSIGNAL, 1L);
  // The machine's configuration may say less.
  set(CURLOPT_SSLVERSION, long(CURL_SSLVERSION_TLSv1_2));
  set(CURLOPT_PROXY_SSLVERSION, long(CURL_SSLVERSION_TLSv1_2));
  set(CURLOPT_SSL_VERIFYPEER, 1L);
  set(CURLOPT_SSL_VERIFYHOST, 2L);
  set(CURLOPT_TCP_KEEPALIVE, 1L);
  set(CURLOPT_OPENSOCKETFUNCTION, &openSocket);
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
  // Without TLS only this machine may read what is sent, so no proxy either.
  if (m_wire.staysHere)
    set(CURLOPT_PROXY, "");
  else if (route.proxy)
    set(CURLOPT_PROXY, route.proxy->constData());
}

size_t Transfer::takeBody(char* bytes, size_t, size_t count, void* self) {
  auto* transfer = static_cast<Transfer*>(self);
  curl_off_t received = 0;
  curl_easy_getinfo(transfer->m_easy, CURLINFO_SIZE_DOWNLOAD_T, &received);
  return transfer->m_intake.takeBody({bytes, qsizetype(count)}, received) ? count : 0;
}

size_t Transfer::takeHeader(char* bytes, size_t, size_t count, void* self) {
  auto* transfer = static_cast<Transfer*>(self);
  // The counts of watch() leave the head out.
  transfer->m_lastByte = SteadyClock::now();
  *transfer->m_meter += qint64(count);
  long status = 0;
  curl_easy_getinfo(transfer->m_easy, CURLINFO_RESPONSE_CODE, &status);
  return transfer->m_intake.takeHeader({bytes, qsizetype(count)}, int(status)) ? count : 0;
}

int Transfer::watch(void* self, curl_off_t, curl_off_t down, curl_off_t, curl_off_t up) {
  auto* transfer = static_cast<Transfer*>(self);
  const auto now = SteadyClock::now();
  if (transfer->m_wire.sent) *transfer->m_wire.sent = up;
  if (const curl_off_t before = std::exchange(transfer->m_bytes, down + up); before != down + up) {
    transfer->m_lastByte = now;
    *transfer->m_meter += down + up - before;
  }
  return now >= transfer->deadline() ? 1 : 0;
}

int Transfer::goesOut(void* self, char*, char*, int, int) {
  static_cast<Transfer*>(self)->m_sent = true;
  return CURL_PREREQFUNC_OK;
}

ExchangeResult Transfer::resultOf(CURLcode code) {
  if (m_intake.isTooMuch()) return TransportFailure::invalidResponse;
  if (m_intake.isEnough()) return m_intake.take();
  if (const auto failure = failureOf(code)) return NoAnswer(*failure, m_sent);
  return m_intake.take();
}

std::optional<TransportFailure> Transfer::failureOf(CURLcode code) const {
  switch (code) {
    case CURLE_OK:
      // To the library, a head that breaks off after its first line is an answer without a body.
      return m_intake.hasHead() ? std::nullopt : std::optional(TransportFailure::offline);
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
      return TransportFailure::invalidResponse;
    case CURLE_OUT_OF_MEMORY:
      // Also how the library calls a line of a head that is too long for it.
      return m_sent ? TransportFailure::invalidResponse : TransportFailure::unreachable;
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
