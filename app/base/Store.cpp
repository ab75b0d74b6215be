#include "app/base/Store.h"

#include <QPointer>

#include "app/base/Resource.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Store::Store(WorkspaceContext& context, Store* whole) : m_context(context) {
  connect(&context, &WorkspaceContext::workspaceChanged, this, &Store::roleChanged);
  connect(&context, &WorkspaceContext::sent, this, &Store::sent);
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

QList<PageAction> Store::offered(const QString& record) {
  if (!record.isEmpty()) return {};
  return {{.key = u"refresh"_s,
           .title = u"Refresh"_s,
           .icon = u"view-refresh"_s,
           .keys = u"F5"_s,
           .inMenu = false,
           .run = [this] { refresh(); }}};
}

QList<PageAction> Store::actions(const QString& record) {
  QList<PageAction> all = offered(record);
  for (PageAction& action : all)
    if (action.writes && !canWrite()) action.possible = false;
  return all;
}

QList<PageAction> Store::menu(const QString& record) {
  QList<PageAction> entries = actions(record);
  entries.removeIf([](const PageAction& action) { return !action.inMenu; });
  return entries;
}

bool Store::act(const QString& key, const QString& record) {
  const QList<PageAction> all = actions(record);
  const auto action = std::ranges::find(all, key, &PageAction::key);
  if (action == all.end()) return false;
  if (!action->possible) {
    if (!action->whyNot.isEmpty()) services().toasts.show({.message = action->whyNot});
    return false;
  }
  action->run();
  return true;
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
