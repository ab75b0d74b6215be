#pragma once

#include "app/base/Actions.h"
#include "app/base/RecordModel.h"
#include "app/base/Resource.h"
#include "app/base/RowFields.h"
#include "kit/models/campaigns/campaignSummary.h"
#include "kit/models/inbox/setterSettings.h"
#include "kit/models/inbox/setterTraining.h"

namespace orv {

struct AgentCampaignRow {
  /// Empty for campaigns that are yet to be made.
  QString id;
  QString name;
  /// Beside the name: "Active by default".
  QString hint;
  bool busy = false;
  bool operator==(const AgentCampaignRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(AgentCampaignRow, (), (id, name, hint, busy))
ORV_DECLARE_ROW(AgentCampaignRow)

class AgentCampaignRows final : public RecordModel<AgentCampaignRow> {
 public:
  using RecordModel::RecordModel;
};

/// Which campaigns the agent works on.
class AgentCampaigns final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* modes READ modes CONSTANT)
  Q_PROPERTY(orv::ResourceBase* campaigns READ campaigns CONSTANT)
  Q_PROPERTY(orv::ListModel* active READ active CONSTANT)
  Q_PROPERTY(orv::ListModel* inactive READ inactive CONSTANT)
  Q_PROPERTY(int activeCount READ activeCount NOTIFY changed)
  Q_PROPERTY(int inactiveCount READ inactiveCount NOTIFY changed)

 public:
  AgentCampaigns(WorkspaceContext& context, Store* whole, Resource<SetterSettings>& settings);

  Resource<SetterCampaignModes>* modes() { return &m_modes; }
  Resource<CampaignList>* campaigns() { return &m_campaigns; }
  AgentCampaignRows* active() { return &m_active; }
  AgentCampaignRows* inactive() { return &m_inactive; }
  /// Of campaigns that there are.
  int activeCount() const { return m_activeCount; }
  int inactiveCount() const { return m_inactiveCount; }

  /// Into the other list.
  Q_INVOKABLE void move(const QString& campaignId) { m_tasks.start(moveTask(campaignId)); }
  Task<void> moveTask(QString campaignId);

 Q_SIGNALS:
  void changed();

 private:
  bool isActive(const std::optional<QString>& mode) const;
  std::optional<QString> modeOf(const QString& campaignId) const;
  void arrange();

  Resource<SetterSettings>& m_settings;
  Resource<SetterCampaignModes> m_modes;
  Resource<CampaignList> m_campaigns;
  BusySet m_busy;
  Actions m_actions;
  AgentCampaignRows m_active;
  AgentCampaignRows m_inactive;
  int m_activeCount = 0;
  int m_inactiveCount = 0;
};

}  // namespace orv
