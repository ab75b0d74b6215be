#include "kit/api/APIClient.h"

#include <pthread.h>

#include <atomic>
#include <chrono>
#include <limits>
#include <map>
#include <mutex>
#include <thread>

#include "kit/api/NetworkChanges.h"
#include "kit/api/SideWork.h"
#include "kit/api/Transfer.h"

namespace orv {

using namespace std::chrono_literals;

namespace {

/// Keeps a service that sends a byte at a time from having a processor to itself: turns that bring next to nothing are
/// spaced out, so that more has come by the next.
class Pace {
 public:
  void turn() {
    if (m_isSlow) std::this_thread::sleep_for(pause);
    if (++m_turns < lookedAt) return;
    const auto now = Transfer::SteadyClock::now();
    m_isSlow = now - m_since < lookedAt * pause && bytes - m_before < lookedAt * worthATurn;
    m_turns = 0;
    m_since = now;
    m_before = bytes;
  }

  qint64 bytes = 0;

 private:
  static constexpr int lookedAt = 64;
  static constexpr qint64 worthATurn = 1024;
  static constexpr auto pause = std::chrono::milliseconds(1);

  int m_turns = 0;
  qint64 m_before = 0;
  Transfer::SteadyClock::time_point m_since;
  bool m_isSlow = false;
};

}  // namespace

/// The network thread and the ways into it.
class APIClient::Network {
 public:
  explicit Network(std::unique_ptr<NetworkChanges> changes) : m_changes(std::move(changes)) {
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(ready)
    m_multi = curl_multi_init();
    m_thread = std::thread([this] { run(); });
  }
  Network(const Network&) = delete;
  Network& operator=(const Network&) = delete;
  ~Network() {
    m_stopping = true;
    wake();
    m_thread.join();
    for (const auto& [number, transfer] : m_transfers) curl_multi_remove_handle(m_multi, transfer->easy());
    m_transfers.clear();
    curl_multi_cleanup(m_multi);
  }

  quint64 nextNumber() { return ++m_lastNumber; }

  void begin(std::unique_ptr<Transfer> transfer) {
    const std::lock_guard lock(m_mutex);
    m_orders.arriving.push_back(std::move(transfer));
    curl_multi_wakeup(m_multi);
  }

  void cancel(quint64 number) {
    const std::lock_guard lock(m_mutex);
    m_orders.leaving.push_back(number);
    curl_multi_wakeup(m_multi);
  }

  void useProxy(std::optional<QByteArray> proxy) {
    const std::lock_guard lock(m_mutex);
    m_proxy = std::move(proxy);
    m_heldUntil.reset();
    curl_multi_wakeup(m_multi);
  }

  void hold(std::chrono::milliseconds atMost) {
    const std::lock_guard lock(m_mutex);
    m_heldUntil = SteadyClock::now() + atMost;
  }

 private:
  using SteadyClock = Transfer::SteadyClock;

  struct Orders {
    std::vector<std::unique_ptr<Transfer>> arriving;
    std::vector<quint64> leaving;
  };

  void wake() {
    const std::lock_guard lock(m_mutex);
    curl_multi_wakeup(m_multi);
  }

  void run() {
    ::pthread_setname_np(::pthread_self(), "network");
    while (!m_stopping) {
      m_pace.turn();
      takeOrders();
      int running = 0;
      curl_multi_perform(m_multi, &running);
      finishTransfers();
      curl_multi_poll(m_multi, nullptr, 0, untilSomethingIsDue(), nullptr);
    }
  }

  void takeOrders() {
    Transfer::Route route;
    Orders orders;
    {
      const std::lock_guard lock(m_mutex);
      orders.leaving.swap(m_orders.leaving);
      if (!m_heldUntil || SteadyClock::now() >= *m_heldUntil) {
        m_heldUntil.reset();
        orders.arriving.swap(m_orders.arriving);
      }
      // Cancelled before it began: nothing of it must reach the wire.
      for (auto* waiting : {&orders.arriving, &m_orders.arriving})
        std::erase_if(*waiting, [&](const auto& each) { return std::erase(orders.leaving, each->number()) > 0; });
      route.proxy = m_proxy;
    }
    for (const quint64 number : orders.leaving) {
      const auto found = m_transfers.find(number);
      if (found == m_transfers.end()) continue;
      curl_multi_remove_handle(m_multi, found->second->easy());
      m_transfers.erase(found);
    }
    if (orders.arriving.empty()) return;
    route.fresh = keptConnectionsAreStale();
    route.meter = &m_pace.bytes;
    for (auto& transfer : orders.arriving) {
      transfer->begin(m_multi, route);
      m_transfers.emplace(transfer->number(), std::move(transfer));
    }
  }

