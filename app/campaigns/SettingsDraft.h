#pragma once

#include <QStringList>
#include <boost/describe/class.hpp>

#include "app/base/Draft.h"
#include "kit/models/campaigns/campaign.h"

namespace orv {

/// A campaign's settings as they are typed: numbers, dates and addresses are text until they are saved.
struct SettingsFields {
  QString name;
  /// Sorted, as all lists here, so that ticking and unticking again is no change.
  QStringList tags;
  /// Ids of the mailboxes picked one by one.
  QStringList senders;
  QStringList senderTags;
  bool prioritizeNew = false;
  bool stopOnReply = false;
  bool stopOnAutoReply = false;
  bool stopCompanyOnReply = false;
  bool unsubscribeHeader = false;
  QString dailyCap;
  /// Minutes.
  QString gap;
  QString dailyLimit;
  QString maxNewPerDay;
  /// Separated by commas.
  QString cc;
  QString bcc;
  /// "2026-11-23", or empty.
  QString startDate;
  QString endDate;
  bool operator==(const SettingsFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(SettingsFields, (),
                      (name, tags, senders, senderTags, prioritizeNew, stopOnReply, stopOnAutoReply, stopCompanyOnReply,
                       unsubscribeHeader, dailyCap, gap, dailyLimit, maxNewPerDay, cc, bcc, startDate, endDate))

using SettingsDraft = DraftOf<SettingsFields>;

SettingsFields settingsOf(const Campaign& campaign);

/// A sentence per field, of the fields that were changed: what the service has already is not the person's to mend.
QVariantMap problemsIn(const SettingsFields& draft, const SettingsFields& base);

/// What was changed, of fields without problems. The schedule's windows are as the campaign has them.
CampaignPatch patchOf(const SettingsFields& draft, const SettingsFields& base, const Campaign& campaign);

/// Says what somebody else made of fields that were typed in as well; empty when there are none.
QString rivalNote(const QVariantMap& rivals);

/// What a campaign that has no hours yet is offered.
QList<ScheduleWindow> offeredHours();

}  // namespace orv
