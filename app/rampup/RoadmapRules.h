#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/models/rampup/roadmapStage.h"

namespace orv {

/// A stage while it is typed.
struct TypedStage {
  QString key;
  QString name;
  QString days;
  QString warmupFrom;
  QString warmupTo;
  QString campaignFrom;
  QString campaignTo;
  bool operator==(const TypedStage&) const = default;
};
BOOST_DESCRIBE_STRUCT(TypedStage, (), (key, name, days, warmupFrom, warmupTo, campaignFrom, campaignTo))

TypedStage typedStage(const RoadmapStage& stage);

/// What of it can be read; a number that can't be is 0.
RoadmapStage readStage(const TypedStage& stage);
QList<RoadmapStage> readStages(const QList<TypedStage>& stages);

/// Why a roadmap can't be saved, with where that is: -1 and an empty field are the roadmap as a whole.
struct RoadmapProblem {
  QString message;
  int stage = -1;
  /// A member of TypedStage.
  QString field = {};
  bool operator==(const RoadmapProblem&) const = default;
};

namespace RoadmapRules {

inline constexpr qsizetype mostStages = 6;
inline constexpr qsizetype longestName = 60;
inline constexpr int mostDaysAStage = 90;
inline constexpr int mostDays = 180;
inline constexpr int mostADay = 2000;

/// The first rule that the stages break.
std::optional<RoadmapProblem> firstProblem(const QList<TypedStage>& stages);

}  // namespace RoadmapRules
}  // namespace orv
