#include "kit/models/rampup/roadmapStage.h"

#include <algorithm>

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(RoadmapStage)
ORV_RECORD_CODERS(StagesBody)

double volumeOn(const RoadmapStage::Range& range, qint64 day, qint64 days) {
  if (days < 2) return double(range.to);
  const double part = double(std::clamp<qint64>(day, 1, days) - 1) / double(days - 1);
  return double(range.from) + double(range.to - range.from) * part;
}

}  // namespace orv
