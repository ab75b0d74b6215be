#pragma once

#include "app/base/Actions.h"
#include "app/base/Choice.h"
#include "app/base/Resource.h"
#include "kit/models/inbox/setterSettings.h"
#include "kit/models/inbox/setterTraining.h"

namespace orv {

/// What the agent does by default, and how close it is to doing it by itself.
class AgentMode final : public Store {
  Q_OBJECT
  Q_PROPERTY(QList<orv::Choice> modes READ modes CONSTANT)
  Q_PROPERTY(QString mode READ mode NOTIFY changed)
  Q_PROPERTY(bool flipping READ flipping NOTIFY changed)
  Q_PROPERTY(QString lastFlip READ lastFlip NOTIFY changed)
  Q_PROPERTY(QString autoSend READ autoSend NOTIFY changed)
  Q_PROPERTY(int reviewed READ reviewed NOTIFY changed)
  Q_PROPERTY(int matched READ matched NOTIFY changed)
  Q_PROPERTY(int window READ window NOTIFY changed)
  Q_PROPERTY(int target READ target NOTIFY changed)
  Q_PROPERTY(QString readiness READ readiness NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> record READ record NOTIFY changed)

 public:
  AgentMode(WorkspaceContext& context, Store* whole, Resource<SetterSettings>& settings,
            Resource<SetterTraining>& training);

  static QList<Choice> modes();
  QString mode() const;
  /// A switch is under way.
  bool flipping() const { return !m_busy.ids().isEmpty(); }
  /// "Switched to Draft mode on 12 Nov, at 9 of 20 by Maren Kolbe"
  QString lastFlip() const;
  /// Whether it sends anything by itself, as the service says.
  QString autoSend() const;
  int reviewed() const { return m_training.value() ? int(m_training.value()->reviewed) : 0; }
  int matched() const { return m_training.value() ? int(m_training.value()->matched) : 0; }
  int window() const { return m_training.value() ? int(m_training.value()->window) : 0; }
  int target() const { return m_training.value() ? int(m_training.value()->target) : 0; }
  QString readiness() const;
  /// Label and figure of each.
  QList<Choice> record() const;

  /// Asks first where the agent is to go on by itself.
  Q_INVOKABLE void choose(const QString& mode) { m_tasks.start(chooseTask(mode)); }
  Task<void> chooseTask(QString mode);

 Q_SIGNALS:
  void changed();

 private:
  Resource<SetterSettings>& m_settings;
  Resource<SetterTraining>& m_training;
  BusySet m_busy;
  Actions m_actions;
};

/// What is said before the agent goes on by itself.
QString autoQuestion(const SetterTraining& training);
/// How far it is from being ready to.
QString readinessText(const SetterTraining& training);

}  // namespace orv
