#pragma once

#include <algorithm>
#include <memory>
#include <optional>

#include "kit/api/APIClient.h"
#include "kit/models/campaigns/sequence.h"
#include "tests/support/WireServer.h"
#include "tests/support/await.h"

namespace orv::test {

inline const ClientIdentity identity{QStringLiteral("1.4.2"), QStringLiteral("318"), QStringLiteral("14.5")};
inline constexpr APIClient::Limits patient{.idle = std::chrono::seconds(20), .whole = std::chrono::seconds(40)};

inline Request<SpintaxOut> request(HTTPMethod method = HTTPMethod::get, const QString& path = QStringLiteral("/x")) {
  Request<SpintaxOut> result;
  result.method = method;
  result.path = path;
  return result;
}

/// A service on a bad day and its client.
struct Wire {
  explicit Wire(APIClient::Limits limits = patient, const QString& scheme = QStringLiteral("http")) {
    QUrl url = server.url();
    url.setScheme(scheme);
    client = std::make_unique<APIClient>(APIEnvironment{url}, identity, limits);
  }
  Task<SpintaxOut> send(Request<SpintaxOut> call) { return client->send(std::move(call)); }
  std::optional<APIError> errorOf(Request<SpintaxOut> call) {
    try {
      await(send(std::move(call)));
    } catch (const APIError& error) {
      return error;
    }
    return std::nullopt;
  }
  std::optional<APIError::Kind> failureOf(Request<SpintaxOut> call) {
    const auto error = errorOf(std::move(call));
    return error ? std::optional(error->kind()) : std::nullopt;
  }
  /// How often the service saw a request of this method.
  int seen(HTTPMethod method) const {
    return int(std::ranges::count_if(server.received(), [method](const auto& each) {
      return each.bytes.startsWith(token(method) + " /api/v1/w//x");
    }));
  }

  WireServer server;
  std::unique_ptr<APIClient> client;
};

}  // namespace orv::test
