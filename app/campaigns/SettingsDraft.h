#pragma once

#include <QStringList>
#include <QVariantMap>
#include <boost/describe/class.hpp>

#include "kit/models/campaigns/campaign.h"

namespace orv {

/// A campaign's settings as they are typed: numbers, dates and addresses are text until they are saved.
struct SettingsDraft {
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
  bool operator==(const SettingsDraft&) const = default;
};
BOOST_DESCRIBE_STRUCT(SettingsDraft, (),
                      (name, tags, senders, senderTags, prioritizeNew, stopOnReply, stopOnAutoReply, stopCompanyOnReply,
                       unsubscribeHeader, dailyCap, gap, dailyLimit, maxNewPerDay, cc, bcc, startDate, endDate))

SettingsDraft draftOf(const Campaign& campaign);

/// By the names of the fields.
QVariantMap valuesOf(const SettingsDraft& draft);
/// False when there is no such field, or it has the value already.
bool setField(SettingsDraft& draft, const QString& field, const QVariant& value);

/// `draft` on a newer campaign: what differs from `base`, on which it was typed, is the person's and stays.
SettingsDraft rebased(SettingsDraft draft, const SettingsDraft& base, const SettingsDraft& fresh);

/// A sentence per field, of the fields that were changed: what the service has already is not the person's to mend.
QVariantMap problemsIn(const SettingsDraft& draft, const SettingsDraft& base);

/// What was changed, of a draft without problems. The schedule's windows are as the campaign has them.
CampaignPatch patchOf(const SettingsDraft& draft, const SettingsDraft& base, const Campaign& campaign);

}  // namespace orv
