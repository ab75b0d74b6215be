#include "kit/api/APIClient.h"

#include <curl/curl.h>
#include <ifaddrs.h>
#include <net/if.h>

#include <QLoggingCategory>
#include <atomic>
#include <map>
#include <mutex>
#include <thread>

#include "kit/api/WireRequest.h"

namespace orv {

Q_DECLARE_LOGGING_CATEGORY(lcApi)

namespace {

using SteadyClock = std::chrono::steady_clock;

bool hasAddressBesidesLoopback() {
  ifaddrs* all = nullptr;
  if (getifaddrs(&all) != 0) return true;
  bool found = false;
  for (const ifaddrs* one = all; one && !found; one = one->ifa_next) {
    const bool isInternet =
        one->ifa_addr && (one->ifa_addr->sa_family == AF_INET || one->ifa_addr->sa_family == AF_INET6);
    found = isInternet && (one->ifa_flags & IFF_UP) && !(one->ifa_flags & IFF_LOOPBACK);
  }
  freeifaddrs(all);
  return found;
}

/// One request on the network thread.
class Transfer {
 public:
  Transfer(quint64 number, WireRequest wire, QString label, APIClient::Limits limits,
           std::shared_ptr<AnswerReceiver> receiver)
      : m_number(number),
        m_wire(std::move(wire)),
        m_label(std::move(label)),
        m_limits(limits),
        m_receiver(std::move(receiver)) {}
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;
  ~Transfer() {
    curl_easy_cleanup(m_easy);
    curl_slist_free_all(m_headers);
  }

  quint64 number() const { return m_number; }
  CURL* easy() const { return m_easy; }

  void begin(CURLM* multi) {
    m_started = m_lastByte = SteadyClock::now();
    m_easy = curl_easy_init();
    for (const QByteArray& line : m_wire.headers) m_headers = curl_slist_append(m_headers, line.constData());
    // An empty value takes out a header that the library would add by itself.
    m_headers = curl_slist_append(m_headers, "Expect:");
    configure();
    curl_multi_add_handle(multi, m_easy);
  }

  /// When the transfer has to be given up if nothing happens until then.
  SteadyClock::time_point deadline() const { return std::min(m_lastByte + m_limits.idle, m_started + m_limits.whole); }

  void end(CURLcode code) {
    if (SteadyClock::now() >= deadline() && code == CURLE_ABORTED_BY_CALLBACK) code = CURLE_OPERATION_TIMEDOUT;
    ExchangeResult result = resultOf(code);
    report(result, code);
    m_receiver->receive(std::move(result));
  }

 private:
  template <class T>
  void set(CURLoption option, T value) {
    curl_easy_setopt(m_easy, option, value);
  }

  void configure() {
    set(CURLOPT_PRIVATE, this);
    set(CURLOPT_URL, m_wire.url.constData());
    // An id that looks like ".." must not turn the request into one for something else.
    set(CURLOPT_PATH_AS_IS, 1L);
    set(CURLOPT_HTTPHEADER, m_headers);
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_FOLLOWLOCATION, 0L);
    set(CURLOPT_HTTP09_ALLOWED, 0L);
    set(CURLOPT_ACCEPT_ENCODING, "");
    set(CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_2TLS);
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_TCP_KEEPALIVE, 1L);
    set(CURLOPT_CONNECTTIMEOUT_MS, long(m_limits.idle.count()));
    // On a connection used before, the library repeats a request that the server closed unread; a change may be made
    // twice that way. A connection of its own is never repeated on.
    set(CURLOPT_FRESH_CONNECT, m_wire.changing ? 1L : 0L);
    set(CURLOPT_FORBID_REUSE, m_wire.changing ? 1L : 0L);
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
    set(CURLOPT_XFERINFOFUNCTION, &Transfer::watch);
    set(CURLOPT_XFERINFODATA, this);
    set(CURLOPT_NOPROGRESS, 0L);
  }

