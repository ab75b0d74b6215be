#pragma once

#include "kit/api/JSONValue.h"
#include "kit/models/campaigns/campaignStatus.h"
#include "kit/models/leads/lead.h"

namespace orv {

/// A campaign that a lead is or was in.
struct LeadCampaignHistory {
  QString id;
  QString name;
  CampaignStatus campaignStatus;
  /// How the lead fares there: words of its own, not those of a campaign's leads.
  QString status;
  qint64 currentStep = 0;
  QString enrolledAt;
  std::optional<QString> lastSentAt;
  std::optional<QString> repliedAt;
  bool operator==(const LeadCampaignHistory&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadCampaignHistory, (),
                      (id, name, campaignStatus, status, currentStep, enrolledAt, lastSentAt, repliedAt))

/// One lead in full.
struct LeadRecord : Lead {
  struct LeadListRef {
    QString id;
    QString name;
    bool operator==(const LeadListRef&) const = default;
  };
  std::optional<QString> leadSource;
  std::optional<QString> listCode;
  std::optional<QString> batchId;
  std::optional<QString> dateScraped;
  /// The columns of an import that are no field of a lead.
  std::optional<QMap<QString, JSONValue>> extra;
  QList<LeadListRef> lists;
  QList<LeadCampaignHistory> campaigns;
  QString updatedAt;
  bool operator==(const LeadRecord&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadRecord::LeadListRef, (), (id, name))
BOOST_DESCRIBE_STRUCT(LeadRecord, (Lead),
                      (leadSource, listCode, batchId, dateScraped, extra, lists, campaigns, updatedAt))

}  // namespace orv
