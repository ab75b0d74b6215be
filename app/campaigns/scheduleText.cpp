#include "app/campaigns/scheduleText.h"

#include <QRegularExpression>
#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace orv {

std::optional<int> secondsOfDay(const QString& time) {
  static const QRegularExpression form(
      QRegularExpression::anchoredPattern(u"([0-9]{1,2}):([0-9]{2})(?::([0-9]{2})(?:\\.[0-9]+)?)?"_s));
  const auto match = form.match(time.trimmed());
  if (!match.hasMatch()) return std::nullopt;
  const int hours = match.captured(1).toInt(), minutes = match.captured(2).toInt(), seconds = match.captured(3).toInt();
  const int whole = (hours * 60 + minutes) * 60 + seconds;
  if (minutes > 59 || seconds > 59 || whole > minutesOfDay * 60) return std::nullopt;
  return whole;
}

QString clockText(int minutes) { return u"%1:%2"_s.arg(minutes / 60, 2, 10, '0'_L1).arg(minutes % 60, 2, 10, '0'_L1); }

QString shownTime(const QString& time) {
  const auto seconds = secondsOfDay(time);
  return seconds ? clockText(*seconds / 60) : time;
}

QString shownDays(const QList<qint64>& days) {
  static const QStringList names{u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s, u"Sun"_s};
  QStringList parts;
  for (qsizetype first = 0, next = 0; first < days.size(); first = next) {
    for (next = first + 1; next < days.size() && days[next] == days[next - 1] + 1;) ++next;
    const QString from = names.value(qsizetype(days[first]) - 1), to = names.value(qsizetype(days[next - 1]) - 1);
    if (next - first > 2)
      parts.append(from + u'–' + to);
    else
      parts += next - first == 2 ? QStringList{from, to} : QStringList{from};
  }
  return parts.join(u", "_s);
}

QString hoursText(const QList<ScheduleWindow>& windows) {
  const ScheduleWindow& first = windows.first();
  const QString more = windows.size() > 1 ? u" and %1 more"_s.arg(windows.size() - 1) : QString();
  return shownDays(first.days) + u' ' + shownTime(first.start) + u'–' + shownTime(first.end) + more;
}

}  // namespace orv
