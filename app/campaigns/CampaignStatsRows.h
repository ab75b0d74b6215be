#pragma once

#include "app/shell/RecordModel.h"
#include "kit/models/campaignLeads.h"
#include "kit/models/campaigns.h"

namespace orv {

/// A row of the table per email of the sequence: a step, or one of its variants. All of it as it is shown.
struct EmailFigures {
  QString id;
  QString title;
  QString detail;
  bool variant = false;
  QString sent;
  QString replied;
  QString repliedRate;
  QString positive;
  QString bounced;
  QString bouncedRate;
  bool bouncesHigh = false;
  bool operator==(const EmailFigures&) const = default;
};

/// A row of what happened: an email that was booked or sent, a line of the feed.
struct EventLine {
  QString id;
  QString title;
  QString detail;
  /// "sent", "failed" or "unknown".
  QString state;
  QString stateLabel;
  QString when;
  bool operator==(const EventLine&) const = default;
};

template <>
const QList<QByteArray>& fieldNames<EmailFigures>();
template <>
QVariant fieldVariant<EmailFigures>(const EmailFigures& row, int field);
template <>
const QList<QByteArray>& fieldNames<EventLine>();
template <>
QVariant fieldVariant<EventLine>(const EventLine& line, int field);

using EmailFigureRows = RecordModel<EmailFigures>;
using EventLines = RecordModel<EventLine>;

/// Each step, followed by its variants where there is more than one.
std::vector<EmailFigures> emailFigures(const QList<CampaignStep>& steps);
std::vector<EventLine> messageLines(const QList<SentMessage>& messages);
/// The feed has no ids; a line is told apart by its place.
std::vector<EventLine> feedLines(const QList<FeedItem>& items);

}  // namespace orv
