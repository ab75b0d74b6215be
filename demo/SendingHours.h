#pragma once

#include <QDateTime>
#include <vector>

#include "kit/models/campaigns/campaignSchedule.h"

namespace orv::demo {

/// The hours in which a campaign sends, laid end to end: so many seconds of them stand for an instant, and back. Of
/// several schedules the first counts; without one, working days from nine to five.
class SendingHours {
 public:
  /// For instants of about the two years that begin with `from`.
  SendingHours(const std::optional<CampaignSchedule>& schedule, const std::optional<QDateTime>& from);

  /// Seconds of sending up to the instant, from a day long past.
  qint64 until(const QDateTime& instant) const;
  /// Inside the hours, and for until() of an instant never after that instant.
  QDateTime at(qint64 seconds) const;
  /// How much sending there is on average in a wait of so many minutes.
  qint64 within(qint64 minutes) const;

 private:
  qint64 offsetAt(qint64 utc) const;

  /// 0 is Monday.
  std::vector<int> m_days;
  /// Seconds of the day.
  qint64 m_start = 0, m_length = 0;
  struct Offset {
    qint64 since, seconds;
  };
  std::vector<Offset> m_offsets;
};

}  // namespace orv::demo
