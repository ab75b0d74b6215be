#pragma once

#include <boost/describe/class.hpp>

#include "app/base/Actions.h"
#include "app/base/Choice.h"
#include "app/base/Draft.h"
#include "app/base/Recovery.h"
#include "app/base/Resource.h"
#include "kit/models/workspace/workspaceDetail.h"

namespace orv {

/// What of a workspace is typed: the value is text until it is saved.
struct WorkspaceFields {
  QString name;
  QString timeZone;
  /// US dollars.
  QString opportunityValue;
  bool operator==(const WorkspaceFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(WorkspaceFields, (), (name, timeZone, opportunityValue))

/// The workspace's own settings while they are changed. Two tabs show such a form, and each keeps what was typed in it.
class WorkspaceForm final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(bool dirty READ dirty NOTIFY changed)
  Q_PROPERTY(bool saving READ saving NOTIFY changed)
  Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
  Q_PROPERTY(QString problem READ problem NOTIFY changed)
  Q_PROPERTY(QString conflict READ conflict NOTIFY changed)
  Q_PROPERTY(int mostValue READ mostValue CONSTANT)

 public:
  enum class Tab { workspace, company };

  WorkspaceForm(Tab tab, Store& whole, Resource<WorkspaceDetail>& workspace);

  /// The service took it: whoever shows the workspace follows. `madeOn` is the version that was changed.
  std::function<void(const WorkspaceDetail& saved, FieldDraft::Version madeOn)> onSaved;
  /// Whether the form is on the screen, where it tells of a failure itself.
  std::function<bool()> isSeen;

  FieldDraft* draft() { return &m_draft; }
  Recovery* recovery() { return &m_recovery; }
  bool dirty() const { return m_draft.dirty(); }
  bool saving() const { return !m_busy.ids().isEmpty(); }
  bool canSave() const;
  /// Why the last save came to nothing.
  const QString& problem() const { return m_problem; }
  /// What somebody else made of fields that were changed here as well.
  QString conflict() const;
  int mostValue() const;

  Q_INVOKABLE void set(const QString& field, const QVariant& value);
  Q_INVOKABLE void discard();
  Q_INVOKABLE void save() { m_tasks.start(saveTask()); }
  /// Zones that a text may stand for.
  Q_INVOKABLE QList<orv::Choice> zones(const QString& text) const;
  Task<void> saveTask();

  /// The workspace is this by now, changed by the person on `madeOn` where that is known.
  void follow(const WorkspaceDetail& workspace, FieldDraft::Version madeOn = {});

  QStringList unsavedWork() const override;

 Q_SIGNALS:
  void changed();

 private:
  void followRead();
  void tellOfFigures();
  void tellElsewhere();
  void setProblem(const QString& problem);
  /// True once it has been told.
  bool tell(const APIError& error);

  Tab m_tab;
  Resource<WorkspaceDetail>& m_workspace;
  BusySet m_busy;
  Actions m_actions;
  DraftOf<WorkspaceFields> m_draft;
  Recovery m_recovery;
  QString m_problem;
};

/// Said to whoever saved after somebody else did.
QString workspaceConflict();

}  // namespace orv
