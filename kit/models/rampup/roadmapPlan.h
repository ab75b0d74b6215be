#pragma once

#include <optional>

#include "kit/models/rampup/roadmapStage.h"

namespace orv {

/// The roadmap that an account follows.
struct RoadmapPlan {
  struct StageNow {
    QString key;
    QString name;
    qint64 day = 0;
    qint64 days = 0;
    bool operator==(const StageNow&) const = default;
  };

  QString id;
  /// "scheduled", "running", "paused" or "done".
  QString state;
  std::optional<QString> templateId;
  QString templateName;
  QList<RoadmapStage> stages;
  /// A date.
  QString startedOn;
  qint64 shiftDays = 0;
  std::optional<QString> pausedAt;
  std::optional<QString> pausedBy;
  std::optional<QString> pauseReason;
  /// In days.
  qint64 length = 0;
  qint64 dayIndex = 0;
  std::optional<StageNow> stage;
  std::optional<qint64> warmupToday;
  qint64 campaignCapToday = 0;
  /// A date.
  QString endsOn;
  qint64 version = 0;

  bool isScheduled() const { return state == QLatin1String("scheduled"); }
  bool isPaused() const { return state == QLatin1String("paused"); }
  bool isDone() const { return state == QLatin1String("done"); }
  /// The service itself paused it, because too little of its mail arrived.
  bool isProtected() const { return isPaused() && pausedBy == QLatin1String("auto"); }
  bool operator==(const RoadmapPlan&) const = default;
};
BOOST_DESCRIBE_STRUCT(RoadmapPlan::StageNow, (), (key, name, day, days))
BOOST_DESCRIBE_STRUCT(RoadmapPlan, (),
                      (id, state, templateId, templateName, stages, startedOn, shiftDays, pausedAt, pausedBy,
                       pauseReason, length, dayIndex, stage, warmupToday, campaignCapToday, endsOn, version))

}  // namespace orv
