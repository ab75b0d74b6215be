#include "app/leads/LeadFinder.h"

#include <QUrlQuery>

#include "app/base/CampaignAdding.h"
#include "app/leads/LeadLists.h"
#include "app/leads/LeadWords.h"
#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/leads/leadRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto poolKey = u"only"_s, inList = u"list"_s, inCampaign = u"campaign"_s;

/// A search as the way back keeps it.
QString written(const LeadSearch& search) {
  QUrlQuery query;
  for (const QueryItem& item : search.filterQuery())
    query.addQueryItem(item.name, QString::fromLatin1(QUrl::toPercentEncoding(item.value.value_or(QString()))));
  if (search.only) query.addQueryItem(poolKey, *search.only);
  return query.toString(QUrl::FullyEncoded);
}

LeadSearch read(const QString& text) {
  LeadSearch search;
  for (const auto& [key, value] : QUrlQuery(text).queryItems(QUrl::FullyEncoded)) {
    const QString decoded = QUrl::fromPercentEncoding(value.toLatin1());
    if (key == poolKey)
      search.only = decoded;
    else
      search.set(key, decoded);
  }
  return search;
}

int counted(const std::optional<qint64>& count) { return count ? saturated(*count) : -1; }

}  // namespace

LeadFinder::LeadFinder(WorkspaceContext& context, Store& whole, LeadActions& actions, LeadLists& lists)
    : Store(context, &whole),
      m_page(whole),
      m_lists(lists),
      m_campaigns(*this, [this] { return api().send(Requests::listCampaigns(false)); }, {.loadsByItself = false}),
      m_filters(context, *this, [this](const QString& key) { return records(key); }),
      m_results(context, *this, actions),
      m_saved(context, *this),
      m_columns(services().preferences),
      m_pools(*this, [this] { return api().send(Requests::leadPools(m_filters.search())); }, {.loadsByItself = false}),
      m_totals(*this, [this] { return api().send(Requests::leadTotals()); }) {
  connect(&m_filters, &LeadFilters::edited, this, &LeadFinder::searchEdited);
  connect(&m_results, &LeadResults::changed, this, &LeadFinder::changed);
  for (ResourceBase* resource : {static_cast<ResourceBase*>(&m_pools), static_cast<ResourceBase*>(&m_totals)})
    connect(resource, &ResourceBase::changed, this, &LeadFinder::changed);
  connect(&m_campaigns, &ResourceBase::valueChanged, &m_filters, &LeadFilters::recordsChanged);
  connect(lists.list(), &ResourceBase::valueChanged, &m_filters, &LeadFilters::recordsChanged);
  // What has been added would vanish from under the person's eyes; they find it gone when they come back.
  connect(&whole, &Store::left, this, [this] {
    if (std::exchange(m_hasMoved, false)) m_results.list()->markStale();
  });
  // Who unlocks a lead has it from then on.
  connect(actions.allowance(), &LeadAllowance::unlocked, this, &LeadFinder::countPools);
  Changes& changes = context.changes();
  changes.watch<Lead>(this, [this](const Change<Lead>& change) {
    if (change.kind == Change<Lead>::Kind::stale && change.acted) countPools();
  });
  changes.watch<ListedLeads>(this, [this](const Change<ListedLeads>& change) { leadsCame(inList, change.id); });
  changes.watch<AddedLeads>(this, [this](const Change<AddedLeads>& change) { leadsCame(inCampaign, change.id); });
  changes.watch<Campaign>(this, [this](const Change<Campaign>& change) {
    if (change.acted) m_campaigns.markStale();
  });
}

void LeadFinder::countPools() {
  // An answer may come when the person has gone already.
  if (m_page.isShown())
    m_hasMoved = true;
  else
    m_results.list()->markStale();
  if (m_pools.isAsked()) m_pools.load();
}

/// Leads have come to a list or a campaign, or left it; with no id, nobody knows which. A search within it finds others
/// now. Any other keeps its rows for as long as the page is shown.
void LeadFinder::leadsCame(const QString& key, const QString& id) {
  const LeadSearch& search = m_results.search();
  if (search.has(key) && (id.isEmpty() || search.value(key) == id)) m_results.list()->markStale();
  countPools();
}

void LeadFinder::searchEdited(bool typed) {
  m_isTyped = typed;
  m_columns.setDatabase(m_filters.database());
  m_later.cancel();
  if (typed) {
    m_results.expect();
    m_pools.cancel();
    m_later.start(askLater());
  } else {
    ask();
  }
  Q_EMIT changed();
  Q_EMIT moved();
}

