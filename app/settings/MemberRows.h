#pragma once

#include <QDateTime>

#include "app/base/RowFields.h"
#include "app/base/TableModel.h"
#include "kit/models/workspace/members.h"

namespace orv {

/// A member in the table.
struct MemberRow {
  QString id;
  QString name;
  QString email;
  QString role;
  QString lastSignIn;
  bool isYou = false;
  bool operator==(const MemberRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(MemberRow, (), (id, name, email, role, lastSignIn, isYou))
ORV_DECLARE_ROW(MemberRow)

/// An invite that waits in the table.
struct InviteRow {
  QString id;
  QString email;
  QString role;
  QString expires;
  bool operator==(const InviteRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(InviteRow, (), (id, email, role, expires))
ORV_DECLARE_ROW(InviteRow)

std::vector<MemberRow> rowsOf(const QList<Member>& members, const QString& you, const QDateTime& now);
std::vector<InviteRow> rowsOf(const QList<Invite>& invites);

}  // namespace orv
