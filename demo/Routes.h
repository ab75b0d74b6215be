#pragma once

#include "demo/DemoRequest.h"
#include "demo/DemoState.h"
#include "kit/api/PlatformDate.h"

namespace orv::demo {

/// Who may call.
enum class Access {
  anybody,
  signedIn,
  /// Everybody in the workspace: viewers and client logins see everything.
  readers,
  /// Those who may also change things.
  members,
  /// Those who may also say who is in the workspace, and what it is called: owners and admins.
  managers,
  owners,
};

/// A request on its way to the function that answers it.
struct Call {
  const DemoRequest& request;
  DemoState& state;
  DemoRandom& random;
  QDateTime now;
  /// Whose session it is; empty for nobody's.
  QString email = {};
  /// Nothing in calls about the account.
  DemoWorkspace* workspace = nullptr;
  /// What stands in the places of the path's {…}, in their order.
  QStringList ids = {};

  QString stamp() const { return formatPlatformDate(now); }
};

struct Route {
  QByteArray method;
  /// Below the workspace, or whole from "/api/v1/" for calls about the account. {…} takes any one part.
  QString path;
  Access access;
  HTTPAnswer (*answer)(Call& call);
};

/// One table for each area, in the area's own file. A new area adds its table here and to allRoutes().
const QList<Route>& accountRoutes();
const QList<Route>& agentRoutes();
const QList<Route>& analyticsRoutes();
const QList<Route>& campaignLeadRoutes();
const QList<Route>& campaignRoutes();
const QList<Route>& deliverabilityRoutes();
const QList<Route>& draftRoutes();
const QList<Route>& inboxRoutes();
const QList<Route>& leadImportRoutes();
const QList<Route>& leadListRoutes();
const QList<Route>& leadSearchRoutes();
const QList<Route>& leadUnlockRoutes();
const QList<Route>& googleWorkspaceRoutes();
const QList<Route>& mailboxAddingRoutes();
const QList<Route>& mailboxBulkRoutes();
const QList<Route>& mailboxRoutes();
const QList<Route>& rampupRoutes();
const QList<Route>& roadmapTemplateRoutes();
const QList<Route>& savedSearchRoutes();
const QList<Route>& sequenceRoutes();
const QList<Route>& setupRoutes();
const QList<Route>& setupRunRoutes();
const QList<Route>& workspaceRoutes();
QList<Route> allRoutes();

struct FoundRoute {
  const Route* route = nullptr;
  /// Of the workspace, for calls about one.
  QString slug;
  QStringList ids;
};

/// The first route that takes the request, or none.
FoundRoute findRoute(const DemoRequest& request);

}  // namespace orv::demo
