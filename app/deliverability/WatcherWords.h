#pragma once

#include <QString>
#include <optional>

#include "kit/models/deliverability/deliverabilityReport.h"

namespace orv {

/// What the placement watcher's words mean on screen.
namespace WatcherWords {

/// A word that this build does not know is shown with a capital.
QString stageLabel(const QString& stage);
/// Of the stage's badge.
QString stageTone(const QString& stage);
/// Under which of the tabs it counts: "live", "rampup" or "repair"; empty for none of them.
QString groupOf(const QString& stage);

/// "79.6%" of 0.796; empty where there is none.
QString percent(const std::optional<double>& fraction);
/// The placement that asks for attention.
bool isLow(const std::optional<double>& fraction);
/// "From 98 checks, last 7 days".
QString checks(qint64 count);
/// The report in the watcher's voice.
QString summary(const DeliverabilityReport& report);
/// "Today, 09:20", else "18 Nov, 09:10"; empty for no instant.
QString moment(const std::optional<QString>& instant, const QDateTime& now);
/// "today, 09:20" behind its words, or "not yet".
QString lastScan(const std::optional<QString>& instant, const QDateTime& now);

}  // namespace WatcherWords
}  // namespace orv
