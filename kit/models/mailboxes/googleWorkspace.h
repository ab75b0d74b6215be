#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// What the service has for reaching every inbox of a Google Workspace domain.
struct GoogleWorkspaceStatus {
  /// It holds the key of a service account.
  bool ready = false;
  /// What the admin authorises, and for what: pasted as they stand.
  std::optional<QString> clientId;
  std::optional<QString> serviceAccount;
  QString scope;
  QString adminUrl;
  bool canUpload = false;
  std::optional<QString> problem;
  bool operator==(const GoogleWorkspaceStatus&) const = default;
};
BOOST_DESCRIBE_STRUCT(GoogleWorkspaceStatus, (), (ready, clientId, serviceAccount, scope, adminUrl, canUpload, problem))

/// The admin's.
struct AddressBody {
  QString address;
  bool operator==(const AddressBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(AddressBody, (), (address))

struct AddressesBody {
  QList<QString> addresses;
  bool operator==(const AddressesBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(AddressesBody, (), (addresses))

/// The users of a domain, or why they cannot be read.
struct GoogleDirectory {
  std::optional<QString> code;
  std::optional<QString> message;
  QString domain;
  /// All of them, and those that are connected here already.
  QList<QString> addresses;
  QList<QString> existing;
  bool operator==(const GoogleDirectory&) const = default;
};
BOOST_DESCRIBE_STRUCT(GoogleDirectory, (), (code, message, domain, addresses, existing))

struct GoogleConnectResult {
  QString address;
  QString domain;
  QString status;
  std::optional<QString> code;
  QString message;
  std::optional<QString> mailboxId;
  bool operator==(const GoogleConnectResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(GoogleConnectResult, (), (address, domain, status, code, message, mailboxId))

struct GoogleConnectOutcome {
  QList<GoogleConnectResult> results;
  qint64 connected = 0;
  bool operator==(const GoogleConnectOutcome&) const = default;
};
BOOST_DESCRIBE_STRUCT(GoogleConnectOutcome, (), (results, connected))

/// With whom a single inbox can be connected by signing in there.
struct OAuthProviders {
  bool google = false;
  bool microsoft = false;
  bool operator==(const OAuthProviders&) const = default;
};
BOOST_DESCRIBE_STRUCT(OAuthProviders, (), (google, microsoft))

}  // namespace orv
