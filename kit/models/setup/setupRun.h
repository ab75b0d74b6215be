#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/APITransport.h"
#include "kit/models/setup/setupWords.h"

namespace orv {

/// What the run was started with.
struct SetupRunSettings {
  QString admin;
  std::optional<QString> user2;
  std::optional<QString> user3;
  std::optional<QString> firstName;
  std::optional<QString> lastName;
  std::optional<QString> senderName;
  std::optional<QString> signature;
  std::optional<qint64> dailyLimit;
  std::optional<QList<QString>> tags;
  std::optional<qint64> minWaitMinutes;
  bool operator==(const SetupRunSettings&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupRunSettings, (),
                      (admin, user2, user3, firstName, lastName, senderName, signature, dailyLimit, tags,
                       minWaitMinutes))

struct SetupRunDomain {
  QString domain;
  QString admin;
  /// Where the admin lets the service in.
  std::optional<QString> authorizeUrl;
  bool operator==(const SetupRunDomain&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupRunDomain, (), (domain, admin, authorizeUrl))

/// One inbox of a run.
struct SetupRow {
  QString id;
  QString domain;
  InboxRole role;
  QString address;
  RowState state;
  /// Why it is as it is.
  std::optional<QString> message;
  std::optional<QString> mailboxId;
  std::optional<QString> step;
  QString updatedAt;
  /// Google locked the admin until then.
  std::optional<QString> lockedUntil;
  bool operator==(const SetupRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupRow, (),
                      (id, domain, role, address, state, message, mailboxId, step, updatedAt, lockedUntil))

struct SetupRun {
  QString id;
  SetupMode mode;
  /// The project's.
  std::optional<QString> templateId;
  QString createdAt;
  SetupRunSettings settings;
  QString scopes;
  QList<SetupRunDomain> domains;
  QList<SetupRow> rows;
  RunControl control;
  /// Nothing further happens in it by itself. Before its rows are made it has only begun.
  bool isOver() const;
  bool operator==(const SetupRun&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupRun, (), (id, mode, templateId, createdAt, settings, scopes, domains, rows, control))

/// A project's last run, or that it has none: no content and null say so as well.
struct LatestRun {
  std::optional<SetupRun> run;
  bool operator==(const LatestRun&) const = default;
};

namespace detail {
template <>
struct AnswerDecoder<LatestRun> {
  static LatestRun decode(const HTTPAnswer& answer);
};
}  // namespace detail

struct NewSetupRunBody {
  SetupMode mode;
  std::optional<QString> templateId;
  QList<QString> domains;
  QString admin;
  std::optional<QString> user2;
  std::optional<QString> user3;
  std::optional<QString> firstName;
  std::optional<QString> lastName;
  QString senderName;
  QString signature;
  std::optional<qint64> dailyLimit;
  QList<QString> tags;
  std::optional<qint64> minWaitMinutes;
  bool operator==(const NewSetupRunBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(NewSetupRunBody, (),
                      (mode, templateId, domains, admin, user2, user3, firstName, lastName, senderName, signature,
                       dailyLimit, tags, minWaitMinutes))

/// What Google and the mail servers say about a domain. What is absent is not known.
struct DomainChecks {
  struct Dns {
    std::optional<bool> mx;
    std::optional<bool> spf;
    std::optional<bool> dmarc;
    std::optional<bool> verified;
    std::optional<bool> dkim;
    bool operator==(const Dns&) const = default;
  };
  struct Inbox {
    QString address;
    InboxRole role;
    std::optional<bool> imap;
    std::optional<bool> photo;
    bool connected = false;
    bool operator==(const Inbox&) const = default;
  };
  QString domain;
  Dns dns;
  QList<Inbox> inboxes;
  bool operator==(const DomainChecks&) const = default;
};
BOOST_DESCRIBE_STRUCT(DomainChecks::Dns, (), (mx, spf, dmarc, verified, dkim))
BOOST_DESCRIBE_STRUCT(DomainChecks::Inbox, (), (address, role, imap, photo, connected))
BOOST_DESCRIBE_STRUCT(DomainChecks, (), (domain, dns, inboxes))

}  // namespace orv
