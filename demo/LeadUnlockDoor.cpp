#include "demo/Leads.h"
#include "kit/models/leads/ownLeads.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

HTTPAnswer usage(Call& call) {
  settleLeads(call);
  return jsonAnswer(toJSON(call.workspace->leads.usage(call.now.date())));
}

/// As many as the allowance has left, the first ones; what the workspace has already is told again and costs nothing.
HTTPAnswer unlock(Call& call) {
  settleLeads(call);
  const auto body = call.request.bodyAs<UnlockBody>();
  const auto target = body ? targetOf(call, body->leadIds, body->filter, body->limit) : std::nullopt;
  if (!target) return invalid(u"Say which leads to unlock."_s, u"leadIds"_s);
  WorkspaceLeads& leads = call.workspace->leads;
  const UnlockUsage before = leads.usage(call.now.date());
  const bool isAllKnown = std::ranges::all_of(*target, [&](LeadPlace lead) { return leads.has(lead); });
  if (before.left == 0 && !isAllKnown)
    return problemAnswer(402, u"unlock_limit_reached"_s,
                         before.credits.value_or(false) ? u"No credits left"_s : u"No unlocks left this month"_s);
  UnlockResult result;
  for (const LeadPlace place : *target) {
    if (!leads.has(place)) {
      if (result.unlocked == before.left) continue;
      leads.unlock(place);
      ++result.unlocked;
    }
    const LeadRecord lead = leads.at(place);
    result.items.append({lead.id, lead.email, lead.phone});
  }
  result.usage = leads.usage(call.now.date());
  return jsonAnswer(toJSON(result));
}

/// Which of them the workspace has. All it has, where nobody says which.
HTTPAnswer own(Call& call) {
  settleLeads(call);
  const auto body = call.request.bodyAs<OwnLeadsBody>();
  if (!body) return invalid(u"Say which leads."_s, u"leadIds"_s);
  LeadFilterBody filter = body->filter.value_or(LeadFilterBody());
  // The rest would be left out all the same, and is not to use the limit up.
  filter.only = u"used"_s;
  const auto target = targetOf(call, body->leadIds, body->leadIds ? std::nullopt : std::optional(filter), body->limit);
  if (!target) return invalid(u"A whole number from 1 to 100,000"_s, u"limit"_s);
  const WorkspaceLeads& leads = call.workspace->leads;
  OwnLeads own;
  for (const LeadPlace place : *target)
    if (leads.has(place)) own.ids.append(leads.at(place).id);
  return jsonAnswer(toJSON(own));
}

}  // namespace

const QList<Route>& leadUnlockRoutes() {
  static const QList<Route> routes{
      {"GET", u"/leads/unlocks"_s, Access::readers, usage},
      {"POST", u"/leads/unlock"_s, Access::members, unlock},
      // Asks which, and changes nothing.
      {"POST", u"/leads/own"_s, Access::readers, own},
  };
  return routes;
}

}  // namespace orv::demo
