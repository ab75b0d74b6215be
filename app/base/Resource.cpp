#include "app/base/Resource.h"

namespace orv {

void ResourceBase::cancel() {
  m_load.cancel();
  ++m_generation;
  if (!std::exchange(m_refreshing, false)) return;
  Q_EMIT changed();
}

}  // namespace orv
