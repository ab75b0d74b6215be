#pragma once

#include "app/inbox/AgentCampaigns.h"
#include "app/inbox/AgentForm.h"
#include "app/inbox/AgentLessons.h"
#include "app/inbox/AgentMode.h"

namespace orv {

/// The reply agent of one workspace: what it is told, what it may do, what it has learned.
class AgentSettingsStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* settings READ settings CONSTANT)
  Q_PROPERTY(orv::ResourceBase* training READ training CONSTANT)
  Q_PROPERTY(orv::AgentForm* form READ form CONSTANT)
  Q_PROPERTY(orv::AgentMode* mode READ mode CONSTANT)
  Q_PROPERTY(orv::AgentCampaigns* campaigns READ campaigns CONSTANT)
  Q_PROPERTY(orv::AgentLessons* lessons READ lessons CONSTANT)
  Q_PROPERTY(QList<orv::Choice> sections READ sections NOTIFY changed)
  Q_PROPERTY(QString warning READ warning NOTIFY changed)

 public:
  explicit AgentSettingsStore(WorkspaceContext& context);

  Resource<SetterSettings>* settings() { return &m_settings; }
  Resource<SetterTraining>* training() { return &m_training; }
  AgentForm* form() { return &m_form; }
  AgentMode* mode() { return &m_mode; }
  AgentCampaigns* campaigns() { return &m_campaigns; }
  AgentLessons* lessons() { return &m_lessons; }
  /// Those of the page; ticked where something is unsaved.
  QList<Choice> sections() const;
  /// What keeps the agent from writing; empty for nothing.
  QString warning() const;

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  Resource<SetterSettings> m_settings;
  Resource<SetterTraining> m_training;
  AgentForm m_form;
  AgentMode m_mode;
  AgentCampaigns m_campaigns;
  AgentLessons m_lessons;
};

}  // namespace orv
