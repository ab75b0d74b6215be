#include "app/base/RowSelection.h"

#include <algorithm>

#include "app/base/PagedListBase.h"

namespace orv {

void RowSelection::toggle(const QString& id) {
  m_first.reset();
  if (!m_ids.remove(id)) m_ids.insert(id);
  m_anchor = id;
  tellIf(true);
}

void RowSelection::extendTo(const QString& from, const QString& to) {
  const QStringList shown = m_list.shownIds();
  qsizetype first = shown.indexOf(m_anchor);
  if (first < 0) first = shown.indexOf(from);
  const qsizetype last = shown.indexOf(to);
  if (last < 0) return;
  if (first < 0) first = last;
  m_first.reset();
  // The next range starts from the same row.
  m_anchor = shown[first];
  for (qsizetype row = std::min(first, last); row <= std::max(first, last); ++row) m_ids.insert(shown[row]);
  tellIf(true);
}

void RowSelection::toggleAll() {
  const QStringList shown = m_list.shownIds();
  m_first.reset();
  const bool all = std::ranges::all_of(shown, [this](const QString& id) { return m_ids.contains(id); });
  for (const QString& id : shown) all ? (void)m_ids.remove(id) : (void)m_ids.insert(id);
  m_anchor.clear();
  tellIf(true);
}

void RowSelection::clear() {
  const bool isAnother = !isEmpty();
  m_first.reset();
  m_ids.clear();
  m_anchor.clear();
  tellIf(isAnother);
}

void RowSelection::takeFirst(int count) {
  m_ids.clear();
  m_anchor.clear();
  m_first = count;
  tellIf(true);
}

void RowSelection::untick(const QStringList& ids) {
  const auto before = m_ids.size();
  for (const QString& id : ids) m_ids.remove(id);
  tellIf(m_ids.size() != before);
}

void RowSelection::prune() {
  const auto before = m_ids.size();
  m_ids.removeIf([this](const QString& id) { return !m_list.contains(id); });
  if (!m_list.contains(m_anchor)) m_anchor.clear();
  tellIf(m_ids.size() != before);
}

void RowSelection::tellIf(bool isAnother) {
  if (!isAnother) return;
  m_ordered.clear();
  if (m_ids.size() < 2) {
    m_ordered = m_ids.values();
  } else {
    QSet<QString> left = m_ids;
    for (const QString& id : m_list.shownIds())
      if (left.remove(id)) m_ordered.append(id);
    m_ordered += left.values();
  }
  Q_EMIT changed();
}

}  // namespace orv
