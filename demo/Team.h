#pragma once

#include <QDate>
#include <QList>
#include <QMap>
#include <QString>

#include "kit/models/workspace/members.h"

namespace orv::demo {

struct DemoState;
struct DemoWorkspace;

/// What a workspace is set to, and who is about to join it.
struct DemoTeam {
  qint64 opportunityValue = 2'400;
  bool unsubscribesToBlocklist = true;
  /// Of the workspace's settings.
  qint64 version = 1;
  QList<Invite> invites;
  /// By email; who is not among them has never signed in.
  QMap<QString, QString> lastSignIns;
};

/// Colleagues and invites of the first workspace, and the accounts that they sign in to.
void addTeam(DemoState& state, DemoWorkspace& workspace, const QDate& today);

}  // namespace orv::demo
