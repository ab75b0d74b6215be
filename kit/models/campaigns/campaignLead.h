#pragma once

#include "kit/models/campaigns/campaign.h"

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

/// One line of a campaign's activity feed.
struct FeedItem {
  struct Who {
    QString id;
    QString email;
    std::optional<QString> name;
    bool operator==(const Who&) const = default;
  };
  QString kind;
  QString at;
  std::optional<qint64> step;
  std::optional<QString> variant;
  std::optional<QString> subject;
  std::optional<QString> detail;
  std::optional<QString> account;
  std::optional<QString> messageId;
  std::optional<Who> lead;
  /// How many like events the line stands for.
  std::optional<qint64> count;
  bool operator==(const FeedItem&) const = default;
};
BOOST_DESCRIBE_STRUCT(FeedItem::Who, (), (id, email, name))
BOOST_DESCRIBE_STRUCT(FeedItem, (), (kind, at, step, variant, subject, detail, account, messageId, lead, count))

struct FeedPage {
  QList<FeedItem> items;
  std::optional<QString> nextCursor;
  bool operator==(const FeedPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(FeedPage, (), (items, nextCursor))

struct SentMessage {
  QString id;
  std::optional<QString> leadId;
  QString to;
  QString from;
  std::optional<qint64> step;
  std::optional<QString> variant;
  std::optional<QString> subject;
  QString state;
  std::optional<QString> scheduledAt;
  std::optional<QString> sentAt;
  std::optional<QString> repliedAt;
  std::optional<QString> bouncedAt;
  std::optional<QString> error;
  bool operator==(const SentMessage&) const = default;
};
BOOST_DESCRIBE_STRUCT(SentMessage, (),
                      (id, leadId, to, from, step, variant, subject, state, scheduledAt, sentAt, repliedAt, bouncedAt,
                       error))

struct MessagePage {
  QList<SentMessage> items;
  std::optional<QString> nextCursor;
  bool operator==(const MessagePage&) const = default;
};
BOOST_DESCRIBE_STRUCT(MessagePage, (), (items, nextCursor))

struct AddLeadsResult {
  struct Skipped {
    qint64 alreadyInCampaign = 0;
    qint64 inOtherCampaign = 0;
    qint64 inList = 0;
    qint64 suppressed = 0;
    qint64 invalid = 0;
    qint64 duplicateInFile = 0;
    bool operator==(const Skipped&) const = default;
  };
  qint64 added = 0;
  Skipped skipped;
  qint64 total = 0;
  /// The columns found in an uploaded file.
  std::optional<QList<QString>> columns;
  bool operator==(const AddLeadsResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(AddLeadsResult::Skipped, (),
                      (alreadyInCampaign, inOtherCampaign, inList, suppressed, invalid, duplicateInFile))
BOOST_DESCRIBE_STRUCT(AddLeadsResult, (), (added, skipped, total, columns))

struct BulkResult {
  qint64 changed = 0;
  qint64 skipped = 0;
  bool operator==(const BulkResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(BulkResult, (), (changed, skipped))

struct MoveResult {
  qint64 moved = 0;
  qint64 skipped = 0;
  bool operator==(const MoveResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(MoveResult, (), (moved, skipped))

struct RestoredResult {
  qint64 restored = 0;
  bool operator==(const RestoredResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(RestoredResult, (), (restored))

// Request bodies.

struct BulkLeadsBody {
  QString action;
  QList<QString> leadIds;
  bool operator==(const BulkLeadsBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(BulkLeadsBody, (), (action, leadIds))

struct MoveLeadsBody {
  QList<QString> leadIds;
  QString toCampaignId;
  bool operator==(const MoveLeadsBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(MoveLeadsBody, (), (leadIds, toCampaignId))

struct LeadIdsBody {
  QList<QString> leadIds;
  bool operator==(const LeadIdsBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadIdsBody, (), (leadIds))

struct LeadPatchBody {
  QMap<QString, QString> data;
  bool operator==(const LeadPatchBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadPatchBody, (), (data))

/// Where added leads come from. On the wire one flat object whose `source` names the choice.
struct AddLeadsBody {
  struct List {
    QString listId;
    QString dedupe;
  };
  struct Csv {
    /// The whole file's text.
    QString csv;
    std::optional<QString> fileName;
    QString dedupe;
  };
  struct Manual {
    QString email;
    QMap<QString, QString> data;
    QString dedupe;
  };
  struct Leads {
    QList<QString> leadIds;
    bool allowOtherCampaigns = false;
  };
  std::variant<List, Csv, Manual, Leads> source;
};
BOOST_DESCRIBE_STRUCT(AddLeadsBody::List, (), (listId, dedupe))
BOOST_DESCRIBE_STRUCT(AddLeadsBody::Csv, (), (csv, fileName, dedupe))
BOOST_DESCRIBE_STRUCT(AddLeadsBody::Manual, (), (email, data, dedupe))
BOOST_DESCRIBE_STRUCT(AddLeadsBody::Leads, (), (leadIds, allowOtherCampaigns))

namespace Requests {

/// What part of a campaign's leads a page holds.
struct LeadQuery {
  qint64 limit = 50;
  std::optional<LeadStatus> status;
  bool archived = false;
  std::optional<QString> cursor;
};

Request<LeadPage> listLeads(const QString& id, const LeadQuery& query);
Request<AddLeadsResult> addLeads(const QString& id, const AddLeadsBody& body);
Request<LeadDetail> leadDetail(const QString& id, const QString& leadId);
Request<CampaignLead> editLeadData(const QString& id, const QString& leadId, const LeadPatchBody& body);
Request<Empty> removeLead(const QString& id, const QString& leadId, bool permanent);
Request<RestoredResult> restoreLeads(const QString& id, const LeadIdsBody& body);
Request<MoveResult> moveLeads(const QString& id, const MoveLeadsBody& body);
Request<BulkResult> bulkLeads(const QString& id, const BulkLeadsBody& body);
Request<FeedPage> campaignActivity(const QString& id, qint64 limit, std::optional<QString> cursor);
Request<MessagePage> campaignMessages(const QString& id);

}  // namespace Requests
}  // namespace orv