  static size_t takeBody(char* bytes, size_t, size_t count, void* self) {
    auto* transfer = static_cast<Transfer*>(self);
    if (transfer->m_answer.body.size() + qint64(count) > transfer->m_limits.answerBytes) {
      transfer->m_tooLong = true;
      return 0;
    }
    transfer->m_answer.body.append(bytes, qsizetype(count));
    return count;
  }

  static size_t takeHeader(char* bytes, size_t, size_t count, void* self) {
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

  static int watch(void* self, curl_off_t, curl_off_t down, curl_off_t, curl_off_t up) {
    auto* transfer = static_cast<Transfer*>(self);
    const auto now = SteadyClock::now();
    if (transfer->m_wire.sent) *transfer->m_wire.sent = up;
    if (std::exchange(transfer->m_bytes, down + up) != down + up) transfer->m_lastByte = now;
    return now >= transfer->deadline() ? 1 : 0;
  }

  ExchangeResult resultOf(CURLcode code) {
    if (m_tooLong) return TransportFailure::invalidResponse;
    switch (code) {
      case CURLE_OK: {
        // To the library, a head that breaks off after its first line is an answer without a body.
        if (!m_headIsWhole) return TransportFailure::offline;
        long status = 0;
        curl_easy_getinfo(m_easy, CURLINFO_RESPONSE_CODE, &status);
        m_answer.status = int(status);
        return std::move(m_answer);
      }
      case CURLE_GOT_NOTHING:
      case CURLE_SEND_ERROR:
      case CURLE_RECV_ERROR:
      case CURLE_PARTIAL_FILE:
      case CURLE_HTTP2:
      case CURLE_HTTP2_STREAM:
        return TransportFailure::offline;
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
        return hasAddressBesidesLoopback() ? TransportFailure::unreachable : TransportFailure::offline;
      case CURLE_COULDNT_CONNECT:
        return noRoute() ? TransportFailure::offline : TransportFailure::unreachable;
      default:
        return TransportFailure::unreachable;
    }
  }

  bool noRoute() const {
    long error = 0;
    curl_easy_getinfo(m_easy, CURLINFO_OS_ERRNO, &error);
    return error == ENETUNREACH || error == ENETDOWN;
  }

  void report(const ExchangeResult& result, CURLcode code) const {
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(SteadyClock::now() - m_started).count();
    if (const auto* answer = std::get_if<HTTPAnswer>(&result))
      qCInfo(lcApi, "%s: %d in %lld ms, request %s", qPrintable(m_label), answer->status, (long long)elapsed,
             qPrintable(answer->header("x-request-id").value_or(QStringLiteral("-"))));
    else
      qCInfo(lcApi, "%s: %s after %lld ms", qPrintable(m_label), curl_easy_strerror(code), (long long)elapsed);
  }

  quint64 m_number;
  WireRequest m_wire;
  QString m_label;
  APIClient::Limits m_limits;
  std::shared_ptr<AnswerReceiver> m_receiver;
  CURL* m_easy = nullptr;
  curl_slist* m_headers = nullptr;
  SteadyClock::time_point m_started, m_lastByte;
  curl_off_t m_bytes = 0;
  HTTPAnswer m_answer;
  bool m_headIsWhole = false;
  bool m_tooLong = false;
};

}  // namespace

/// The network thread and the two ways into it: begin and cancel.
class APIClient::Network {
 public:
  Network() {
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(ready)
    m_multi = curl_multi_init();
    m_thread = std::thread([this] { run(); });
  }
  Network(const Network&) = delete;
  Network& operator=(const Network&) = delete;
  ~Network() {
    m_stopping = true;
    curl_multi_wakeup(m_multi);
    m_thread.join();
    for (const auto& [number, transfer] : m_transfers) curl_multi_remove_handle(m_multi, transfer->easy());
    m_transfers.clear();
    curl_multi_cleanup(m_multi);
  }

  quint64 nextNumber() { return ++m_lastNumber; }

