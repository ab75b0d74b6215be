#pragma once

#include <QString>
#include <optional>

#include "kit/models/campaigns/campaignSchedule.h"

namespace orv {

constexpr int minutesOfDay = 24 * 60;

/// Seconds since midnight of a time of day, which may be the midnight that ends it. Nothing for any other text.
std::optional<int> secondsOfDay(const QString& time);
/// "09:30".
QString clockText(int minutes);
/// The same of what the service writes otherwise ("09:30:00"); other texts as they are.
QString shownTime(const QString& time);
/// "Mon–Fri", "Mon, Wed"; 1 is Monday.
QString shownDays(const QList<qint64>& days);
/// "Mon–Fri 09:00–17:00" of the first, and how many there are beside it.
QString hoursText(const QList<ScheduleWindow>& windows);

}  // namespace orv
