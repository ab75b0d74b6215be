#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/OpenWord.h"

namespace orv {

/// A member's role in a workspace, as the service names it.
struct Role : OpenWord {
  using OpenWord::OpenWord;
  bool isOwner() const { return is(QLatin1String("owner")); }
  bool isAdmin() const { return is(QLatin1String("admin")); }
  bool isMember() const { return is(QLatin1String("member")); }
  /// Client logins, viewers and roles that are not known may only read.
  bool mayWrite() const { return isOwner() || isAdmin() || isMember(); }
};

struct User {
  QString id;
  QString email;
  QString name;
  std::optional<QString> avatarUrl;
  std::optional<bool> isPlatformAdmin;
  bool operator==(const User&) const = default;
};
BOOST_DESCRIBE_STRUCT(User, (), (id, email, name, avatarUrl, isPlatformAdmin))

struct WorkspaceSummary {
  QString id;
  /// The workspace's address in request paths.
  QString slug;
  QString name;
  Role role;
  std::optional<QString> logoUrl;
  std::optional<QString> plan;
  bool operator==(const WorkspaceSummary&) const = default;
};
BOOST_DESCRIBE_STRUCT(WorkspaceSummary, (), (id, slug, name, role, logoUrl, plan))

/// Which ways of signing in the service offers.
struct AuthMethods {
  bool google = false;
  std::optional<bool> email;
  bool dev = false;
  std::optional<bool> password;
  bool operator==(const AuthMethods&) const = default;
};
BOOST_DESCRIBE_STRUCT(AuthMethods, (), (google, email, dev, password))

struct EmailCheck {
  /// An account exists for the address.
  bool account = false;
  /// It has a password.
  bool password = false;
  /// The service would create one.
  bool signUp = false;
  bool operator==(const EmailCheck&) const = default;
};
BOOST_DESCRIBE_STRUCT(EmailCheck, (), (account, password, signUp))

struct EmailStarted {
  std::optional<QString> purpose;
  /// Seconds until another code may be asked for.
  std::optional<qint64> retryIn;
  bool operator==(const EmailStarted&) const = default;
};
BOOST_DESCRIBE_STRUCT(EmailStarted, (), (purpose, retryIn))

/// What every way of signing in ends with.
struct NativeSession {
  QString token;
  QString expiresAt;
  User user;
  QList<WorkspaceSummary> workspaces;
  std::optional<QString> lastWorkspace;
  bool operator==(const NativeSession&) const = default;
};
BOOST_DESCRIBE_STRUCT(NativeSession, (), (token, expiresAt, user, workspaces, lastWorkspace))

struct MeResponse {
  /// Absent when the session is no longer known.
  std::optional<User> user;
  QList<WorkspaceSummary> workspaces;
  std::optional<QString> lastWorkspace;
  bool operator==(const MeResponse&) const = default;
};
BOOST_DESCRIBE_STRUCT(MeResponse, (), (user, workspaces, lastWorkspace))

struct UnreadCounts {
  struct Workspace {
    QString slug;
    QString name;
    qint64 unread = 0;
    qint64 others = 0;
    std::optional<QString> latestAt;
    bool operator==(const Workspace&) const = default;
  };
  qint64 total = 0;
  QList<Workspace> workspaces;
  bool operator==(const UnreadCounts&) const = default;
};
BOOST_DESCRIBE_STRUCT(UnreadCounts::Workspace, (), (slug, name, unread, others, latestAt))
BOOST_DESCRIBE_STRUCT(UnreadCounts, (), (total, workspaces))

/// This machine, so that the service can list the session.
struct Device {
  QString name;
  QString model;
  QString os;
  QString appVersion;
  bool operator==(const Device&) const = default;
};
BOOST_DESCRIBE_STRUCT(Device, (), (name, model, os, appVersion))

}  // namespace orv
