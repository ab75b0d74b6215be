#include "demo/LeadQuery.h"

#include <algorithm>

#include "kit/models/leads/leadSearch.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {

LeadCount countShown(qint64 count) {
  if (count <= countedExactly) return {count, true, u"count"_s};
  // Three figures of it.
  qint64 unit = 1;
  while (count / unit >= 1000) unit *= 10;
  return {(count + unit / 2) / unit * unit, false, u"estimate"_s};
}

LeadQuery::LeadQuery(const Call& call, const LeadFilterBody& filter)
    : m_leads(call.workspace->leads), m_matcher(filter), m_plan(m_leads.base->plan(filter)) {
  m_pool = filter.only.value_or(filter.list ? u"all"_s : u"new"_s);
  if (filter.list) {
    m_list = call.workspace->findList(*filter.list);
    m_isOfNothing = !m_list || m_list->record.archivedAt;
  }
  if (!filter.campaign) return;
  m_campaign.emplace();
  if (const DemoCampaign* campaign = call.workspace->find(*filter.campaign))
    for (const CampaignLead& lead : campaign->leads)
      if (const auto place = m_leads.placeOf(lead.id); place && !lead.removedAt) m_campaign->insert(*place);
}

LeadFilterBody LeadQuery::filterOf(const DemoRequest& request) {
  LeadSearch search;
  for (const QString& key : LeadSearch::keys()) search.set(key, request.value(key));
  if (const QString pool = request.value(u"only"_s); !pool.isEmpty()) search.only = pool;
  return filterBody(search);
}

bool LeadQuery::fits(LeadPlace lead) const {
  if (m_campaign && !m_campaign->contains(lead)) return false;
  return m_leads.isFromBase(lead) ? m_plan->fits(qint64(lead)) : LeadFacts(m_leads.at(lead)).fit(m_matcher);
}

bool LeadQuery::isInPool(LeadPlace lead) const {
  return m_pool == "all"_L1 || m_leads.has(lead) == (m_pool == "used"_L1);
}

void LeadQuery::eachOfAnyPool(std::optional<qint64> before,
                              const std::function<bool(LeadPlace lead, qint64 order)>& use) const {
  if (m_isOfNothing) return;
  if (m_list) {
    for (auto member = m_list->members.crbegin(); member != m_list->members.crend(); ++member)
      if ((!before || member->order < *before) && fits(member->lead) && !use(member->lead, member->order)) return;
    return;
  }
  for (qint64 order = std::min(before.value_or(qint64(m_leads.end())), qint64(m_leads.end())); order-- > 0;)
    if (fits(LeadPlace(order)) && !use(LeadPlace(order), order)) return;
}

void LeadQuery::each(std::optional<qint64> before, const std::function<bool(LeadPlace lead, qint64 order)>& use) const {
  eachOfAnyPool(before, [&](LeadPlace lead, qint64 order) { return !isInPool(lead) || use(lead, order); });
}

QList<LeadPlace> LeadQuery::first(qint64 limit) const {
  QList<LeadPlace> leads;
  if (limit > 0)
    each({}, [&](LeadPlace lead, qint64) {
      leads.append(lead);
      return leads.size() < limit;
    });
  return leads;
}

LeadQuery::Pools LeadQuery::pools() const {
  Pools pools;
  if (m_list || m_isOfNothing || m_campaign) {
    eachOfAnyPool({}, [&](LeadPlace lead, qint64) {
      ++pools.all;
      pools.used += m_leads.has(lead);
      return true;
    });
    return pools;
  }
  // What the database holds stays the same, page after page.
  qint64 own = 0;
  for (qint64 place = m_leads.base->size(); place < qint64(m_leads.end()); ++place) own += fits(LeadPlace(place));
  pools.all = m_plan->count() + own;
  pools.used = own + std::ranges::count_if(m_leads.unlocked(), [this](LeadPlace lead) { return fits(lead); });
  return pools;
}

}  // namespace orv::demo
