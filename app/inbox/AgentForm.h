#pragma once

#include "app/base/Actions.h"
#include "app/base/Recovery.h"
#include "app/base/Resource.h"
#include "app/inbox/AgentFields.h"

namespace orv {

/// The agent's settings while they are edited.
class AgentForm final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(bool dirty READ dirty NOTIFY changed)
  Q_PROPERTY(bool saving READ saving NOTIFY changed)
  Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
  Q_PROPERTY(QString problem READ problem NOTIFY changed)
  Q_PROPERTY(QString conflict READ conflict NOTIFY changed)
  Q_PROPERTY(QString knowledgeHelp READ knowledgeHelp NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tones READ tones NOTIFY changed)
  Q_PROPERTY(QStringList dirtySections READ dirtySections NOTIFY changed)

 public:
  AgentForm(WorkspaceContext& context, Store* whole, Resource<SetterSettings>& settings);

  DraftOf<AgentFields>* draft() { return &m_draft; }
  Recovery* recovery() { return &m_recovery; }
  bool dirty() const { return m_draft.dirty(); }
  bool saving() const { return !m_busy.ids().isEmpty(); }
  bool canSave() const { return dirty() && canWrite() && !saving(); }
  /// Why the last save came to nothing.
  const QString& problem() const { return m_problem; }
  /// What somebody else made of fields that were changed here as well.
  QString conflict() const;
  QString knowledgeHelp() const;
  QList<Choice> tones() const;
  /// Keys of the sections with something unsaved.
  QStringList dirtySections() const;

  Q_INVOKABLE void set(const QString& field, const QVariant& value);
  Q_INVOKABLE void discard();
  Q_INVOKABLE void save() { m_tasks.start(saveTask()); }
  Task<void> saveTask();

  QStringList unsavedWork() const override;
  Task<bool> flush() override { co_return unsavedWork().isEmpty(); }

 Q_SIGNALS:
  void changed();

 private:
  void follow();
  void setProblem(const QString& problem);

  Store& m_whole;
  Resource<SetterSettings>& m_settings;
  BusySet m_busy;
  Actions m_actions;
  DraftOf<AgentFields> m_draft;
  Recovery m_recovery;
  QString m_problem;
};

/// The turn in which everything of the agent's settings is changed: form and mode share one version.
inline constexpr QLatin1String agentTurn("setter/settings");

}  // namespace orv
