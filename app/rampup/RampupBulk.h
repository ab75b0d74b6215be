#pragma once

#include "app/base/Actions.h"
#include "app/base/Jobs.h"
#include "app/base/PagedList.h"
#include "app/base/RowSelection.h"
#include "app/rampup/RampupRows.h"
#include "app/rampup/RoadmapEditor.h"
#include "kit/models/rampup/rampupChanges.h"

namespace orv {

using RampupAccounts = PagedList<RampupPart, RampupRowsModel>;

/// What is done with the roadmaps of all ticked accounts: one request with their ids, one at a time. Warm-up is
/// switched account by account, as a job.
class RampupBulk final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::RowSelection* selection READ selection CONSTANT)
  Q_PROPERTY(QString busy READ busy NOTIFY changed)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)
  Q_PROPERTY(QString extendLabel READ extendLabel CONSTANT)

 public:
  /// Without asking.
  static constexpr int extendedBy = 7;

  RampupBulk(WorkspaceContext& context, Store& whole, RampupAccounts& accounts, RoadmapEditor& editor);

  RowSelection* selection() { return &m_selection; }
  /// The action under way; empty for none.
  QString busy() const { return m_busy.ids().values().value(0); }
  QString countText() const;
  static QString extendLabel();

  Q_INVOKABLE void pause() { m_tasks.start(runTask({.action = QStringLiteral("pause")})); }
  Q_INVOKABLE void resume() { m_tasks.start(runTask({.action = QStringLiteral("resume")})); }
  Q_INVOKABLE void extend() { m_tasks.start(runTask({.action = QStringLiteral("extend"), .days = extendedBy})); }
  /// Opens the editor over what the ticked accounts have.
  Q_INVOKABLE void edit();
  Q_INVOKABLE void switchWarmup(bool on);

  /// With the ids that are ticked now.
  Task<void> runTask(RampupBulkBody body);
  /// Begins these accounts on the template. The result, or nothing when that has failed.
  Task<std::optional<RampupBulkResult>> restartTask(QStringList ids, QString templateId, Actions::Tell tell);
  Task<void> editTask(QStringList ids, QList<RoadmapStage> stages);

  void close() override;

 Q_SIGNALS:
  void changed();

 private:
  Task<std::optional<RampupBulkResult>> send(RampupBulkBody body, Actions::Tell tell = {});
  void tell(const RampupBulkBody& body, const RampupBulkResult& result);

  RampupAccounts& m_accounts;
  RoadmapEditor& m_editor;
  RowSelection m_selection;
  BusySet m_busy;
  Actions m_actions;
  /// While warm-up is being switched.
  std::optional<BusySet::Mark> m_switching;
};

/// In what the roadmaps of these accounts differ, which a save makes the same; empty when there is nothing.
QString differencesOf(const QList<const RampupItem*>& accounts);

}  // namespace orv
