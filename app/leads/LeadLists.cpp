#include "app/leads/LeadLists.h"

#include "app/base/recordActions.h"
#include "app/leads/LeadWords.h"
#include "kit/api/Format.h"
#include "kit/models/leads/leadListRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString countedLists(qint64 count) { return Format::counted(count, u"list"_s, u"lists"_s); }

}  // namespace

LeadLists::LeadLists(WorkspaceContext& context, Store& whole, LeadActions& actions)
    : Store(context, &whole),
      m_actions(actions),
      m_list(*this, [this](const PageRequest&) { return readPage(false); },
             {.failed = u"Couldn’t load lists"_s, .whole = true}),
      m_archived(*this, [this](const PageRequest&) { return readPage(true); },
                 {.failed = u"Couldn’t load archived lists"_s, .whole = true, .isArchive = true}),
      m_imports(context, *this, [this](const QString& id) { return nameOf(id); }) {
  for (List* list : {&m_list, &m_archived}) {
    list->rows()->setClock(services().clock);
    connect(list, &ResourceBase::changed, this, &LeadLists::changed);
  }
  connect(&m_list, &ResourceBase::valueChanged, this, &LeadLists::foundChanged);
  connect(&m_list, &ResourceBase::valueChanged, &m_imports, &LeadImports::showNames);
  connect(actions.lists(), &LeadListActions::busyChanged, this, &LeadLists::busyChanged);
  connect(actions.importing(), &CsvImportForm::started, this, &LeadLists::wanted);
}

Task<WholeLeadLists> LeadLists::readPage(bool archived) {
  co_return WholeLeadLists{(co_await api().send(Requests::leadLists(archived))).items};
}

QStringList LeadLists::busyIds() const { return m_actions.lists()->busyIds(); }

int LeadLists::count() const { return m_list.head() ? m_list.readCount() : -1; }

int LeadLists::archivedCount() const { return m_archived.head() ? m_archived.readCount() : -1; }

QList<LeadList> LeadLists::all() const {
  QList<LeadList> lists;
  m_list.each([&lists](const LeadListRow& row) { lists.append(row.record()); });
  return lists;
}

QString LeadLists::nameOf(const QString& id) const {
  const LeadListRow* row = m_list.find(id);
  if (!row) row = m_archived.find(id);
  return row ? row->record().name : QString();
}

QString LeadLists::countText() const {
  if (!m_list.head()) return {};
  qint64 leads = 0;
  m_list.each([&leads](const LeadListRow& row) { leads += row.record().leadCount; });
  return countedLists(m_list.readCount()) + u" · "_s + LeadWords::counted(leads);
}

QString LeadLists::archivedCountText() const {
  if (!m_archived.head()) return {};
  return Format::counted(m_archived.readCount(), u"archived list"_s, u"archived lists"_s);
}

QString LeadLists::createHint() const { return canWrite() ? QString() : u"Only members can create lists."_s; }

void LeadLists::setShowArchived(bool shown) {
  if (std::exchange(m_showArchived, shown) == shown) return;
  if (shown) m_archived.ensureLoaded();
  Q_EMIT changed();
  Q_EMIT moved();
}

void LeadLists::sort(const QString& key, bool descending) {
  m_sort = sortBy(key, descending);
  m_list.setOrder(leadListOrder(m_sort));
  m_archived.setOrder(leadListOrder(m_sort));
  Q_EMIT changed();
}

void LeadLists::ensureLoaded() {
  Store::ensureLoaded();
  m_imports.ensureLoaded();
}

void LeadLists::refresh() {
  m_showArchived ? m_archived.load() : m_list.load();
  m_imports.refresh();
}

QList<FoundRecord> LeadLists::found() const {
  QList<FoundRecord> records;
  m_list.each([&records](const LeadListRow& row) {
    records.append({row.id, row.record().name, LeadWords::counted(row.record().leadCount)});
  });
  return records;
}

PagePlace LeadLists::where() const { return {.tab = m_showArchived ? u"archived"_s : QString()}; }

QList<PageAction> LeadLists::offered(const QString& record) {
  if (record.isEmpty()) return offeredOnPage();
  if (const LeadListRow* row = m_list.find(record)) return offeredLive(row->record());
  if (const LeadListRow* row = m_archived.find(record)) return m_actions.lists()->offeredFor(row->record());
  return {};
}

QList<PageAction> LeadLists::offeredOnPage() {
  return {newAction(u"New list"_s, createHint(), [this] { m_actions.lists()->beginCreate(); }),
          archiveAction(u"Archived lists"_s, m_showArchived,
                        [this] {
                          Q_EMIT wanted();
                          setShowArchived(true);
                        }),
          {.key = u"import"_s,
           .title = u"Import CSV"_s,
           .icon = u"document-import"_s,
           .writes = true,
           .inMenu = false,
           .anywhere = true,
           .run = [this] { m_actions.importing()->show(); }}};
}

QList<PageAction> LeadLists::offeredLive(const LeadList& list) {
  QList<PageAction> actions{{.key = u"open"_s,
                             .title = u"Open list"_s,
                             .icon = u"system-users"_s,
                             .anywhere = true,
                             .run = [this, id = list.id] { open(id); }},
                            {.key = u"campaign"_s,
                             .title = u"Add to campaign"_s,
                             .icon = u"mail-send"_s,
                             .writes = true,
                             .possible = list.leadCount > 0,
                             .run = [this, list] { m_actions.addToCampaign(wholeList(list)); }}};
  return actions + m_actions.lists()->offeredFor(list);
}

}  // namespace orv
