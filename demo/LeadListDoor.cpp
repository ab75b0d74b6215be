#include "demo/LeadListDoor.h"

#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/leads.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {

std::optional<HTTPAnswer> LeadListDoor::answer(const DemoRequest& request, const QStringList& parts) const {
  const QString call = QString::fromLatin1(request.method) + u' ' + parts.join(u'/');
  if (call == "GET lead-lists"_L1) return lists(request.query.queryItemValue(u"archived"_s) == "1"_L1);
  if (call == "POST leads/own"_L1) return own(request);
  return std::nullopt;
}

HTTPAnswer LeadListDoor::lists(bool archived) const {
  LeadListPage page;
  // Nothing here deletes a list yet, so that none is archived.
  if (archived) return jsonAnswer(toJSON(page));
  const QString made = formatPlatformDate(m_context.now.addDays(-20));
  for (const DemoLeadList& list : std::as_const(m_context.workspace.lists)) {
    LeadList record{list.id, page.items.size() + 1, list.name, {}, list.people.size(), {}, made, made, {}};
    page.items.append(record);
  }
  return jsonAnswer(toJSON(page));
}

/// A workspace's own leads are those of its lists.
HTTPAnswer LeadListDoor::own(const DemoRequest& request) const {
  const auto body = bodyOf<OwnLeadsBody>(request);
  if (!body) return invalid(u"Say which leads."_s, u"leadIds"_s);
  OwnLeads own;
  for (const DemoLeadList& list : std::as_const(m_context.workspace.lists))
    for (const CampaignLead& lead : list.people)
      if (!body->leadIds || body->leadIds->contains(lead.id)) own.ids.append(lead.id);
  if (body->limit) own.ids.resize(std::clamp<qsizetype>(*body->limit, 0, own.ids.size()));
  return jsonAnswer(toJSON(own));
}

}  // namespace orv::demo
