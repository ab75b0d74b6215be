#pragma once

#include "app/base/Actions.h"
#include "app/base/Store.h"
#include "app/rampup/RampupRows.h"
#include "kit/models/rampup/rampupDetail.h"

namespace orv {

/// What is done with one account's roadmap, on its own page and in the list: an account is busy in both at once. Each
/// answer goes to the change feed.
class RoadmapActions final : public Store {
  Q_OBJECT
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY busyChanged)

 public:
  RoadmapActions(WorkspaceContext& context, Store& whole);

  const BusySet& busy() const { return m_busy; }
  QStringList busyIds() const { return m_busy.ids().values(); }

  void pause(const QString& id) { m_tasks.start(pauseTask(id)); }
  void resume(const QString& id) { m_tasks.start(resumeTask(id)); }
  Task<void> pauseTask(QString id);
  Task<void> resumeTask(QString id);
  Task<void> warmupTask(QString id, QString address, bool on);

  /// The answer, or nothing when it has failed; `tell` is told why first.
  Task<std::optional<RampupDetail>> change(QString id, Actions::Build<RampupDetail> build, QString failure,
                                           Actions::Tell tell = {}, Actions::First<RampupDetail> first = {});

 Q_SIGNALS:
  void busyChanged();
  /// The service told of an account, after something was done with it.
  void learned(const orv::RampupDetail& detail);

 private:
  BusySet m_busy;
  Actions m_actions;
};

}  // namespace orv
