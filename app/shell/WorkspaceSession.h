#pragma once

#include <QSet>
#include <memory>

#include "app/analytics/AnalyticsStore.h"
#include "app/analytics/DashboardStore.h"
#include "app/base/StoreCache.h"
#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/CampaignsStore.h"

namespace orv {

/// One opened workspace: the stores of its pages.
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

  explicit WorkspaceSession(std::shared_ptr<WorkspaceContext> context, QObject* parent = nullptr);

  WorkspaceContext& context() const { return *m_context; }
  QString slug() const { return m_context->workspace().slug; }
  QString name() const { return m_context->workspace().name; }
  QString role() const { return m_context->workspace().role.rawValue; }

  /// Made when first asked for, as are the stores of the other pages.
  CampaignsStore* campaigns();
  AnalyticsStore* analytics() { return store(m_analytics); }
  DashboardStore* dashboard() { return store(m_dashboard); }
  /// The store of one campaign, from a cache of eight; the first opened goes first.
  Q_INVOKABLE orv::CampaignStore* campaignStore(const QString& id);
  const QStringList& campaignOrder() const { return m_campaignStores.keys(); }

  const QSet<QString>& featuresOff() const { return m_featuresOff; }

  /// Work that the service does not have yet, a sentence for each piece.
  QStringList unsavedWork() const;
  /// Saves what can be saved unasked; true when nothing is left.
  Task<bool> flush();

  /// Under memory pressure: lets go of what can be loaded again and is not on the screen.
  void trim();
  /// Stops all requests of its stores; nothing of this session is applied any more.
  void close();

 Q_SIGNALS:
  void workspaceChanged();

 private:
  template <class S, class... Arguments>
  S* store(std::unique_ptr<S>& place, Arguments&&... arguments) {
    if (!place) {
      place = std::make_unique<S>(*m_context, std::forward<Arguments>(arguments)...);
      m_stores.push_back(place.get());
    }
    return place.get();
  }
  Task<QString> saveCampaign(QString id);

  std::shared_ptr<WorkspaceContext> m_context;
  std::unique_ptr<CampaignsStore> m_campaigns;
  std::unique_ptr<AnalyticsStore> m_analytics;
  std::unique_ptr<DashboardStore> m_dashboard;
  /// Those above that have been made.
  std::vector<Store*> m_stores;
  StoreCache<CampaignStore> m_campaignStores;
  QSet<QString> m_featuresOff;
};

}  // namespace orv
