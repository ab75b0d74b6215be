#pragma once

#include "app/base/Actions.h"
#include "app/base/momentText.h"
#include "kit/models/mailboxes/mailbox.h"

namespace orv {

/// Where a check of an account's connection stands.
enum class CheckState { running, connected, failed };
CheckState checkStateOf(const Mailbox& mailbox);

/// Shows a failure as one message: what was tried, and the service's sentence behind it. Silent for what the person did
/// and for what the shell tells.
bool tellInOne(Toasts& toasts, const QString& what, const APIError& error);

/// Hosts as people copy them, with scheme and path, come down to the host.
QString normalisedHost(const QString& text);

/// The service's own tracking host, which every other one has to point at.
inline constexpr QLatin1String trackingHost("track.orvella.example");

/// Most campaign emails a day, and most minutes between two.
inline constexpr int mostSendLimit = 2000;
inline constexpr int mostSendingGap = 1440;
/// A sentence when the text is no whole number from 0 to the most.
QString numberProblem(const QString& text, int most);

/// Tags that people type: blanks around them and repetitions do not count, whatever their case.
QStringList normalisedTags(const QStringList& tags);
inline constexpr int mostTags = 20;
QString tooManyTags();

/// What a tracking host may look like.
inline constexpr QLatin1String exampleHost("track.example.com");

}  // namespace orv
