#pragma once

#include <QString>
#include <optional>

namespace orv {

struct Mailbox;

/// How far an account has come on its roadmap, as every screen calls it.
enum class RampupPhase { pending, warmup, rampup, live };

/// By the words of its roadmap: the plan's state, and the kind of the stage it is in.
RampupPhase rampupPhase(const QString& state, const std::optional<QString>& stageKey);
RampupPhase rampupPhase(const Mailbox& mailbox);
/// "warmup"
QString phaseWord(RampupPhase phase);
/// "Warm-up"
QString phaseLabel(RampupPhase phase);

}  // namespace orv
