#include "demo/Routes.h"
#include "kit/models/leads/leadList.h"
#include "kit/models/leads/ownLeads.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

HTTPAnswer lists(Call& call) {
  LeadListPage page;
  // Nothing here deletes a list yet, so that none is archived.
  if (call.request.isSet(u"archived"_s)) return jsonAnswer(toJSON(page));
  const QString made = formatPlatformDate(call.now.addDays(-20));
  for (const DemoLeadList& list : std::as_const(call.workspace->lists)) {
    LeadList record{list.id, page.items.size() + 1, list.name, {}, list.people.size(), {}, made, made, {}};
    page.items.append(record);
  }
  return jsonAnswer(toJSON(page));
}

/// A workspace's own leads are those of its lists.
HTTPAnswer own(Call& call) {
  const auto body = call.request.bodyAs<OwnLeadsBody>();
  if (!body) return invalid(u"Say which leads."_s, u"leadIds"_s);
  OwnLeads own;
  for (const DemoLeadList& list : std::as_const(call.workspace->lists))
    for (const CampaignLead& lead : list.people)
      if (!body->leadIds || body->leadIds->contains(lead.id)) own.ids.append(lead.id);
  if (body->limit) own.ids.resize(std::clamp<qsizetype>(*body->limit, 0, own.ids.size()));
  return jsonAnswer(toJSON(own));
}

}  // namespace

const QList<Route>& leadListRoutes() {
  static const QList<Route> routes{
      {"GET", u"/lead-lists"_s, Access::readers, lists},
      // Asks which, and changes nothing.
      {"POST", u"/leads/own"_s, Access::readers, own},
  };
  return routes;
}

}  // namespace orv::demo
