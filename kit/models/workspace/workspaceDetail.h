#pragma once

#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/session/records.h"

namespace orv {

struct WorkspaceDetail {
  QString id;
  /// To be quoted to support.
  std::optional<QString> publicId;
  /// The web app's link to it.
  QString slug;
  QString name;
  std::optional<QString> logoUrl;
  QString timeZone;
  std::optional<QString> plan;
  /// The signed-in person's.
  Role role;
  /// US dollars.
  std::optional<qint64> opportunityValue;
  std::optional<qint64> version;
  std::optional<bool> canDelete;
  std::optional<bool> unsubscribesToBlocklist;
  bool operator==(const WorkspaceDetail&) const = default;
};
BOOST_DESCRIBE_STRUCT(WorkspaceDetail, (),
                      (id, publicId, slug, name, logoUrl, timeZone, plan, role, opportunityValue, version, canDelete,
                       unsubscribesToBlocklist))

/// Carries only what is set; nothing of it can be taken away.
struct WorkspacePatch {
  std::optional<QString> name;
  std::optional<QString> timeZone;
  std::optional<qint64> opportunityValue;
  std::optional<bool> unsubscribesToBlocklist;
  bool operator==(const WorkspacePatch&) const = default;
};
BOOST_DESCRIBE_STRUCT(WorkspacePatch, (), (name, timeZone, opportunityValue, unsubscribesToBlocklist))

/// The word without which no workspace is deleted.
struct DeletionBody {
  QString confirm;
  bool operator==(const DeletionBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeletionBody, (), (confirm))

/// Makes a workspace for a client of the agency's, and invites them into it.
struct ClientWorkspaceBody {
  /// The client's.
  QString name;
  QString email;
  /// What the new workspace is called.
  QString workspace;
  bool operator==(const ClientWorkspaceBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(ClientWorkspaceBody, (), (name, email, workspace))

struct ClientWorkspace {
  QString id;
  std::optional<QString> slug;
  std::optional<QString> name;
  bool operator==(const ClientWorkspace&) const = default;
};
BOOST_DESCRIBE_STRUCT(ClientWorkspace, (), (id, slug, name))

}  // namespace orv
