#include "app/shell/WorkspaceSession.h"

#include "app/base/RoleGate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

WorkspaceSession::WorkspaceSession(WorkspaceSummary workspace, QString token, APITransport& transport,
                                   Services& services, std::function<void()> sessionEnded, QObject* parent)
    : QObject(parent),
      m_workspace(std::move(workspace)),
      m_token(std::move(token)),
      m_services(services),
      m_api(transport, m_workspace.slug, m_token),
      m_campaigns(m_api, services),
      m_campaignStores(campaignStoresAtMost, StoreCache<CampaignStore>::Order::firstOpening) {
  m_api.onUnauthorized(std::move(sessionEnded));
  m_campaigns.setWorkspace(m_workspace);
  m_campaignStores.onNotSaved = [this](const CampaignStore& store) {
    m_services.toasts.show(store.unsavedWork().value(0), Toasts::Tone::error, u"Open"_s,
                           [&router = m_services.router, id = store.id()] { router.openItem(Page::campaigns, id); });
  };
}

void WorkspaceSession::setWorkspace(const WorkspaceSummary& workspace) {
  if (m_workspace == workspace) return;
  m_workspace = workspace;
  m_campaigns.setWorkspace(workspace);
  for (const QString& id : m_campaignStores.keys()) m_campaignStores.find(id)->setCanWrite(canWrite(workspace.role));
  Q_EMIT workspaceChanged();
}

AnalyticsStore* WorkspaceSession::analytics() {
  if (!m_analytics) m_analytics = std::make_unique<AnalyticsStore>(m_api, m_services);
  return m_analytics.get();
}

DashboardStore* WorkspaceSession::dashboard() {
  if (!m_dashboard) m_dashboard = std::make_unique<DashboardStore>(m_api, m_services);
  return m_dashboard.get();
}

CampaignStore* WorkspaceSession::campaignStore(const QString& id) {
  // QML deletes what a call hands it, unless that has a parent.
  return m_campaignStores.open(id, [this, &id] {
    auto* store = new CampaignStore(
        id, m_api, m_services, [this] { m_campaigns.reload(); }, this);
    store->setCanWrite(canWrite(m_workspace.role));
    return store;
  });
}

void WorkspaceSession::trim() {
  m_campaignStores.evictAll();
  Q_EMIT campaignStoresDropped();
}

void WorkspaceSession::close() {
  m_campaigns.close();
  if (m_analytics) m_analytics->close();
  if (m_dashboard) m_dashboard->close();
  m_campaignStores.clear();
}

}  // namespace orv
