#include "app/base/BusySet.h"

namespace orv {

BusySet::Mark BusySet::mark(const QString& id) {
  if (m_ids.contains(id)) return {};
  m_ids.insert(id);
  Q_EMIT changed(id);
  return {this, id};
}

void BusySet::release(const QString& id) {
  m_ids.remove(id);
  Q_EMIT changed(id);
}

}  // namespace orv
