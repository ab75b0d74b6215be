#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/models/setup/setupWords.h"

namespace orv {

/// What became of a project's last run, counted in inboxes.
struct SetupLastRun {
  QString id;
  QString createdAt;
  qint64 total = 0;
  qint64 connected = 0;
  qint64 failed = 0;
  qint64 running = 0;
  RunControl control;
  /// Something may still happen in it.
  bool isOpen() const { return !control.isTerminated() && (running > 0 || total == 0); }
  bool operator==(const SetupLastRun&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupLastRun, (), (id, createdAt, total, connected, failed, running, control))

/// A domain that was taken off its project.
struct SetupArchivedDomain {
  QString domain;
  QString reason;
  QString archivedAt;
  bool operator==(const SetupArchivedDomain&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupArchivedDomain, (), (domain, reason, archivedAt))

/// Domains, and the inboxes that are to be on them. A "template" on the wire; a roadmap's template is another thing.
struct SetupProject {
  using Record = SetupProject;

  QString id;
  qint64 number = 0;
  QString name;
  SetupMode mode;
  /// The user name of each domain's admin.
  QString admin;
  QString firstName;
  QString lastName;
  /// User names of the other two inboxes; without one, the service makes it of the name.
  std::optional<QString> user2;
  std::optional<QString> user3;
  QString senderName;
  QString signature;
  std::optional<qint64> dailyLimit;
  QList<QString> tags;
  std::optional<qint64> minWaitMinutes;
  QList<QString> domains;
  /// Whether the service keeps them; it never gives the secrets back.
  bool hasPhoto = false;
  bool hasPassword = false;
  bool hasNewPassword = false;
  bool hasRecovery = false;
  std::optional<QString> savedRecovery;
  qint64 version = 0;
  QString updatedAt;
  std::optional<QString> archivedAt;
  std::optional<SetupLastRun> lastRun;
  QList<SetupArchivedDomain> archivedDomains;
  bool operator==(const SetupProject&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupProject, (),
                      (id, number, name, mode, admin, firstName, lastName, user2, user3, senderName, signature,
                       dailyLimit, tags, minWaitMinutes, domains, hasPhoto, hasPassword, hasNewPassword, hasRecovery,
                       savedRecovery, version, updatedAt, archivedAt, lastRun, archivedDomains))

struct SetupProjectPage {
  QList<SetupProject> items;
  std::optional<qint64> archivedCount;
  bool operator==(const SetupProjectPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupProjectPage, (), (items, archivedCount))

}  // namespace orv
