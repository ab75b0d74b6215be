#include "app/leads/LeadListStore.h"

#include <QUrl>

#include "app/leads/LeadWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

LeadListStore::LeadListStore(const QString& id, WorkspaceContext& context, LeadActions& actions, LeadLists& lists)
    : Store(context), m_id(id), m_actions(actions), m_lists(lists), m_results(context, *this, actions) {
  connect(&lists, &LeadLists::changed, this, &LeadListStore::changed);
  connect(lists.list(), &ResourceBase::valueChanged, this, &LeadListStore::changed);
  connect(actions.lists(), &LeadListActions::busyChanged, this, &LeadListStore::changed);
  connect(actions.lists(), &LeadListActions::leadsRemoved, this, &LeadListStore::takeOut);
  context.changes().watch<LeadList>(this, [this](const Change<LeadList>& change) { follow(change); });
  context.changes().watch<ListedLeads>(this, [this](const Change<ListedLeads>& change) {
    if (change.id.isEmpty() || change.id == m_id) m_results.list()->markStale();
  });
}

const LeadList* LeadListStore::list() const {
  const LeadListRow* row = m_lists.list()->find(m_id);
  return row ? &row->record() : nullptr;
}

void LeadListStore::follow(const Change<LeadList>& change) {
  using Kind = Change<LeadList>::Kind;
  if (!change.id.isEmpty() && change.id != m_id) return;
  // The lists are on no screen while this page is, and would wait until they are.
  if (change.kind == Kind::stale && isShown()) m_lists.list()->load();
  if (change.kind != Kind::gone) return;
  // Whoever is looking at it is led to where it can be brought back.
  if (context().openedItem(Page::leads) == m_id) context().open(Page::leads);
  Q_EMIT changed();
}

void LeadListStore::takeOut(const QString& listId, const QStringList& ids) {
  if (listId == m_id) m_results.list()->takeOut(ids);
}

QString LeadListStore::name() const { return list() ? list()->name : QString(); }

QString LeadListStore::description() const { return list() ? list()->description.value_or(QString()) : QString(); }

QString LeadListStore::countText() const { return list() ? LeadWords::counted(list()->leadCount) : QString(); }

void LeadListStore::removeTicked() {
  if (list()) m_actions.lists()->removeLeads(*list(), m_results.selection()->ids());
}

void LeadListStore::dropFile(const QUrl& file) {
  importInto();
  m_actions.importing()->dropFile(file);
}

void LeadListStore::exportCsv() {
  if (list()) m_actions.lists()->exporting()->open(*list(), m_results.selection()->ids());
}

void LeadListStore::ensureLoaded() {
  m_columns.readAgain();
  m_actions.ensureLoaded();
  m_lists.list()->ensureLoaded();
  if (m_results.list()->isAsked())
    m_results.ensureLoaded();
  else
    m_results.ask({.values = {{u"list"_s, m_id}}});
}

void LeadListStore::refresh() {
  m_lists.list()->load();
  m_results.refresh();
}

QList<PageAction> LeadListStore::offered(const QString& record) {
  if (record.isEmpty()) return (list() ? offeredOnPage(*list()) : QList<PageAction>()) + Store::offered(record);
  QList<PageAction> actions = m_results.actions(record);
  if (!actions.isEmpty() && list())
    actions.append({.key = u"remove"_s,
                    .title = u"Remove from list"_s,
                    .icon = u"edit-delete"_s,
                    .writes = true,
                    .danger = true,
                    .possible = !busy(),
                    .run = [this, record] {
                      if (list()) m_actions.lists()->removeLeads(*list(), {record});
                    }});
  return actions;
}

QList<PageAction> LeadListStore::offeredOnPage(const LeadList& list) {
  QList<PageAction> actions{
      {.key = u"campaign"_s,
       .title = u"Add to campaign"_s,
       .icon = u"mail-send"_s,
       .writes = true,
       .possible = list.leadCount > 0,
       .inMenu = false,
       .run = [this, list] { m_actions.addToCampaign(wholeList(list)); }},
      {.key = u"import"_s, .title = u"Import CSV"_s, .icon = u"document-import"_s, .writes = true, .run = [this] {
         importInto();
       }}};
  for (PageAction action : m_actions.lists()->offeredFor(list)) {
    // The page has ticks of its own.
    if (action.key == "export"_L1) action.run = [this] { exportCsv(); };
    action.keys.clear();
    actions.append(action);
  }
  return actions;
}

}  // namespace orv
