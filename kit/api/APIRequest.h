#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <atomic>
#include <chrono>
#include <memory>
#include <optional>

namespace orv {

enum class HTTPMethod { get, post, put, patch, del };

/// The method as it stands on the wire.
QByteArray token(HTTPMethod method);

struct QueryItem {
  QString name;
  std::optional<QString> value;
  bool operator==(const QueryItem&) const = default;
};

/// One call to the service, before it has an address or a credential.
///
/// `path` is relative to the workspace root ("/campaigns"; "/" is the root itself) or absolute under "/api/v1/" for
/// account-level calls. Path segments that carry ids are already percent-encoded (see pathSegment()).
struct APIRequest {
  HTTPMethod method = HTTPMethod::get;
  QString path;
  QList<QueryItem> query;
  /// Encoded body; absent sends "{}" for POST, PUT and PATCH and nothing for GET and DELETE.
  std::optional<QByteArray> body;
  std::optional<QString> idempotencyKey;
  /// Version of the record that the caller last saw.
  std::optional<qint64> ifMatch;
  /// Longest time without a byte; the client's own idle limit applies as well.
  std::chrono::milliseconds timeout = std::chrono::seconds(60);
  /// A longer answer, as it is when it has been unpacked, is refused as `invalidResponse`.
  qint64 answerAtMost = 16LL << 20;
  /// Signs somebody in: the body is overwritten once it has gone out.
  bool secret = false;
  /// Where to count the bytes of the body that have gone out, for who shows how far a long one is. Written by another
  /// thread; no transport has to.
  std::shared_ptr<std::atomic<qint64>> sent;

  bool operator==(const APIRequest&) const = default;

  /// Whether the path names an account-level call.
  bool isAccountLevel() const;
  /// "PATCH /campaigns/c1", for the log: no query, no body.
  QString label() const;
};

/// A request that knows what its answer decodes into.
template <class R>
struct Request : APIRequest {
  using Result = R;
};

/// The result of calls whose answer carries nothing the caller reads.
struct Empty {
  bool operator==(const Empty&) const = default;
};

/// The result of calls that return a file.
struct RawData {
  QByteArray data;
  std::optional<QString> contentType;
  bool operator==(const RawData&) const = default;
};

/// A result with when the service gave it, by its own clock.
template <class R>
struct Dated {
  R value;
  std::optional<QDateTime> at;
  bool operator==(const Dated&) const = default;
};

/// `id` as one path segment. What is already percent-encoded ("%2F") stays as it is.
QString pathSegment(const QString& id);

/// A random UUID in lower-case text, new at every call.
QString freshIdempotencyKey();

}  // namespace orv
