#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// Weekly hours in which emails go out, in the window's own time zone.
struct ScheduleWindow {
  QString name;
  QList<qint64> days;
  /// Local time of day.
  QString start;
  QString end;
  /// IANA name.
  QString timeZone;
  bool operator==(const ScheduleWindow&) const = default;
};
BOOST_DESCRIBE_STRUCT(ScheduleWindow, (), (name, days, start, end, timeZone))

struct CampaignSchedule {
  std::optional<QString> startDate;
  std::optional<QString> endDate;
  QList<ScheduleWindow> schedules;
  bool operator==(const CampaignSchedule&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignSchedule, (), (startDate, endDate, schedules))

}  // namespace orv
