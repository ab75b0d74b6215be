#pragma once

#include <QDateTime>
#include <QList>
#include <QTimeZone>
#include <optional>

#include "kit/models/campaigns/campaignSchedule.h"

namespace orv {

/// What the dates of a lead's emails are reckoned from.
struct SendPlan {
  /// In minutes, of the emails that the lead has not got yet. One below zero is none.
  QList<qint64> waits;
  CampaignSchedule schedule;
  /// When the first of the waits began.
  QDateTime from;
  QDateTime now;
  /// When the service means to send the first of them; the waits decide where it has not said.
  std::optional<QDateTime> booked;
  bool operator==(const SendPlan&) const = default;
};

struct SendTime {
  /// The wait is over. Invalid when the email before never goes out.
  QDateTime due;
  /// The first moment from then on at which the schedule lets it out; invalid when there is none.
  QDateTime at;
  bool operator==(const SendTime&) const = default;
};

/// One for each wait. An estimate: the service also spreads emails over the hours and keeps to its limits.
QList<SendTime> sendTimes(const SendPlan& plan);

/// Anything of that day, as it is reckoned in `zone`, lies in the schedule's hours and dates.
bool sendsOn(const CampaignSchedule& schedule, QDate day, const QTimeZone& zone);

/// The zone of the first hours that can be understood, in which the days are told; the computer's own without any.
QTimeZone zoneOf(const CampaignSchedule& schedule);

}  // namespace orv
