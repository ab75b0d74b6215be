#include "app/campaigns/CampaignLeads.h"

#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/campaigns/leadStatus.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {
namespace {

constexpr auto searchDelay = 250ms;
/// A search that shows fewer rows than fill a screen reads on.
constexpr int searchShowsAtLeast = 50;

constexpr const char* statusWords[] = {"queued",  "active",  "paused",       "completed",
                                       "replied", "bounced", "unsubscribed", "stopped"};

}  // namespace

CampaignLeads::CampaignLeads(CampaignContext& context)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_actions(context.workspace, m_busy, [this] { changedElsewhere(); }),
      m_leads(*this, [this](const PageRequest& page) { return readPage(page); },
              {.failed = u"Couldn’t load the leads"_s,
               .first = pageSize,
               .further = pageSize,
               .matches = [this](const LeadRow& row) { return row.prepared().holds(m_needle); }}),
      m_adding(context, [this] { readAgain(); }),
      m_move(context,
             [this](const QStringList& ids) {
               takeOut(ids);
               changedElsewhere();
             }),
      m_panel(context, [this](const CampaignLead& lead) { m_leads.put(lead); }) {
  connect(&m_leads, &ResourceBase::changed, this, &CampaignLeads::changed);
  connect(&m_leads, &ResourceBase::valueChanged, this, &CampaignLeads::leadsArrived);
  connect(&m_busy, &BusySet::changed, this, &CampaignLeads::busyChanged);
  connect(&m_bulk, &BusySet::changed, this, &CampaignLeads::changed);
}

void CampaignLeads::setLeadStatus(const QString& status) {
  if (std::exchange(m_status, status) != status) askAnew();
}

void CampaignLeads::setLeadsArchived(bool archived) {
  if (std::exchange(m_isArchive, archived) == archived) return;
  m_status.clear();
  askAnew();
}

void CampaignLeads::setLeadQuery(const QString& query) {
  if (std::exchange(m_query, query) == query) return;
  m_searchTask.start(searchLater());
  Q_EMIT changed();
}

void CampaignLeads::showAll() {
  m_searchTask.cancel();
  m_query.clear();
  search();
  setLeadStatus({});
}

int CampaignLeads::totalCount() const {
  const int shown = m_leads.shownCount();
  if (!m_leads.canLoadMore() && !m_leads.asksAnew()) return shown;
  const LeadPage* page = m_leads.head();
  if (!page || !page->counts || !m_appliedQuery.isEmpty()) return -1;
  qint64 total = 0;
  for (const auto& [word, count] : page->counts->asKeyValueRange())
    if (m_status.isEmpty() || word == m_status) total += count;
  return saturated(std::max<qint64>(total, shown));
}

QList<Choice> CampaignLeads::statusCounts() const {
  const LeadPage* page = m_leads.head();
  auto counts = page && page->counts ? *page->counts : QMap<QString, qint64>();
  qint64 total = 0;
  for (const qint64 count : std::as_const(counts)) total += count;
  const auto option = [&](const QString& key, const QString& label, qint64 count) {
    const QString figure = page && page->counts ? u"  "_s + Format::grouped(count) : QString();
    return Choice{.key = key, .label = label + figure};
  };
  QList<Choice> options{option({}, u"All leads"_s, total)};
  for (const char* known : statusWords) {
    const QString word = QString::fromLatin1(known);
    const qint64 count = counts.take(word);
    // A status that nobody is in is one line more to read; the one filtered by stays to be seen.
    if (count > 0 || word == m_status) options.append(option(word, LeadStatus(word).label(), count));
  }
  for (const auto& [word, count] : counts.asKeyValueRange()) options.append(option(word, word, count));
  return options;
}

int CampaignLeads::archivedCount() const {
  const LeadPage* page = m_leads.head();
  return page && page->archivedCount ? saturated(*page->archivedCount) : -1;
}

QString CampaignLeads::countText() const {
  if (m_leads.asksAnew()) return {};
  const int shown = m_leads.shownCount();
  if (!m_needle.isEmpty())
    return Format::grouped(shown) + u" of "_s + countedLeads(m_leads.readCount()) +
           (m_leads.canLoadMore() ? u" read so far"_s : u""_s);
  const bool isPart = m_leads.canLoadMore() && totalCount() > shown;
  return isPart ? Format::grouped(shown) + u" of "_s + countedLeads(totalCount()) : countedLeads(shown);
}

void CampaignLeads::askAnew() {
  m_selection.clear();
  m_leads.ask();
  Q_EMIT changed();
  Q_EMIT figuresChanged();
}

Task<LeadPage> CampaignLeads::readPage(PageRequest page) {
  const auto status = m_status.isEmpty() ? std::nullopt : std::optional(LeadStatus(m_status));
  return m_context.api.send(Requests::listLeads(m_context.id, {page.limit, status, m_isArchive, page.cursor}));
}

void CampaignLeads::leadsArrived() {
  m_selection.prune();
  Q_EMIT figuresChanged();
  searchOn();
}

Task<void> CampaignLeads::searchLater() {
  co_await m_context.services.clock.sleep(searchDelay);
  search();
}

void CampaignLeads::search() {
  if (std::exchange(m_appliedQuery, m_query) == m_query) return;
  m_needle = m_query.trimmed().toLower();
  m_leads.arrange();
  searchOn();
}

/// A search that shows little goes on in what has not been read yet.
void CampaignLeads::searchOn() {
  if (m_needle.isEmpty() || !m_leads.canLoadMore() || m_leads.moreFailed()) return;
  if (m_leads.shownCount() < searchShowsAtLeast) m_leads.loadMore();
}

void CampaignLeads::close() {
  m_searchTask.cancel();
  Store::close();
}

}  // namespace orv
