#include "app/leads/LeadsStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto searchTab = u"search"_s, listsTab = u"lists"_s;

}  // namespace

LeadsStore::LeadsStore(WorkspaceContext& context, LeadActions& actions)
    : Store(context), m_actions(actions), m_lists(context, *this, actions), m_finder(context, *this, actions, m_lists) {
  connect(&m_lists, &LeadLists::changed, this, &LeadsStore::changed);
  connect(&m_lists, &LeadLists::wanted, this, [this] { setTab(listsTab); });
  for (const Store* part : {static_cast<Store*>(&m_lists), static_cast<Store*>(&m_finder)}) {
    connect(part, &Store::moved, this, &Store::moved);
    connect(part, &Store::foundChanged, this, &Store::foundChanged);
  }
}

QString LeadsStore::tab() const { return m_showLists ? listsTab : searchTab; }

void LeadsStore::setTab(const QString& tab) {
  const bool shows = tab == listsTab;
  if (std::exchange(m_showLists, shows) == shows) return;
  if (shows) m_lists.ensureLoaded();
  Q_EMIT changed();
  Q_EMIT moved();
}

QList<Choice> LeadsStore::tabs() const {
  return {{.key = searchTab, .label = u"Search"_s}, {.key = listsTab, .label = u"Lists"_s, .count = m_lists.count()}};
}

void LeadsStore::ensureLoaded() {
  m_finder.columns()->readAgain();
  m_actions.ensureLoaded();
  m_lists.ensureLoaded();
  m_finder.ensureLoaded();
}

void LeadsStore::refresh() {
  if (m_showLists)
    m_lists.refresh();
  else
    m_finder.refresh();
}

PagePlace LeadsStore::where() const {
  if (!m_showLists) return m_finder.where();
  const PagePlace within = m_lists.where();
  return {.tab = within.tab.isEmpty() ? listsTab : listsTab + u'/' + within.tab,
          .value = within.value,
          .chosen = within.chosen};
}

void LeadsStore::goTo(const PagePlace& place) {
  const bool isLists = place.tab.section(u'/', 0, 0) == listsTab;
  setTab(isLists ? listsTab : searchTab);
  if (isLists)
    m_lists.goTo({.tab = place.tab.section(u'/', 1), .value = place.value});
  else
    m_finder.goTo(place);
}

QList<PageAction> LeadsStore::offered(const QString& record) {
  QList<PageAction> actions = m_lists.actions(record);
  if (!m_showLists) actions += m_finder.actions(record);
  return record.isEmpty() ? actions + Store::offered(record) : actions;
}

}  // namespace orv
