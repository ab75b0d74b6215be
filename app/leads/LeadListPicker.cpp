#include "app/leads/LeadListPicker.h"

#include "app/leads/LeadWords.h"
#include "kit/models/leads/leadListRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

LeadListPicker::LeadListPicker(Store& whole, bool takesNone)
    : Store(whole.context(), &whole),
      m_lists(*this, [this] { return api().send(Requests::leadLists(false)); }, {.loadsByItself = false}),
      m_takesNone(takesNone) {
  connect(&m_lists, &ResourceBase::changed, this, &LeadListPicker::changed);
}

QList<Choice> LeadListPicker::options() const {
  QList<Choice> options{{.key = makeNew, .label = u"New list"_s}};
  if (m_takesNone) options.append({.key = {}, .label = u"No list"_s, .detail = u"Only into your leads"_s});
  if (!m_lists.value()) return options;
  for (const LeadList& list : m_lists.value()->items)
    options.append({.key = list.id, .label = list.name, .detail = LeadWords::counted(list.leadCount)});
  return options;
}

void LeadListPicker::setCurrent(const QString& key) {
  if (std::exchange(m_current, key) != key) Q_EMIT changed();
}

void LeadListPicker::setNewName(const QString& name) {
  m_isTyped = !name.trimmed().isEmpty();
  if (std::exchange(m_newName, name) != name) Q_EMIT changed();
}

void LeadListPicker::proposeName(const QString& name) {
  if (!m_isTyped && std::exchange(m_newName, name) != name) Q_EMIT changed();
}

void LeadListPicker::takeName(const QString& name) {
  if (!name.isEmpty()) setCurrent(makeNew);
  setNewName(name);
}

QString LeadListPicker::name() const {
  if (isNew()) return m_newName.trimmed();
  if (m_lists.value())
    for (const LeadList& list : m_lists.value()->items)
      if (list.id == m_current) return list.name;
  return {};
}

bool LeadListPicker::isChosen() const {
  if (isNew()) return !m_newName.trimmed().isEmpty();
  return m_takesNone || !m_current.isEmpty();
}

void LeadListPicker::startWith(const QString& current) {
  m_current = current;
  m_newName.clear();
  m_isTyped = false;
  m_lists.load();
  Q_EMIT changed();
}

}  // namespace orv
