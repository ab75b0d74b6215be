#include "demo/SendingHours.h"

#include <QTimeZone>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qint64 secondsOfDay = 86'400, daysOfWeek = 7;

/// A Monday before anything that is asked about.
qint64 referenceDay() {
  static const qint64 seconds = QDateTime(QDate(2020, 1, 6), QTime(0, 0), Qt::UTC).toSecsSinceEpoch();
  return seconds;
}

qint64 secondsOfClock(const QString& time, qint64 otherwise) {
  const QTime parsed = QTime::fromString(time.left(5), u"HH:mm"_s);
  return parsed.isValid() ? parsed.msecsSinceStartOfDay() / 1000 : otherwise;
}

}  // namespace

SendingHours::SendingHours(const std::optional<CampaignSchedule>& schedule, const std::optional<QDateTime>& from) {
  const bool isSet = schedule && !schedule->schedules.isEmpty() && !schedule->schedules.first().days.isEmpty();
  const ScheduleWindow window =
      isSet ? schedule->schedules.first() : ScheduleWindow{{}, {1, 2, 3, 4, 5}, u"09:00"_s, u"17:00"_s, u"UTC"_s};
  for (const qint64 day : window.days) m_days.push_back(int(day - 1));
  std::ranges::sort(m_days);
  m_start = secondsOfClock(window.start, 9 * 3600);
  m_length = std::max<qint64>(3600, secondsOfClock(window.end, secondsOfDay) - m_start);
  const QTimeZone zone(window.timeZone.toLatin1());
  if (!zone.isValid() || !from) return;
  m_offsets.push_back({0, zone.offsetFromUtc(*from)});
  for (const auto& change : zone.transitions(*from, from->addYears(2)))
    m_offsets.push_back({change.atUtc.toSecsSinceEpoch(), change.offsetFromUtc});
}

qint64 SendingHours::offsetAt(qint64 utc) const {
  qint64 offset = 0;
  for (const Offset& one : m_offsets)
    if (one.since <= utc) offset = one.seconds;
  return offset;
}

qint64 SendingHours::until(const QDateTime& instant) const {
  const qint64 utc = instant.toSecsSinceEpoch(), local = std::max<qint64>(0, utc + offsetAt(utc) - referenceDay());
  const qint64 day = local / secondsOfDay, weekday = day % daysOfWeek;
  const auto today = std::ranges::lower_bound(m_days, int(weekday));
  const qint64 days = day / daysOfWeek * qint64(m_days.size()) + (today - m_days.begin());
  const bool isOpen = today != m_days.end() && *today == weekday;
  return days * m_length + (isOpen ? std::clamp<qint64>(local % secondsOfDay - m_start, 0, m_length) : 0);
}

QDateTime SendingHours::at(qint64 seconds) const {
  // What a day ends with is still that day's, and not the beginning of the next.
  const qint64 last = std::max<qint64>(0, seconds - 1), day = last / m_length, count = qint64(m_days.size());
  const qint64 local = referenceDay() + (day / count * daysOfWeek + m_days[size_t(day % count)]) * secondsOfDay +
                       m_start + last % m_length + 1;
  return QDateTime::fromSecsSinceEpoch(local - offsetAt(local), Qt::UTC);
}

qint64 SendingHours::within(qint64 minutes) const {
  return minutes * 60 * qint64(m_days.size()) * m_length / (daysOfWeek * secondsOfDay);
}

}  // namespace orv::demo
