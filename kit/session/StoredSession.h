#pragma once

#include <QDateTime>
#include <QDebug>

#include "kit/session/records.h"

namespace orv {

/// The signed-in state, as it is kept in the keychain between starts.
struct StoredSession {
  QString token;
  /// When this client obtained the token.
  QDateTime issuedAt;
  /// When the service stops accepting it.
  QDateTime expiresAt;
  User user;
  /// The workspaces the person may open, in the service's order.
  QList<WorkspaceSummary> workspaces;
  /// The workspace last open.
  std::optional<QString> currentSlug;
  bool operator==(const StoredSession&) const = default;

  /// What to keep of a sign-in that was answered at `now`.
  static StoredSession from(const NativeSession& session, const QDateTime& now);

  /// An expired session is never used to call the service.
  bool isExpired(const QDateTime& now) const { return now >= expiresAt; }
  /// For logs: never shows the token.
  QString description() const;
};
BOOST_DESCRIBE_STRUCT(StoredSession, (), (token, issuedAt, expiresAt, user, workspaces, currentSlug))

QDebug operator<<(QDebug debug, const StoredSession& session);

}  // namespace orv
