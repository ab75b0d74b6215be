#include "app/shell/WorkspaceSession.h"

#include <QPointer>

#include "app/shell/Areas.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

WorkspaceSession::WorkspaceSession(std::shared_ptr<WorkspaceContext> context, QObject* parent)
    : QObject(parent), m_context(std::move(context)) {
  connect(m_context.get(), &WorkspaceContext::workspaceChanged, this, &WorkspaceSession::workspaceChanged);
  connect(m_context.get(), &WorkspaceContext::sent, this, &WorkspaceSession::sent);
}

WorkspaceSession::~WorkspaceSession() = default;

Store* WorkspaceSession::store(const QString& name) {
  const auto made = std::ranges::find(m_stores, name, [](const auto& known) { return known.first; });
  if (made != m_stores.end()) return made->second.get();
  for (const Area& area : areas()) {
    const auto known = std::ranges::find(area.stores, name, &AreaStore::name);
    if (known == area.stores.end()) continue;
    std::unique_ptr<Store> store(known->make(*this));
    // QML deletes what a call hands it, unless that has a parent.
    store->setParent(this);
    return m_stores.emplace_back(name, std::move(store)).second.get();
  }
  return nullptr;
}

QString WorkspaceSession::nameOf(const QMetaObject& type) {
  for (const Area& area : areas())
    for (const AreaStore& store : area.stores)
      if (store.type == &type) return store.name;
  return {};
}

StoreCache<Store>* WorkspaceSession::itemsOf(const AreaPage& page) {
  const auto [place, isNew] =
      m_items.try_emplace(page.page, page.item->keptAtMost, StoreCache<Store>::Order::firstOpening);
  if (isNew)
    place->second.onNotSaved = [workspace = m_context, at = page.page](const QString& id, const Store& store) {
      workspace->services().toasts.show({.message = store.unsavedWork().value(0),
                                         .tone = Toasts::Tone::error,
                                         .actionLabel = u"Open"_s,
                                         .action = [context = std::weak_ptr(workspace), at, id] {
                                           if (const auto there = context.lock()) there->openItem(at, id);
                                         }});
    };
  return &place->second;
}

Store* WorkspaceSession::item(Page page, const QString& id) {
  const AreaPage* known = areaPage(page);
  if (!known || !known->item) return nullptr;
  return itemsOf(*known)->open(id, [this, known, &id] {
    Store* store = known->item->make(*this, id);
    store->setParent(this);
    return store;
  });
}

Store* WorkspaceSession::keptItem(Page page, const QString& id) const {
  const auto items = m_items.find(page);
  return items != m_items.end() ? items->second.find(id) : nullptr;
}

QStringList WorkspaceSession::itemOrder(Page page) const {
  const auto items = m_items.find(page);
  return items != m_items.end() ? items->second.keys() : QStringList();
}

QStringList WorkspaceSession::unsavedWork() const {
  QStringList work;
  for (const auto& [page, items] : m_items) work += items.unsavedWork();
  for (const auto& [name, store] : m_stores) work += store->unsavedWork();
  return work;
}

Task<bool> WorkspaceSession::flush() {
  const QPointer session(this);
  for (const auto& info : Pages::all()) {
    if (!session) co_return false;
    const auto items = m_items.find(info.page);
    if (items != m_items.end()) co_await items->second.flush();
  }
  for (size_t i = 0; session && i < m_stores.size(); ++i)
    if (!m_stores[i].second->unsavedWork().isEmpty()) co_await m_stores[i].second->flush();
  co_return session&& unsavedWork().isEmpty();
}

void WorkspaceSession::trim() {
  for (auto& [page, items] : m_items) items.evictAll();
  for (auto& [name, store] : m_stores) store->trim();
}

void WorkspaceSession::close() {
  for (auto& [name, store] : m_stores) store->close();
  for (auto& [page, items] : m_items) items.clear();
}

}  // namespace orv
