#pragma once

#include <QUrl>
#include <optional>

namespace orv {

/// Where the service is: scheme, host and optional port. All request addresses are built from it.
struct APIEnvironment {
  QUrl baseURL;
  bool operator==(const APIEnvironment&) const = default;

  /// The first of the given addresses that has a host, else the production origin. "localhost:3000" has none. One that
  /// is not safe is taken all the same: what was set is then said, not exchanged for something else.
  static APIEnvironment resolve(const QStringList& candidates);
  /// Resolved once per process: the "ORV_API_BASE_URL" of the environment, then of the settings file, then the address
  /// fixed at build time.
  static const APIEnvironment& current();

  /// Host of the service's web application.
  static QString productionHost();
  bool isProduction() const { return baseURL.host() == productionHost(); }
  /// The base address as a web origin.
  QString origin() const;
  /// The same, when it is another than production's: credentials and what else is kept belong to one origin.
  std::optional<QString> otherOrigin() const;
  /// Encrypted, or this very machine. A plain address of another is anybody's on the way there.
  bool isSafe() const { return baseURL.scheme() == QLatin1String("https") || isPlainLoopback(); }
  bool isPlainLoopback() const;
};

/// How this build names itself to the service.
struct ClientIdentity {
  QString appVersion;
  QString build;
  /// Major and minor number of the operating system.
  QString osVersion;
  bool operator==(const ClientIdentity&) const = default;

  static const ClientIdentity& current();

  /// Values of X-Orvella-Client and User-Agent.
  QString clientHeader() const;
  QString userAgent() const;
  /// The operating system with its version, as sessions are listed.
  QString osName() const;
};

}  // namespace orv
