#pragma once

#include <boost/describe/class.hpp>

#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "kit/models/campaigns/campaignFeed.h"
#include "kit/models/campaigns/sentMessage.h"
#include "kit/models/campaigns/sequence.h"

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
BOOST_DESCRIBE_STRUCT(EmailFigures, (),
                      (id, title, detail, variant, sent, replied, repliedRate, positive, bounced, bouncedRate,
                       bouncesHigh))
ORV_DECLARE_ROW(EmailFigures)

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
BOOST_DESCRIBE_STRUCT(EventLine, (), (id, title, detail, state, stateLabel, when))
ORV_DECLARE_ROW(EventLine)

using EmailFigureRows = RecordModel<EmailFigures>;
using EventLines = RecordModel<EventLine>;

/// Each step, followed by its variants where there is more than one.
std::vector<EmailFigures> emailFigures(const QList<CampaignStep>& steps);
std::vector<EventLine> messageLines(const QList<SentMessage>& messages);
/// The feed has no ids; a line is told apart by what happened, when and to whom.
EventLine feedLine(const FeedItem& item);

}  // namespace orv
