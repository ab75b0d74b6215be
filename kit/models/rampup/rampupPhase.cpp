#include "kit/models/rampup/rampupPhase.h"

#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/rampup/roadmapStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

RampupPhase rampupPhase(const QString& state, const std::optional<QString>& stageKey) {
  if (state == "scheduled"_L1) return RampupPhase::pending;
  if (state == "done"_L1 || stageKey == RoadmapStage::full) return RampupPhase::live;
  if (stageKey == RoadmapStage::slowRamp) return RampupPhase::rampup;
  return stageKey == RoadmapStage::warmupOnly ? RampupPhase::warmup : RampupPhase::pending;
}

RampupPhase rampupPhase(const Mailbox& mailbox) {
  return mailbox.rampup ? rampupPhase(mailbox.rampup->state, mailbox.rampup->stageKey) : RampupPhase::pending;
}

QString phaseWord(RampupPhase phase) {
  switch (phase) {
    case RampupPhase::pending:
      return u"pending"_s;
    case RampupPhase::warmup:
      return u"warmup"_s;
    case RampupPhase::rampup:
      return u"rampup"_s;
    case RampupPhase::live:
      return u"live"_s;
  }
  Q_UNREACHABLE();
}

QString phaseLabel(RampupPhase phase) {
  switch (phase) {
    case RampupPhase::pending:
      return u"Pending"_s;
    case RampupPhase::warmup:
      return u"Warm-up"_s;
    case RampupPhase::rampup:
      return u"Ramp-up"_s;
    case RampupPhase::live:
      return u"Live-ready"_s;
  }
  Q_UNREACHABLE();
}

}  // namespace orv
