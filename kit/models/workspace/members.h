#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/session/records.h"

namespace orv {

struct Member {
  QString userId;
  QString email;
  std::optional<QString> name;
  std::optional<QString> avatarUrl;
  Role role;
  std::optional<QString> joinedAt;
  std::optional<QString> lastSignInAt;
  /// What the person reads.
  QString title() const { return name && !name->isEmpty() ? *name : email; }
  bool operator==(const Member&) const = default;
};
BOOST_DESCRIBE_STRUCT(Member, (), (userId, email, name, avatarUrl, role, joinedAt, lastSignInAt))

struct MemberPage {
  QList<Member> items;
  bool operator==(const MemberPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(MemberPage, (), (items))

/// Somebody who may join, but has not yet.
struct Invite {
  QString id;
  QString email;
  Role role;
  std::optional<QString> invitedBy;
  QString expiresAt;
  std::optional<QString> createdAt;
  bool operator==(const Invite&) const = default;
};
BOOST_DESCRIBE_STRUCT(Invite, (), (id, email, role, invitedBy, expiresAt, createdAt))

struct InvitePage {
  QList<Invite> items;
  bool operator==(const InvitePage&) const = default;
};
BOOST_DESCRIBE_STRUCT(InvitePage, (), (items))

struct RoleBody {
  Role role;
  bool operator==(const RoleBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(RoleBody, (), (role))

struct InviteBody {
  QString email;
  Role role;
  bool operator==(const InviteBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(InviteBody, (), (email, role))

}  // namespace orv
