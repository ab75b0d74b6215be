#include "app/shell/WorkspaceSession.h"

#include <QPointer>

using namespace Qt::Literals::StringLiterals;

namespace orv {

WorkspaceSession::WorkspaceSession(std::shared_ptr<WorkspaceContext> context, QObject* parent)
    : QObject(parent),
      m_context(std::move(context)),
      m_campaignStores(campaignStoresAtMost, StoreCache<CampaignStore>::Order::firstOpening) {
  connect(m_context.get(), &WorkspaceContext::workspaceChanged, this, &WorkspaceSession::workspaceChanged);
  m_campaignStores.onNotSaved = [workspace = m_context](const CampaignStore& store) {
    workspace->services().toasts.show({.message = store.unsavedWork().value(0),
                                       .tone = Toasts::Tone::error,
                                       .actionLabel = u"Open"_s,
                                       .action = [context = std::weak_ptr(workspace), id = store.id()] {
                                         if (const auto there = context.lock()) there->openItem(Page::campaigns, id);
                                       }});
  };
}

CampaignsStore* WorkspaceSession::campaigns() {
  return store(m_campaigns, [this](const QString& id) { return saveCampaign(id); });
}

Task<QString> WorkspaceSession::saveCampaign(QString id) {
  const QPointer<CampaignStore> open = m_campaignStores.find(id);
  if (!open || co_await open->sequence()->flush() || !open) co_return QString();
  co_return open->sequence()->autosave()->message();
}

CampaignStore* WorkspaceSession::campaignStore(const QString& id) {
  return m_campaignStores.open(id, [this, &id] {
    auto* store = new CampaignStore(id, *m_context);
    // QML deletes what a call hands it, unless that has a parent.
    store->setParent(this);
    return store;
  });
}

QStringList WorkspaceSession::unsavedWork() const {
  QStringList work = m_campaignStores.unsavedWork();
  for (const Store* store : m_stores) work += store->unsavedWork();
  return work;
}

Task<bool> WorkspaceSession::flush() {
  const QPointer session(this);
  co_await m_campaignStores.flush();
  for (size_t i = 0; session && i < m_stores.size(); ++i)
    if (!m_stores[i]->unsavedWork().isEmpty()) co_await m_stores[i]->flush();
  co_return session&& unsavedWork().isEmpty();
}

void WorkspaceSession::trim() { m_campaignStores.evictAll(); }

void WorkspaceSession::close() {
  for (Store* store : m_stores) store->close();
  m_campaignStores.clear();
}

}  // namespace orv
