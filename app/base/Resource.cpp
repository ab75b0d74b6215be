#include "app/base/Resource.h"

namespace orv {

ResourceBase::ResourceBase(Store& owner, QString failed, bool loadsByItself)
    : m_owner(owner), m_failed(std::move(failed)), m_loadsByItself(loadsByItself) {
  owner.own(*this);
  connect(&owner.context(), &WorkspaceContext::reachable, this, &ResourceBase::tryAgain);
}

void ResourceBase::ensureLoaded() {
  if (needsLoad()) load();
}

bool ResourceBase::needsLoad() const {
  // Whoever comes back to a failure means to try again.
  const bool hasFailed = !hasContent() && (stateName() == State::Error || stateName() == State::Offline);
  return !isAsked() || m_isStale || hasFailed;
}

void ResourceBase::markStale() {
  // What is told in one turn of the event loop the service knew before it: one reading brings it all.
  if (!isAsked() || m_isTelling || m_hasReread) return;
  m_isStale = true;
  if (m_views == 0) return;
  load();
  m_hasReread = true;
  QMetaObject::invokeMethod(
      this, [this] { m_hasReread = false; }, Qt::QueuedConnection);
}

void ResourceBase::appear() {
  if (++m_views > 1 || !m_isStale) return;
  // Not from within the making of the view, whose bindings are being read.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (m_views > 0 && m_isStale) load();
      },
      Qt::QueuedConnection);
}

void ResourceBase::disappear() { --m_views; }

void ResourceBase::tryAgain() {
  if (stateName() == State::Offline && !m_refreshing) markStale();
}

void ResourceBase::tellRefreshFailed(const APIError& error) {
  if (!m_failed.isEmpty()) m_owner.context().services().toasts.failure(m_failed, error);
  Q_EMIT refreshFailed(error);
}

void ResourceBase::cancel() {
  // What there was to know is not known yet; the same goes for every failure.
  if (!m_load.isIdle()) m_isStale = true;
  m_load.cancel();
  ++m_generation;
  if (!std::exchange(m_refreshing, false)) return;
  Q_EMIT changed();
}

}  // namespace orv
