#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/Clearable.h"
#include "kit/api/JSONValue.h"
#include "kit/models/setup/setupWords.h"

namespace orv {

struct NewSetupProjectBody {
  QString name;
  SetupMode mode;
  bool operator==(const NewSetupProjectBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(NewSetupProjectBody, (), (name, mode))

/// Carries only what is set. It may hold secrets: whoever fills one in lets go of it as soon as the request is made.
struct SetupProjectPatch {
  std::optional<QString> name;
  std::optional<QString> admin;
  std::optional<QString> firstName;
  std::optional<QString> lastName;
  Clearable<QString> user2;
  Clearable<QString> user3;
  std::optional<QString> senderName;
  std::optional<QString> signature;
  Clearable<qint64> dailyLimit;
  std::optional<QList<QString>> tags;
  Clearable<qint64> minWaitMinutes;
  std::optional<QList<QString>> domains;
  Clearable<QString> password;
  Clearable<QString> newPassword;
  Clearable<QString> recoveryEmail;
  bool operator==(const SetupProjectPatch&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupProjectPatch, (),
                      (name, admin, firstName, lastName, user2, user3, senderName, signature, dailyLimit, tags,
                       minWaitMinutes, domains, password, newPassword, recoveryEmail))

struct SetupPhotoBody {
  /// "image/jpeg" or "image/png".
  QString type;
  /// In base64.
  QString data;
  bool operator==(const SetupPhotoBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupPhotoBody, (), (type, data))

struct SetupDomainBody {
  QString domain;
  bool operator==(const SetupDomainBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupDomainBody, (), (domain))

struct SetupDomainsBody {
  QList<QString> domains;
  bool operator==(const SetupDomainsBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupDomainsBody, (), (domains))

/// Who holds the domains that were asked about.
struct RegistrarLookup {
  /// By the registrar's name, a list of domains.
  QMap<QString, JSONValue> holders;
  /// The registrar by domain; domains that nobody holds are left out.
  QMap<QString, QString> byDomain() const;
  bool operator==(const RegistrarLookup&) const = default;
};
BOOST_DESCRIBE_STRUCT(RegistrarLookup, (), (holders))

}  // namespace orv
