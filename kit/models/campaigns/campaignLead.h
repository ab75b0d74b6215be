#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/JSONValue.h"
#include "kit/models/campaigns/leadStatus.h"

namespace orv {

/// A lead as enrolled in a campaign.
struct CampaignLead {
  QString id;
  QString email;
  std::optional<QString> verification;
  /// The lead's mail provider.
  std::optional<QString> esp;
  std::optional<QString> website;
  std::optional<QString> firstName;
  std::optional<QString> lastName;
  std::optional<QString> company;
  std::optional<QString> title;
  /// Custom fields, the merge variables.
  std::optional<QMap<QString, JSONValue>> data;
  LeadStatus status;
  std::optional<QString> stopReason;
  std::optional<QString> sentiment;
  /// Position of the last step sent.
  std::optional<qint64> currentStep;
  std::optional<QString> nextSendAt;
  /// The mailbox that writes to this lead.
  std::optional<QString> senderAddress;
  std::optional<QString> source;
  std::optional<QString> enrolledAt;
  std::optional<QString> firstSentAt;
  std::optional<QString> lastSentAt;
  std::optional<QString> repliedAt;
  std::optional<QString> inboxThreadId;
  std::optional<QString> interest;
  std::optional<QString> removedAt;
  bool operator==(const CampaignLead&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignLead, (),
                      (id, email, verification, esp, website, firstName, lastName, company, title, data, status,
                       stopReason, sentiment, currentStep, nextSendAt, senderAddress, source, enrolledAt, firstSentAt,
                       lastSentAt, repliedAt, inboxThreadId, interest, removedAt))

struct LeadPage {
  QList<CampaignLead> items;
  /// Absent on the last page.
  std::optional<QString> nextCursor;
  /// Leads per status word.
  std::optional<QMap<QString, qint64>> counts;
  std::optional<qint64> archivedCount;
  bool operator==(const LeadPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadPage, (), (items, nextCursor, counts, archivedCount))

struct LeadActivity {
  QString kind;
  QString at;
  std::optional<qint64> step;
  std::optional<QString> variant;
  std::optional<QString> subject;
  std::optional<QString> detail;
  /// The sending address.
  std::optional<QString> account;
  std::optional<QString> messageId;
  bool operator==(const LeadActivity&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadActivity, (), (kind, at, step, variant, subject, detail, account, messageId))

struct LeadDetail {
  struct Next {
    qint64 step = 0;
    std::optional<QString> at;
    bool operator==(const Next&) const = default;
  };
  CampaignLead lead;
  std::optional<qint64> steps;
  std::optional<Next> next;
  QList<LeadActivity> activity;
  bool operator==(const LeadDetail&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadDetail::Next, (), (step, at))
BOOST_DESCRIBE_STRUCT(LeadDetail, (), (lead, steps, next, activity))

struct LeadPatchBody {
  QMap<QString, QString> data;
  bool operator==(const LeadPatchBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadPatchBody, (), (data))

}  // namespace orv
