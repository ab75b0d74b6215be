#include "app/base/Selection.h"

#include <algorithm>

namespace orv {

void Selection::toggle(const QString& id) {
  if (!m_ids.remove(id)) m_ids.insert(id);
  m_anchor = id;
}

void Selection::extend(const QStringList& visible, const QString& from, const QString& to) {
  qsizetype first = visible.indexOf(m_anchor);
  if (first < 0) first = visible.indexOf(from);
  const qsizetype last = visible.indexOf(to);
  if (last < 0) return;
  if (first < 0) first = last;
  // The next range starts from the same row.
  m_anchor = visible[first];
  for (qsizetype row = std::min(first, last); row <= std::max(first, last); ++row) m_ids.insert(visible[row]);
}

void Selection::toggleAll(const QStringList& visible) {
  const bool all = std::ranges::all_of(visible, [this](const QString& id) { return m_ids.contains(id); });
  for (const QString& id : visible) all ? (void)m_ids.remove(id) : (void)m_ids.insert(id);
  m_anchor.clear();
}

void Selection::clear() {
  m_ids.clear();
  m_anchor.clear();
}

void Selection::prune(const QSet<QString>& there) {
  m_ids.intersect(there);
  if (!there.contains(m_anchor)) m_anchor.clear();
}

}  // namespace orv
