#include "app/campaigns/CampaignLeads.h"

#include "kit/api/Format.h"
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
      m_leads(*this, [this] { return readPage({}); }, {.failed = u"Couldn’t load the leads"_s}),
      m_pages([this](const QString& cursor) { return readPage(cursor); },
              [this](const LeadPage& page) { pageArrived(page); }, [this] { Q_EMIT changed(); }),
      m_adding(context, [this] { changedElsewhere(); }),
      m_move(context,
             [this](const QStringList& ids) {
               takeOut(ids);
               changedElsewhere();
             }),
      m_panel(context, [this](const CampaignLead& lead) {
        if (m_index.contains(lead.id)) m_index.append({lead});
        m_rows.update(m_index.matching(m_appliedQuery));
      }) {
  connect(&m_leads, &ResourceBase::changed, this, &CampaignLeads::changed);
  connect(&m_leads, &ResourceBase::valueChanged, this, &CampaignLeads::firstPageArrived);
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

QString CampaignLeads::question() const {
  return m_status + u'\n' + m_appliedQuery + (m_isArchive ? u"\narchive"_s : QString());
}

void CampaignLeads::showAll() {
  m_searchTask.cancel();
  m_query.clear();
  search();
  setLeadStatus({});
}

int CampaignLeads::totalCount() const {
  if (!m_pages.hasMore() && !m_asksAnew) return m_rows.count();
  const LeadPage* page = m_leads.value();
  if (!page || !page->counts || !m_appliedQuery.isEmpty()) return -1;
  qint64 total = 0;
  for (const auto& [word, count] : page->counts->asKeyValueRange())
    if (m_status.isEmpty() || word == m_status) total += count;
  return int(std::max<qint64>(total, m_rows.count()));
}

QVariantList CampaignLeads::statusCounts() const {
  const LeadPage* page = m_leads.value();
  auto counts = page && page->counts ? *page->counts : QMap<QString, qint64>();
  qint64 total = 0;
  for (const qint64 count : std::as_const(counts)) total += count;
  const auto option = [&](const QString& key, const QString& label, qint64 count) {
    const QString figure = page && page->counts ? u"  "_s + Format::grouped(count) : QString();
    return QVariantMap{{u"key"_s, key}, {u"label"_s, label + figure}};
  };
  QVariantList options{option({}, u"All leads"_s, total)};
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
  const LeadPage* page = m_leads.value();
  return page && page->archivedCount ? int(*page->archivedCount) : -1;
}

QString CampaignLeads::countText() const {
  if (!m_leads.value() || m_asksAnew) return {};
  if (!m_appliedQuery.trimmed().isEmpty())
    return Format::grouped(m_rows.count()) + u" of "_s + countedLeads(m_index.size()) +
           (canLoadMore() ? u" read so far"_s : u""_s);
  const bool isPart = canLoadMore() && totalCount() > m_rows.count();
  return isPart ? Format::grouped(m_rows.count()) + u" of "_s + countedLeads(totalCount())
                : countedLeads(m_rows.count());
}

void CampaignLeads::refresh() { m_leads.load(); }

void CampaignLeads::askAnew() {
  m_asksAnew = true;
  m_pages.cancel();
  clearSelection();
  m_leads.ask();
  Q_EMIT changed();
  Q_EMIT figuresChanged();
}

Task<LeadPage> CampaignLeads::readPage(std::optional<QString> cursor) {
  const auto status = m_status.isEmpty() ? std::nullopt : std::optional(LeadStatus(m_status));
  return m_context.api.send(Requests::listLeads(m_context.id, {pageSize, status, m_isArchive, cursor}));
}

void CampaignLeads::firstPageArrived() {
  const LeadPage& page = *m_leads.value();
  const qsizetype before = m_index.size();
  if (std::exchange(m_asksAnew, false)) {
    m_index.replace(page.items);
    m_rows.replace(m_index.matching(m_appliedQuery));
    m_pages.start(page.nextCursor);
  } else if (page.nextCursor && before > page.items.size()) {
    // The rows below stay where they are until they have been read again, too.
    m_index.append(page.items);
    m_rows.update(m_index.matching(m_appliedQuery));
    m_pages.startAgain(page, before, [this](const LeadPage& all) {
      takeAll(all);
      searchOn();
    });
  } else {
    takeAll(page);
    m_pages.start(page.nextCursor);
  }
  Q_EMIT figuresChanged();
  searchOn();
}

void CampaignLeads::pageArrived(const LeadPage& page) {
  const auto added = m_index.append(page.items);
  // Leads that moved between two pages come twice; a page may hold nothing else.
  if (qsizetype(added.size()) < page.items.size())
    m_rows.update(m_index.matching(m_appliedQuery));
  else
    m_rows.append(LeadIndex::matching(m_appliedQuery, added));
  searchOn();
}

void CampaignLeads::takeAll(const LeadPage& page) {
  m_index.replace(page.items);
  m_rows.update(m_index.matching(m_appliedQuery));
  pruneSelection();
}

void CampaignLeads::loadMore() {
  if (m_asksAnew) return;
  // After a second reading that failed there is no place to go on from.
  m_pages.failed() && !m_pages.hasMore() ? refresh() : m_pages.loadMore();
}

Task<void> CampaignLeads::searchLater() {
  co_await m_context.services.clock.sleep(searchDelay);
  search();
}

void CampaignLeads::search() {
  if (std::exchange(m_appliedQuery, m_query) == m_query) return;
  m_rows.replace(m_index.matching(m_appliedQuery));
  Q_EMIT changed();
  searchOn();
}

/// A search that shows little goes on in what has not been read yet.
void CampaignLeads::searchOn() {
  if (m_appliedQuery.trimmed().isEmpty() || !canLoadMore() || moreFailed()) return;
  if (m_rows.count() < searchShowsAtLeast) loadMore();
}

void CampaignLeads::toggle(const QString& id) {
  m_selection.toggle(id);
  Q_EMIT selectionChanged();
}

void CampaignLeads::extendTo(const QString& from, const QString& to) {
  QStringList visible;
  for (const LeadRow& row : m_rows.records()) visible.append(row.id);
  m_selection.extend(visible, from, to);
  Q_EMIT selectionChanged();
}

void CampaignLeads::toggleAll() {
  QStringList visible;
  for (const LeadRow& row : m_rows.records()) visible.append(row.id);
  m_selection.toggleAll(visible);
  Q_EMIT selectionChanged();
}

void CampaignLeads::clearSelection() {
  if (m_selection.isEmpty()) return;
  m_selection.clear();
  Q_EMIT selectionChanged();
}

void CampaignLeads::pruneSelection() {
  if (m_selection.isEmpty()) return;
  const auto before = m_selection.ids().size();
  m_selection.prune(m_index.ids());
  if (m_selection.ids().size() != before) Q_EMIT selectionChanged();
}

void CampaignLeads::close() {
  m_pages.cancel();
  m_searchTask.cancel();
  Store::close();
}

}  // namespace orv
