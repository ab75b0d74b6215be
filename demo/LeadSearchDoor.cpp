#include "demo/LeadQuery.h"
#include "demo/Leads.h"
#include "kit/models/campaigns/leadStatus.h"
#include "kit/models/leads/facets.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

HTTPAnswer search(Call& call) {
  settleLeads(call);
  const LeadFilterBody filter = LeadQuery::filterOf(call.request);
  const QString cursor = call.request.value(u"cursor"_s);
  bool isNumber = false;
  std::optional<qint64> before;
  if (!cursor.isEmpty()) before = cursor.toLongLong(&isNumber);
  if (before && !isNumber) return invalid(u"This page is gone. Load the leads again."_s, u"cursor"_s);

  const LeadQuery query(call, filter);
  LeadSearchPage page;
  qint64 last = 0;
  query.each(before, [&](LeadPlace lead, qint64 order) {
    if (page.items.size() == call.request.limit(mostLeadsPerPage)) {
      page.nextCursor = QString::number(last);
      return false;
    }
    page.items.append(call.workspace->leads.shown(lead));
    last = order;
    return true;
  });
  const auto [all, used] = query.pools();
  const QString pool = call.request.value(u"only"_s);
  page.count = countShown(pool == "all"_L1 ? all : pool == "used"_L1 ? used : all - used);
  return jsonAnswer(toJSON(page));
}

HTTPAnswer pools(Call& call) {
  settleLeads(call);
  const auto [all, used] = LeadQuery(call, LeadQuery::filterOf(call.request)).pools();
  return jsonAnswer(toJSON(LeadPools{countShown(all), countShown(all - used).value, countShown(used).value}));
}

/// Of the whole database and of what the workspace has itself; the filters do not count.
HTTPAnswer facets(Call& call) {
  settleLeads(call);
  const QString field = call.request.value(u"field"_s), database = call.request.value(u"source"_s),
                typed = call.request.value(u"q"_s).trimmed();
  if (!LeadBase::hasFacet(field)) return invalid(u"There are no values of this field."_s, u"field"_s);
  QHash<QString, qint64> counts = call.workspace->leads.base->tally(field, database);
  // What people write down is the same in any case, as it is to a search.
  QHash<QString, QString> written;
  for (auto value = counts.keyBegin(); value != counts.keyEnd(); ++value) written.insert(value->toLower(), *value);
  for (const LeadRecord& lead : call.workspace->leads.own()) {
    const LeadFacts facts(lead);
    if (database != "all"_L1 && facts.person.source != database) continue;
    for (const QString& value : facetValues(field, facts.company, facts.title, facts.person)) {
      if (value.isEmpty()) continue;
      QString& known = written[value.toLower()];
      if (known.isEmpty()) known = value;
      ++counts[known];
    }
  }
  FacetPage page;
  for (const auto& [value, count] : counts.asKeyValueRange())
    if (const QString label = facetLabel(field, value); label.contains(typed, Qt::CaseInsensitive))
      page.items.append({value, label, count});
  std::ranges::sort(page.items, [](const FacetPage::Item& a, const FacetPage::Item& b) {
    return a.n != b.n ? a.n > b.n : a.value < b.value;
  });
  page.items.resize(std::min<qsizetype>(page.items.size(), call.request.limit(mostFacets)));
  return jsonAnswer(toJSON(page));
}

HTTPAnswer totals(Call& call) {
  const LeadBase& base = *call.workspace->leads.base;
  LeadTotals totals{.all = base.size(), .refreshedAt = formatPlatformDate(call.now.date().startOfDay(Qt::UTC))};
  for (const QString& database : {u"linkedin"_s, u"instagram"_s})
    for (const qint64 count : base.tally(u"verification"_s, database)) totals.bySource[database] += count;
  return jsonAnswer(toJSON(totals));
}

LeadCampaignHistory historyOf(const DemoCampaign& campaign, const CampaignLead& lead) {
  LeadCampaignHistory history;
  history.id = campaign.record.id;
  history.name = campaign.record.name;
  history.campaignStatus = campaign.archivedAt ? CampaignStatus(u"archived"_s) : campaign.record.status;
  history.status = lead.status.isQueued() ? u"active"_s : lead.status.rawValue;
  history.currentStep = lead.currentStep.value_or(0);
  history.enrolledAt = lead.enrolledAt.value_or(QString());
  history.lastSentAt = lead.lastSentAt;
  history.repliedAt = lead.repliedAt;
  return history;
}

HTTPAnswer detail(Call& call) {
  settleLeads(call);
  const auto place = call.workspace->leads.placeOf(call.ids[0]);
  if (!place) return notFound(u"This lead is no longer there"_s);
  LeadRecord lead = call.workspace->leads.shown(*place);
  for (const DemoLeadList& list : std::as_const(call.workspace->lists))
    if (!list.record.archivedAt && list.has.contains(*place)) lead.lists.append({list.id(), list.record.name});
  for (const DemoCampaign& campaign : std::as_const(call.workspace->campaigns)) {
    const auto found = std::ranges::find(campaign.leads, lead.id, &CampaignLead::id);
    if (found != campaign.leads.end() && !found->removedAt) lead.campaigns.append(historyOf(campaign, *found));
  }
  return jsonAnswer(toJSON(lead));
}

}  // namespace

const QList<Route>& leadSearchRoutes() {
  static const QList<Route> routes{
      {"GET", u"/leads"_s, Access::readers, search},        {"GET", u"/leads/pools"_s, Access::readers, pools},
      {"GET", u"/leads/facets"_s, Access::readers, facets}, {"GET", u"/leads/totals"_s, Access::readers, totals},
      {"GET", u"/leads/{id}"_s, Access::readers, detail},
  };
  return routes;
}

}  // namespace orv::demo
