#include "app/inbox/InboxStore.h"

#include "app/base/EnumName.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

InboxStore::InboxStore(WorkspaceContext& context, Writings& writings, Store* drafts, Store* agent)
    : Store(context), m_writings(writings), m_drafts(drafts), m_agent(agent) {}

QString InboxStore::sectionName() const { return enumName(m_section); }

void InboxStore::setSection(const QString& name) {
  const auto section = enumNamed<Section>(name);
  if (!section || *section == m_section) return;
  if ((*section == Section::drafts && !m_drafts) || (*section == Section::agent && !m_agent)) return;
  m_section = *section;
  Q_EMIT changed();
  Q_EMIT moved();
}

QList<Choice> InboxStore::sections() const {
  QList<Choice> sections{{.key = enumName(Section::conversations), .label = u"Conversations"_s}};
  if (m_drafts) sections.append({.key = enumName(Section::drafts), .label = u"Drafts"_s});
  if (m_agent) sections.append({.key = enumName(Section::agent), .label = u"Agent"_s});
  return sections;
}

Store* InboxStore::shownPart() const {
  return m_section == Section::drafts ? m_drafts : m_section == Section::agent ? m_agent : nullptr;
}

void InboxStore::refresh() {
  if (Store* part = shownPart()) return part->refresh();
}

PagePlace InboxStore::where() const { return {.tab = sectionName()}; }

void InboxStore::goTo(const PagePlace& place) {
  setSection(place.tab.isEmpty() ? enumName(Section::conversations) : place.tab);
}

void InboxStore::begin() { setSection(enumName(Section::conversations)); }

QList<PageAction> InboxStore::offered(const QString& record) {
  if (Store* part = shownPart()) return part->actions(record);
  return Store::offered(record);
}

}  // namespace orv
