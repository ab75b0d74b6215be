#include "app/base/Store.h"

#include <QPointer>

#include "app/base/Resource.h"

namespace orv {

Store::Store(WorkspaceContext& context, Store* whole) : m_context(context) {
  connect(&context, &WorkspaceContext::workspaceChanged, this, &Store::roleChanged);
  if (whole) whole->m_parts.push_back(this);
}

void Store::ensureLoaded() {
  for (ResourceBase* resource : m_resources)
    if (resource->loadsByItself()) resource->ensureLoaded();
}

void Store::refresh() {
  for (ResourceBase* resource : m_resources)
    if (resource->isAsked() || resource->loadsByItself()) resource->load();
}

QStringList Store::unsavedWork() const {
  QStringList work;
  for (const Store* part : m_parts) work += part->unsavedWork();
  return work;
}

Task<bool> Store::flush() {
  const QPointer store(this);
  for (size_t part = 0; store && part < store->m_parts.size(); ++part)
    if (!store->m_parts[part]->unsavedWork().isEmpty()) co_await store->m_parts[part]->flush();
  co_return store && store->unsavedWork().isEmpty();
}

void Store::disappear() {
  if (--m_pages == 0) Q_EMIT left();
}

void Store::close() {
  m_tasks.cancel();
  for (ResourceBase* resource : m_resources) resource->cancel();
  for (Store* part : m_parts) part->close();
}

}  // namespace orv
