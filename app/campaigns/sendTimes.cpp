#include "app/campaigns/sendTimes.h"

#include <algorithm>

#include "app/base/TimeZones.h"
#include "app/campaigns/scheduleText.h"
#include "kit/api/PlatformDate.h"

namespace orv {
namespace {

/// Beyond this nobody reads a date, and no arithmetic overflows.
constexpr qint64 longestWait = 3660 * qint64(minutesOfDay);
/// Hours that a change of the clocks leaves out are there a week later.
constexpr int daysSearched = 15;

/// Weekly hours as they can be reckoned with.
struct Hours {
  QList<qint64> days;
  int start, end;
  QTimeZone zone;
  std::optional<QDate> first, last;

  bool opensOn(QDate day) const {
    return days.contains(day.dayOfWeek()) && (!first || day >= *first) && (!last || day <= *last);
  }
  QDateTime opening(QDate day) const { return moment(day, start); }
  QDateTime closing(QDate day) const { return moment(day, end); }

 private:
  QDateTime moment(QDate day, int seconds) const {
    // The midnight that ends a day is the start of the next, whatever the clocks do there.
    if (seconds == minutesOfDay * 60) return day.addDays(1).startOfDay(zone);
    const QDateTime there(day, QTime(0, 0).addSecs(seconds), zone);
    // An hour that the clocks leave out has no moment of its own.
    return seconds > 0 && there.isValid() ? there : day.startOfDay(zone).addSecs(seconds);
  }
};

std::optional<QDate> dayIn(const std::optional<QString>& text) { return text ? parseCalendarDay(*text) : std::nullopt; }

QList<Hours> hoursOf(const CampaignSchedule& schedule) {
  QList<Hours> all;
  for (const ScheduleWindow& window : schedule.schedules) {
    const auto start = secondsOfDay(window.start), end = secondsOfDay(window.end);
    const QString zone = window.timeZone.trimmed();
    if (!start || !end || *end <= *start || !isTimeZone(zone)) continue;
    all.append(
        {window.days, *start, *end, QTimeZone(zone.toUtf8()), dayIn(schedule.startDate), dayIn(schedule.endDate)});
  }
  return all;
}

/// Invalid when the hours never open again.
QDateTime nextOpen(const Hours& hours, const QDateTime& due) {
  QDate day = due.toTimeZone(hours.zone).date();
  if (hours.first) day = std::max(day, *hours.first);
  for (int i = 0; i < daysSearched; ++i, day = day.addDays(1)) {
    if (!hours.opensOn(day)) continue;
    const QDateTime opening = hours.opening(day);
    if (const QDateTime at = std::max(opening, due); at < hours.closing(day)) return at.toUTC();
  }
  return {};
}

QDateTime nextOpen(const QList<Hours>& all, const QDateTime& due) {
  QDateTime next;
  for (const Hours& hours : all) {
    const QDateTime at = nextOpen(hours, due);
    if (at.isValid() && (!next.isValid() || at < next)) next = at;
  }
  return next;
}

}  // namespace

QList<SendTime> sendTimes(const SendPlan& plan) {
  const auto hours = hoursOf(plan.schedule);
  QList<SendTime> times;
  QDateTime before = plan.from;
  for (const qint64 wait : plan.waits) {
    SendTime time;
    if (times.isEmpty() && plan.booked) {
      time.due = time.at = std::max(*plan.booked, plan.now).toUTC();
    } else if (before.isValid()) {
      time.due = std::max(before.addSecs(std::clamp(wait, qint64(0), longestWait) * 60), plan.now).toUTC();
      time.at = nextOpen(hours, time.due);
    }
    before = time.at;
    times.append(time);
  }
  return times;
}

bool sendsOn(const CampaignSchedule& schedule, QDate day, const QTimeZone& zone) {
  const QDateTime begin = day.startOfDay(zone), end = day.addDays(1).startOfDay(zone);
  const auto hours = hoursOf(schedule);
  return std::ranges::any_of(hours, [&](const Hours& one) {
    // Where the hours are reckoned it may be the day before or after.
    for (int i = -1; i <= 1; ++i)
      if (const QDate there = day.addDays(i);
          one.opensOn(there) && one.opening(there) < end && one.closing(there) > begin)
        return true;
    return false;
  });
}

QTimeZone zoneOf(const CampaignSchedule& schedule) {
  const auto hours = hoursOf(schedule);
  return hours.isEmpty() ? QTimeZone::systemTimeZone() : hours.first().zone;
}

}  // namespace orv