  /// The library has no way to drop the connections it keeps but to drop all. As long as something is under way on
  /// one, new requests go beside them.
  bool keptConnectionsAreStale() {
    m_stale = m_changes->happened() || m_stale;
    if (!m_stale || !m_transfers.empty()) return m_stale;
    const std::lock_guard lock(m_mutex);
    curl_multi_cleanup(m_multi);
    m_multi = curl_multi_init();
    // What was ordered meanwhile has woken the one that is gone.
    curl_multi_wakeup(m_multi);
    m_stale = false;
    return false;
  }

  void finishTransfers() {
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(m_multi, &left)) {
      if (message->msg != CURLMSG_DONE) continue;
      const CURLcode code = message->data.result;
      CURL* easy = message->easy_handle;
      curl_multi_remove_handle(m_multi, easy);
      const auto transfer = m_transfers.extract(Transfer::of(easy)->number());
      deliver(transfer.mapped()->receiver(), transfer.mapped()->end(code));
    }
  }

  /// What takes long to decode would hold up everybody else's answers here.
  void deliver(const std::shared_ptr<AnswerReceiver>& receiver, ExchangeResult result) {
    const auto* answer = std::get_if<HTTPAnswer>(&result);
    if (!answer || answer->body.size() < decodedBeside) return receiver->receive(std::move(result));
    m_decoding.start([receiver, held = std::make_shared<ExchangeResult>(std::move(result))] {
      receiver->receive(std::move(*held));
    });
  }

  /// Milliseconds; without anything under way there is nothing to wake up for.
  int untilSomethingIsDue() {
    auto next = SteadyClock::time_point::max();
    for (const auto& [number, transfer] : m_transfers) next = std::min(next, transfer->deadline());
    {
      const std::lock_guard lock(m_mutex);
      if (m_heldUntil && !m_orders.arriving.empty()) next = std::min(next, *m_heldUntil);
    }
    if (next == SteadyClock::time_point::max()) return std::numeric_limits<int>::max();
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(next - SteadyClock::now()).count();
    return int(std::max<qint64>(0, wait));
  }

  static constexpr qsizetype decodedBeside = 256 << 10;

  const std::unique_ptr<NetworkChanges> m_changes;
  Pace m_pace;
  /// Replaced by the network thread only, under the lock.
  CURLM* m_multi = nullptr;
  std::thread m_thread;
  std::atomic<bool> m_stopping = false;
  std::atomic<quint64> m_lastNumber = 0;
  std::map<quint64, std::unique_ptr<Transfer>> m_transfers;
  bool m_stale = false;

  std::mutex m_mutex;
  Orders m_orders;
  std::optional<QByteArray> m_proxy;
  std::optional<SteadyClock::time_point> m_heldUntil;

  /// Ends first: nothing is delivered when the client is gone.
  SideWork m_decoding;
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

APIClient::APIClient(APIEnvironment environment, ClientIdentity identity, Limits limits,
                     std::unique_ptr<NetworkChanges> changes)
    : m_environment(std::move(environment)),
      m_identity(std::move(identity)),
      m_limits(limits),
      m_network(std::make_shared<Network>(std::move(changes))) {}

APIClient::APIClient(APIEnvironment environment, ClientIdentity identity, Limits limits)
    : APIClient(std::move(environment), std::move(identity), limits, std::make_unique<NetworkChanges>()) {}

APIClient::APIClient() : APIClient(APIEnvironment::current(), ClientIdentity::current(), Limits()) {}

APIClient::~APIClient() = default;

void APIClient::useProxy(std::optional<QByteArray> proxy) { m_network->useProxy(std::move(proxy)); }

void APIClient::holdForProxy(std::chrono::milliseconds atMost) { m_network->hold(atMost); }

std::unique_ptr<APITransport::Exchange> APIClient::exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) {
  if (!m_environment.isSafe() && !m_limits.plainAnywhere) {
    receiver->receive(NoAnswer(TransportFailure::unreachable, false));
    return nullptr;
  }
  const quint64 number = m_network->nextNumber();
  Limits limits = m_limits;
  limits.idle = std::min(limits.idle, call.request.timeout);
  m_network->begin(std::make_unique<Transfer>(number, wireRequest(call, m_environment, m_identity),
                                              call.request.label(), limits, std::move(receiver)));
  return std::make_unique<NetworkExchange>(m_network, number);
}

}  // namespace orv