  void begin(std::unique_ptr<Transfer> transfer) {
    const std::lock_guard lock(m_mutex);
    m_arriving.push_back(std::move(transfer));
    curl_multi_wakeup(m_multi);
  }

  void cancel(quint64 number) {
    const std::lock_guard lock(m_mutex);
    m_leaving.push_back(number);
    curl_multi_wakeup(m_multi);
  }

 private:
  void run() {
    while (!m_stopping) {
      takeOrders();
      int running = 0;
      curl_multi_perform(m_multi, &running);
      finishTransfers();
      curl_multi_poll(m_multi, nullptr, 0, untilNextDeadline(), nullptr);
    }
  }

  void takeOrders() {
    std::vector<std::unique_ptr<Transfer>> arriving;
    std::vector<quint64> leaving;
    {
      const std::lock_guard lock(m_mutex);
      arriving.swap(m_arriving);
      leaving.swap(m_leaving);
    }
    for (auto& transfer : arriving) {
      const quint64 number = transfer->number();
      // Cancelled before it began: nothing of it must reach the wire.
      if (std::erase(leaving, number) > 0) continue;
      transfer->begin(m_multi);
      m_transfers.emplace(number, std::move(transfer));
    }
    for (const quint64 number : leaving) {
      const auto found = m_transfers.find(number);
      if (found == m_transfers.end()) continue;
      curl_multi_remove_handle(m_multi, found->second->easy());
      m_transfers.erase(found);
    }
  }

  void finishTransfers() {
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(m_multi, &left)) {
      if (message->msg != CURLMSG_DONE) continue;
      const CURLcode code = message->data.result;
      CURL* easy = message->easy_handle;
      Transfer* done = nullptr;
      curl_easy_getinfo(easy, CURLINFO_PRIVATE, &done);
      curl_multi_remove_handle(m_multi, easy);
      const auto transfer = m_transfers.extract(done->number());
      transfer.mapped()->end(code);
    }
  }

  int untilNextDeadline() const {
    auto next = SteadyClock::now() + std::chrono::seconds(1);
    for (const auto& [number, transfer] : m_transfers) next = std::min(next, transfer->deadline());
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(next - SteadyClock::now()).count();
    return int(std::max<qint64>(0, wait));
  }

  CURLM* m_multi = nullptr;
  std::thread m_thread;
  std::atomic<bool> m_stopping = false;
  std::atomic<quint64> m_lastNumber = 0;
  std::map<quint64, std::unique_ptr<Transfer>> m_transfers;
  std::mutex m_mutex;
  std::vector<std::unique_ptr<Transfer>> m_arriving;
  std::vector<quint64> m_leaving;
};

class APIClient::NetworkExchange final : public Exchange {
 public:
  NetworkExchange(std::weak_ptr<Network> network, quint64 number) : m_network(std::move(network)), m_number(number) {}
  ~NetworkExchange() override {
    if (const auto network = m_network.lock()) network->cancel(m_number);
  }

 private:
  std::weak_ptr<Network> m_network;
  quint64 m_number;
};

APIClient::APIClient(APIEnvironment environment, ClientIdentity identity, Limits limits)
    : m_environment(std::move(environment)),
      m_identity(std::move(identity)),
      m_limits(limits),
      m_network(std::make_shared<Network>()) {}

APIClient::APIClient() : APIClient(APIEnvironment::current(), ClientIdentity::current(), Limits()) {}

APIClient::~APIClient() = default;

std::unique_ptr<APITransport::Exchange> APIClient::exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) {
  const quint64 number = m_network->nextNumber();
  Limits limits = m_limits;
  limits.idle = std::min(limits.idle, call.request.timeout);
  m_network->begin(std::make_unique<Transfer>(number, wireRequest(call, m_environment, m_identity),
                                              call.request.label(), limits, std::move(receiver)));
  return std::make_unique<NetworkExchange>(m_network, number);
}

}  // namespace orv
