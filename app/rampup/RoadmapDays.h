#pragma once

#include <QStringList>
#include <QVariantList>

#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/rampup/StagePart.h"
#include "kit/models/rampup/rampupDetail.h"

namespace orv {

/// A roadmap day by day, as the chart and the stage band take it.
struct RoadmapDays {
  explicit RoadmapDays(const RampupDetail& detail);

  QStringList days;
  /// What was sent and what was planned, of each kind.
  QVariantList warmup;
  QVariantList campaign;
  /// Both together, for a table.
  QVariantList all;
  /// Of each day its stage.
  QStringList notes;
  /// -1 when today is none of them.
  int today = -1;
  QList<StagePart> stages;
};

}  // namespace orv
