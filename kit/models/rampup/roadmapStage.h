#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>

namespace orv {

/// A stretch of a roadmap.
struct RoadmapStage {
  /// Emails a day, moving evenly from the stage's first day to its last.
  struct Range {
    qint64 from = 0;
    qint64 to = 0;
    bool operator==(const Range&) const = default;
  };
  /// The kinds that there are. A roadmap has each of them once at most.
  static constexpr QLatin1String warmupOnly{"warmup"}, slowRamp{"slow_ramp"}, full{"full"};

  QString key;
  QString name;
  qint64 days = 0;
  Range warmup;
  Range campaign;
  bool operator==(const RoadmapStage&) const = default;
};
BOOST_DESCRIBE_STRUCT(RoadmapStage::Range, (), (from, to))
BOOST_DESCRIBE_STRUCT(RoadmapStage, (), (key, name, days, warmup, campaign))

struct StagesBody {
  QList<RoadmapStage> stages;
  bool operator==(const StagesBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(StagesBody, (), (stages))

/// The volume of a range on a day of its stage; the first day is 1.
double volumeOn(const RoadmapStage::Range& range, qint64 day, qint64 days);

}  // namespace orv
