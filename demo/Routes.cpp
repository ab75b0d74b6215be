#include "demo/Routes.h"

#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

struct Pattern {
  QStringList parts;
  Route route;

  explicit Pattern(const Route& made) : route(made) {
    const QString whole = isAboutAccount() ? made.path : u"/api/v1/w/{slug}"_s + made.path;
    parts = whole.split(u'/').mid(1);
  }

  bool isAboutAccount() const { return route.path.startsWith("/api/v1/"_L1); }

  /// What stands in the places of {…}; nothing when the request is another one.
  std::optional<QStringList> match(const DemoRequest& request) const {
    if (request.method != route.method || request.parts.size() != parts.size()) return std::nullopt;
    QStringList ids;
    for (qsizetype at = 0; at < parts.size(); ++at) {
      const bool open = parts[at].startsWith(u'{');
      if (open ? request.parts[at].isEmpty() : parts[at] != request.parts[at]) return std::nullopt;
      if (open) ids.append(request.parts[at]);
    }
    return ids;
  }
};

}  // namespace

QList<Route> allRoutes() {
  return accountRoutes() + analyticsRoutes() + campaignRoutes() + sequenceRoutes() + campaignLeadRoutes() +
         leadListRoutes() + leadImportRoutes() + savedSearchRoutes() + leadUnlockRoutes() + leadSearchRoutes() +
         mailboxRoutes() + mailboxAddingRoutes() + mailboxBulkRoutes() + googleWorkspaceRoutes() +
         roadmapTemplateRoutes() + rampupRoutes() + deliverabilityRoutes() + inboxRoutes() + draftRoutes() +
         agentRoutes() + setupRoutes() + setupRunRoutes() + workspaceRoutes();
}

FoundRoute findRoute(const DemoRequest& request) {
  static const std::vector<Pattern> patterns = [] {
    const auto routes = allRoutes();
    return std::vector<Pattern>(routes.begin(), routes.end());
  }();
  for (const Pattern& pattern : patterns) {
    auto ids = pattern.match(request);
    if (!ids) continue;
    const QString slug = pattern.isAboutAccount() ? QString() : ids->takeFirst();
    return {&pattern.route, slug, *ids};
  }
  return {};
}

}  // namespace orv::demo
