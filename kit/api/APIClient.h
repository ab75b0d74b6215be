#pragma once

#include <memory>

#include "kit/api/APIEnvironment.h"
#include "kit/api/APITransport.h"

namespace orv {

class NetworkChanges;

/// The network: one per process, with nothing in it but settings. May be called from any thread; answers are decoded on
/// the network thread, long ones beside it, and delivered where the call was made.
///
/// Nothing is sent to a service that APIEnvironment::isSafe() does not allow: calls fail as `unreachable`.
///
/// Every request is sent once, whatever happens to it: nothing is retried and no redirect is followed. Credentials are
/// an argument of the call; cookies and answers are not kept.
class APIClient final : public APITransport {
 public:
  struct Limits {
    /// Longest time without a byte, the wait for the first included. A request's own time-out may shorten it.
    std::chrono::milliseconds idle = std::chrono::seconds(25);
    std::chrono::milliseconds whole = std::chrono::seconds(90);
    /// How long an idle connection is kept for the next request.
    std::chrono::seconds kept = std::chrono::seconds(60);
    /// HTTP/2 from the first byte where no handshake agrees on it: for a test's server without TLS.
    bool http2Unasked = false;
    /// Without TLS to any host: for a test's server that has a name.
    bool plainAnywhere = false;
  };

  /// This process's environment and identity.
  APIClient();
  APIClient(APIEnvironment environment, ClientIdentity identity, Limits limits);
  APIClient(APIEnvironment environment, ClientIdentity identity, Limits limits,
            std::unique_ptr<NetworkChanges> changes);
  /// Closes what is in flight; nothing is delivered afterwards.
  ~APIClient() override;

  /// What requests go through from now on ("http://proxy.example:3128"); empty is the direct way. Without a value the
  /// environment's variables decide, and what "no_proxy" excepts goes the direct way in any case.
  void useProxy(std::optional<QByteArray> proxy);
  /// Lets requests wait for useProxy(), so that the first ones do not take a way that is closed.
  void holdForProxy(std::chrono::milliseconds atMost);

  const APIEnvironment& environment() const { return m_environment; }
  const ClientIdentity& identity() const { return m_identity; }

  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override;

 private:
  class Network;
  class NetworkExchange;

  APIEnvironment m_environment;
  ClientIdentity m_identity;
  Limits m_limits;
  std::shared_ptr<Network> m_network;
};

}  // namespace orv
