#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/Clearable.h"

namespace orv {

/// The advanced settings; every field optional, so that a patch carries only what changed.
struct CampaignOptions {
  /// Per sending domain, the DKIM selector to sign with.
  std::optional<QMap<QString, QString>> dkimSelectors;
  std::optional<QString> pacing;
  /// Sends per day of the whole campaign.
  Clearable<qint64> dailyLimit;
  /// Leads contacted for the first time per day.
  Clearable<qint64> maxNewPerDay;
  std::optional<bool> prioritizeNew;
  std::optional<bool> stopOnAutoReply;
  std::optional<bool> stopCompanyOnReply;
  std::optional<bool> unsubscribeHeader;
  std::optional<QList<QString>> cc;
  std::optional<QList<QString>> bcc;
  /// Tags whose mailboxes send for this campaign.
  std::optional<QList<QString>> senderTags;
  bool operator==(const CampaignOptions&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignOptions, (),
                      (dkimSelectors, pacing, dailyLimit, maxNewPerDay, prioritizeNew, stopOnAutoReply,
                       stopCompanyOnReply, unsubscribeHeader, cc, bcc, senderTags))

}  // namespace orv
