#pragma once

#include "demo/DemoState.h"
#include "kit/models/rampup/roadmapPlan.h"

namespace orv::demo {

/// Where a roadmap stands on a day.
struct Standing {
  /// Nothing when there is no roadmap, or its first day has not come.
  const RoadmapStage* stage = nullptr;
  /// 1 is the first day, of the roadmap and of the stage; the last day's after its end.
  qint64 dayIndex = 0, stageDay = 0;
  qint64 length = 0;
  /// Emails a day.
  qint64 warmup = 0, campaign = 0;
  bool ended = false;
};
Standing standingOn(const DemoMailbox& mailbox, const QDate& day);

struct PlannedDay {
  QDate day;
  Standing standing;
};
/// The roadmap's days, as they were and as they will be if nothing stops it.
QList<PlannedDay> daysOf(const DemoMailbox& mailbox, const QDate& today);
RoadmapPlan planOf(const DemoMailbox& mailbox, const QDate& today);

/// The templates that every workspace begins with.
QList<RoadmapTemplate> firstTemplates(const QDate& today);
/// The one that accounts get by themselves.
const RoadmapTemplate& defaultTemplate(const DemoWorkspace& workspace);
qint64 lengthOf(const QList<RoadmapStage>& stages);

/// The settings that an account begins with.
WarmupSettings firstWarmup(const QString& mailboxId);

/// Begins anew on its first day.
void putOnRoadmap(DemoMailbox& mailbox, const RoadmapTemplate& from, const QDate& firstDay);
/// The roadmap from today on: what is changed of it changes no day before.
RoadmapLeg& changedLeg(DemoRoadmap& roadmap, const QDate& today);
void pauseRoadmap(DemoRoadmap& roadmap, const QDateTime& now, const QDate& today, const QString& by,
                  const QString& reason);

/// What is wrong with the stages; nothing when a roadmap may have them.
std::optional<QString> refusalOf(const QList<RoadmapStage>& stages);

/// Gives the youngest mailboxes of the sample roadmaps of all kinds.
void varyRoadmaps(DemoWorkspace& workspace, const QDate& today);

}  // namespace orv::demo
