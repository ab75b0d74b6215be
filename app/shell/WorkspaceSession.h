#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>
#include <functional>
#include <memory>

#include "app/analytics/AnalyticsStore.h"
#include "app/analytics/DashboardStore.h"
#include "app/base/Services.h"
#include "app/base/StoreCache.h"
#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/CampaignsStore.h"
#include "kit/api/APITransport.h"
#include "kit/session/records.h"

namespace orv {

/// One opened workspace: the transport bound to it and the stores of its pages.
class WorkspaceSession final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString slug READ slug CONSTANT)
  Q_PROPERTY(QString name READ name NOTIFY workspaceChanged)
  Q_PROPERTY(QString role READ role NOTIFY workspaceChanged)
  Q_PROPERTY(orv::CampaignsStore* campaigns READ campaigns CONSTANT)
  Q_PROPERTY(orv::AnalyticsStore* analytics READ analytics CONSTANT)
  Q_PROPERTY(orv::DashboardStore* dashboard READ dashboard CONSTANT)

 public:
  static constexpr qsizetype campaignStoresAtMost = 8;

  /// `sessionEnded` is called when the service refuses the credential of this session.
  WorkspaceSession(WorkspaceSummary workspace, QString token, APITransport& transport, Services& services,
                   std::function<void()> sessionEnded, QObject* parent = nullptr);

  const WorkspaceSummary& workspace() const { return m_workspace; }
  /// A later reading of the same workspace: name, role and plan may have changed.
  void setWorkspace(const WorkspaceSummary& workspace);
  QString slug() const { return m_workspace.slug; }
  QString name() const { return m_workspace.name; }
  QString role() const { return m_workspace.role.rawValue; }
  const QString& token() const { return m_token; }

  CampaignsStore* campaigns() { return &m_campaigns; }
  /// Made when first asked for, as are the stores of the other pages.
  AnalyticsStore* analytics();
  DashboardStore* dashboard();
  /// The store of one campaign, from a cache of eight; the first opened goes first.
  Q_INVOKABLE orv::CampaignStore* campaignStore(const QString& id);
  const QStringList& campaignOrder() const { return m_campaignStores.keys(); }

  const QSet<QString>& featuresOff() const { return m_featuresOff; }

  /// Work that the service does not have yet, a sentence for each campaign.
  QStringList unsavedWork() const { return m_campaignStores.unsavedWork(); }
  /// Saves what can be saved unasked; true when nothing is left.
  Task<bool> flush() { return m_campaignStores.flush(); }

  /// Under memory pressure: lets go of what can be loaded again.
  void trim();
  /// Stops all requests; nothing of this session is applied any more.
  void close();

 Q_SIGNALS:
  void workspaceChanged();
  /// The campaigns' stores are going: who shows one asks for it anew.
  void campaignStoresDropped();

 private:
  WorkspaceSummary m_workspace;
  QString m_token;
  Services& m_services;
  WorkspaceTransport m_api;
  CampaignsStore m_campaigns;
  std::unique_ptr<AnalyticsStore> m_analytics;
  std::unique_ptr<DashboardStore> m_dashboard;
  StoreCache<CampaignStore> m_campaignStores;
  QSet<QString> m_featuresOff;
};

}  // namespace orv
