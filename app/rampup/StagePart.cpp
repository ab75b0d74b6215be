#include "app/rampup/StagePart.h"

#include <algorithm>

#include "app/base/shownName.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QList<StagePart> stageParts(const RoadmapPlan& plan) {
  QList<StagePart> parts;
  qint64 before = 0;
  for (const RoadmapStage& stage : plan.stages) {
    const qint64 done = plan.isDone() ? stage.days : std::clamp<qint64>(plan.dayIndex - before, 0, stage.days);
    const bool isCurrent = !plan.isDone() && plan.stage && plan.stage->key == stage.key;
    const QString facts = isCurrent ? u"Day %1 of %2"_s.arg(plan.stage->day).arg(plan.stage->days)
                                    : Format::counted(stage.days, u"day"_s, u"days"_s);
    parts.append({.name = shownName(stage.name),
                  .facts = facts,
                  .days = int(stage.days),
                  .done = int(done),
                  .current = isCurrent});
    before += stage.days;
  }
  return parts;
}

}  // namespace orv
