#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include "kit/models/rampup/roadmapPlan.h"

namespace orv {

/// A stage as the bars of a roadmap take it.
struct StagePart {
  Q_GADGET
  Q_PROPERTY(QString name MEMBER name)
  Q_PROPERTY(QString facts MEMBER facts)
  Q_PROPERTY(int days MEMBER days)
  /// How many of the days are over.
  Q_PROPERTY(int done MEMBER done)
  Q_PROPERTY(bool current MEMBER current)

 public:
  QString name{};
  QString facts{};
  int days = 0;
  int done = 0;
  bool current = false;

  bool operator==(const StagePart&) const = default;
};

/// The stages of a plan from its first day to its last.
QList<StagePart> stageParts(const RoadmapPlan& plan);

}  // namespace orv