Task<void> LeadFinder::askLater() {
  co_await services().clock.sleep(typingRest);
  ask();
}

void LeadFinder::ask() {
  m_results.ask(m_filters.search());
  m_pools.ask();
}

std::optional<QList<FacetPage::Item>> LeadFinder::records(const QString& key) {
  QList<FacetPage::Item> items;
  if (key == inCampaign) {
    if (!m_campaigns.refreshing()) m_campaigns.ensureLoaded();
    if (!m_campaigns.value()) return std::nullopt;
    for (const CampaignSummary& campaign : m_campaigns.value()->items)
      items.append({.value = campaign.id, .label = campaign.name, .n = campaign.leads});
    return items;
  }
  // Not while they are told of: those that are being read anew would be read again.
  if (m_lists.count() < 0) {
    m_lists.ensureFound();
    return std::nullopt;
  }
  for (const LeadList& list : m_lists.all()) items.append({.value = list.id, .label = list.name, .n = list.leadCount});
  return items;
}

QList<Choice> LeadFinder::pools() const {
  const LeadPools* known = m_pools.value();
  return {{.key = u"new"_s, .label = u"Net new"_s, .count = known ? counted(known->new_) : -1},
          {.key = u"used"_s, .label = u"Already used"_s, .count = known ? counted(known->used) : -1},
          {.key = u"all"_s, .label = u"All"_s}};
}

QString LeadFinder::totalText() const {
  if (!m_totals.value()) return {};
  const QString database = m_filters.database();
  const LeadTotals& totals = *m_totals.value();
  if (database == "all"_L1) return Format::compactCount(totals.all) + u" leads in all databases"_s;
  return Format::compactCount(totals.bySource.value(database)) + u" leads in "_s + LeadWords::database(database);
}

void LeadFinder::open(const QString& saved) {
  if (const auto values = m_saved.valuesOf(saved)) m_filters.setValues(*values);
}

void LeadFinder::ensureLoaded() {
  Store::ensureLoaded();
  m_saved.ensureLoaded();
  m_results.ensureLoaded();
  m_pools.ensureLoaded();
  if (m_campaigns.isAsked()) m_campaigns.ensureLoaded();
}

void LeadFinder::refresh() {
  m_results.refresh();
  m_pools.load();
  m_totals.load();
  if (m_campaigns.isAsked()) m_campaigns.load();
  m_saved.refresh();
}

PagePlace LeadFinder::where() const { return {.tab = {}, .value = written(m_filters.search()), .chosen = !m_isTyped}; }

void LeadFinder::goTo(const PagePlace& place) { m_filters.setSearch(read(place.value)); }

void LeadFinder::trim() { m_results.card()->trim(); }

QList<PageAction> LeadFinder::offered(const QString& record) {
  QList<PageAction> actions = m_results.actions(record);
  if (!record.isEmpty()) return actions;
  const bool hasTarget = m_results.hasTarget();
  const QString whyNot = u"Tick leads or set a filter first"_s;
  return actions + QList<PageAction>{
                       {.key = u"save-search"_s,
                        .title = u"Save this search…"_s,
                        .icon = u"bookmark-new"_s,
                        .writes = true,
                        .inMenu = false,
                        .run = [this] { save(); }},
                       {.key = u"clear-filters"_s,
                        .title = u"Clear filters"_s,
                        .icon = u"edit-clear"_s,
                        .possible = m_filters.any(),
                        .inMenu = false,
                        .run = [this] { m_filters.clear(); }},
                       {.key = u"add-to-list"_s,
                        .title = u"Add to list"_s,
                        .icon = u"list-add"_s,
                        .writes = true,
                        .possible = hasTarget,
                        .whyNot = whyNot,
                        .run = [this] { m_results.addToList(); }},
                       {.key = u"add-to-campaign"_s,
                        .title = u"Add to campaign"_s,
                        .icon = u"mail-send"_s,
                        .writes = true,
                        .possible = hasTarget,
                        .whyNot = whyNot,
                        .run = [this] { m_results.addToCampaign(); }},
                       {.key = u"unlock"_s,
                        .title = u"Unlock"_s,
                        .icon = u"object-unlocked"_s,
                        .writes = true,
                        .possible = hasTarget,
                        .whyNot = whyNot,
                        .run = [this] { m_results.unlock(); }},
                       {.key = u"fold-filters"_s,
                        .title = m_filters.folded() ? u"Expand filters"_s : u"Collapse filters"_s,
                        .icon = u"sidebar-collapse-left"_s,
                        .inMenu = false,
                        .run = [this] { m_filters.setFolded(!m_filters.folded()); }},
                   };
}

}  // namespace orv
