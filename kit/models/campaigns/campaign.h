#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>
#include <variant>

#include "kit/api/APIRequest.h"
#include "kit/api/Clearable.h"
#include "kit/api/JSONValue.h"
#include "kit/api/OpenWord.h"

namespace orv {

struct CampaignStatus : OpenWord {
  using OpenWord::OpenWord;
  /// What the screen says; an unknown word stands as it is.
  QString label() const;
};

/// State of one lead inside one campaign.
struct LeadStatus : OpenWord {
  using OpenWord::OpenWord;
  QString label() const;
};

/// One row of the campaigns list.
struct CampaignSummary {
  QString id;
  /// The workspace's running number of the campaign.
  std::optional<qint64> number;
  QString name;
  CampaignStatus status;
  qint64 senders = 0;
  qint64 steps = 0;
  qint64 leads = 0;
  /// Leads that have finished the sequence.
  std::optional<qint64> done;
  qint64 sent = 0;
  qint64 replied = 0;
  /// Replies labelled positive.
  qint64 positive = 0;
  qint64 bounced = 0;
  std::optional<QString> launchedAt;
  QString createdAt;
  std::optional<QList<QString>> tags;
  std::optional<qint64> version;
  std::optional<QString> archivedAt;
  bool operator==(const CampaignSummary&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignSummary, (),
                      (id, number, name, status, senders, steps, leads, done, sent, replied, positive, bounced,
                       launchedAt, createdAt, tags, version, archivedAt))

struct CampaignList {
  QList<CampaignSummary> items;
  /// How many archived campaigns there are.
  std::optional<qint64> archivedCount;
  bool operator==(const CampaignList&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignList, (), (items, archivedCount))

/// Weekly hours in which emails go out, in the window's own time zone.
struct ScheduleWindow {
  QString name;
  QList<qint64> days;
  /// Local time of day.
  QString start;
  QString end;
  /// IANA name.
  QString timeZone;
  bool operator==(const ScheduleWindow&) const = default;
};
BOOST_DESCRIBE_STRUCT(ScheduleWindow, (), (name, days, start, end, timeZone))

struct CampaignSchedule {
  std::optional<QString> startDate;
  std::optional<QString> endDate;
  QList<ScheduleWindow> schedules;
  bool operator==(const CampaignSchedule&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignSchedule, (), (startDate, endDate, schedules))

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

/// One sender mailbox as the campaign sees it.
struct CampaignSender {
  QString mailboxId;
  QString address;
  QString displayName;
  QString status;
  bool ready = false;
  /// Why not ready.
  std::optional<QString> reason;
  qint64 capToday = 0;
  std::optional<qint64> rampToday;
  qint64 sentToday = 0;
  /// Sends because it carries one of the sender tags, not because it was picked.
  bool viaTag = false;
  std::optional<QString> signature;
  bool operator==(const CampaignSender&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignSender, (),
                      (mailboxId, address, displayName, status, ready, reason, capToday, rampToday, sentToday, viaTag,
                       signature))

struct Stats4 {
  qint64 sent = 0;
  qint64 replied = 0;
  qint64 positive = 0;
  qint64 bounced = 0;
  bool operator==(const Stats4&) const = default;
};
BOOST_DESCRIBE_STRUCT(Stats4, (), (sent, replied, positive, bounced))

struct CampaignVariant {
  QString id;
  /// The variant's letter.
  QString label;
  QString subject;
  QString body;
  /// Share of sends relative to the step's other enabled variants.
  qint64 weight = 0;
  bool enabled = false;
  std::optional<Stats4> stats;
  bool operator==(const CampaignVariant&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignVariant, (), (id, label, subject, body, weight, enabled, stats))

struct CampaignStep {
  QString id;
  /// From 1.
  qint64 position = 0;
  /// Wait after the previous step; the first step's wait counts from enrolment.
  qint64 delayMinutes = 0;
  bool sameThread = false;
  QList<CampaignVariant> variants;
  std::optional<Stats4> stats;
  bool operator==(const CampaignStep&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignStep, (), (id, position, delayMinutes, sameThread, variants, stats))

struct QcCheck {
  QString key;
  QString label;
  QString status;
  QString detail;
  /// The offending items.
  std::optional<QList<QString>> items;
  bool operator==(const QcCheck&) const = default;
};
BOOST_DESCRIBE_STRUCT(QcCheck, (), (key, label, status, detail, items))

/// One email rendered for a lead.
struct QcPreview {
  qint64 position = 0;
  QString label;
  QString subject;
  QString body;
  /// The variant that this lead would get.
  bool picked = false;
  QList<QString> warnings;
  bool operator==(const QcPreview&) const = default;
};
BOOST_DESCRIBE_STRUCT(QcPreview, (), (position, label, subject, body, picked, warnings))

/// Result of the check before a launch.
struct Qc {
  /// Leads outside the workspace's own domains, who would get a real email.
  struct External {
    qint64 count = 0;
    QList<QString> sample;
    bool operator==(const External&) const = default;
  };
  QString checkedAt;
  bool passed = false;
  /// False once the campaign changed after the check.
  bool current = false;
  QList<QcCheck> checks;
  std::optional<QList<QcPreview>> previews;
  std::optional<External> external;
  /// The sample lead's address.
  std::optional<QString> lead;
  bool operator==(const Qc&) const = default;
};
BOOST_DESCRIBE_STRUCT(Qc::External, (), (count, sample))
BOOST_DESCRIBE_STRUCT(Qc, (), (checkedAt, passed, current, checks, previews, external, lead))

struct LeadCounts {
  qint64 total = 0;
  qint64 queued = 0;
  qint64 active = 0;
  qint64 paused = 0;
  qint64 completed = 0;
  qint64 replied = 0;
  qint64 bounced = 0;
  qint64 unsubscribed = 0;
  qint64 stopped = 0;
  bool operator==(const LeadCounts&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadCounts, (),
                      (total, queued, active, paused, completed, replied, bounced, unsubscribed, stopped))

struct CampaignStats {
  LeadCounts leads;
  qint64 sent = 0;
  qint64 delivered = 0;
  qint64 bounced = 0;
  qint64 replied = 0;
  qint64 positive = 0;
  /// Booked and not yet made.
  qint64 scheduled = 0;
  qint64 failed = 0;
  bool operator==(const CampaignStats&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignStats, (), (leads, sent, delivered, bounced, replied, positive, scheduled, failed))

/// Reply labels that enrol a lead into a subsequence.
struct CampaignTrigger {
  QList<QString> labels;
  bool operator==(const CampaignTrigger&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignTrigger, (), (labels))

struct Campaign {
  /// The last booking run.
  struct Plan {
    QString at;
    qint64 planned = 0;
    std::optional<QString> note;
    bool operator==(const Plan&) const = default;
  };
  /// Set on a subsequence.
  struct Parent {
    QString id;
    std::optional<qint64> number;
    QString name;
    bool operator==(const Parent&) const = default;
  };

  QString id;
  std::optional<qint64> number;
  QString name;
  CampaignStatus status;
  std::optional<CampaignSchedule> schedule;
  /// Sends per sender mailbox per day.
  std::optional<qint64> dailyCapPerInbox;
  /// Least gap between two sends of one mailbox.
  std::optional<qint64> gapSeconds;
  std::optional<bool> stopOnReply;
  std::optional<CampaignOptions> settings;
  std::optional<QList<QString>> tags;
  std::optional<QList<CampaignSender>> senders;
  std::optional<QList<CampaignStep>> steps;
  std::optional<CampaignStats> stats;
  std::optional<Qc> qc;
  std::optional<Plan> lastPlan;
  std::optional<QString> launchedAt;
  std::optional<QString> pausedAt;
  std::optional<QString> completedAt;
  std::optional<QString> createdAt;
  std::optional<qint64> version;
  std::optional<Parent> parent;
  std::optional<CampaignTrigger> trigger;
  bool operator==(const Campaign&) const = default;
};
BOOST_DESCRIBE_STRUCT(Campaign::Plan, (), (at, planned, note))
BOOST_DESCRIBE_STRUCT(Campaign::Parent, (), (id, number, name))
BOOST_DESCRIBE_STRUCT(Campaign, (),
                      (id, number, name, status, schedule, dailyCapPerInbox, gapSeconds, stopOnReply, settings, tags,
                       senders, steps, stats, qc, lastPlan, launchedAt, pausedAt, completedAt, createdAt, version,
                       parent, trigger))

struct PreviewResponse {
  struct Lead {
    std::optional<QString> id;
    QString email;
    std::optional<QMap<QString, JSONValue>> data;
    bool operator==(const Lead&) const = default;
  };
  struct Sender {
    QString address;
    std::optional<QString> displayName;
    bool operator==(const Sender&) const = default;
  };
  using Variant = QcPreview;
  struct Step {
    qint64 position = 0;
    QList<Variant> variants;
    bool operator==(const Step&) const = default;
  };
  struct Variable {
    QString name;
    /// This lead's value.
    std::optional<QString> value;
    /// A built-in lead field rather than a custom one.
    std::optional<bool> standard;
    std::optional<QString> description;
    bool operator==(const Variable&) const = default;
  };
  std::optional<Lead> lead;
  std::optional<Sender> sender;
  QList<Step> steps;
  std::optional<QList<Variable>> variables;
  bool operator==(const PreviewResponse&) const = default;
};
BOOST_DESCRIBE_STRUCT(PreviewResponse::Lead, (), (id, email, data))
BOOST_DESCRIBE_STRUCT(PreviewResponse::Sender, (), (address, displayName))
BOOST_DESCRIBE_STRUCT(PreviewResponse::Step, (), (position, variants))
BOOST_DESCRIBE_STRUCT(PreviewResponse::Variable, (), (name, value, standard, description))
BOOST_DESCRIBE_STRUCT(PreviewResponse, (), (lead, sender, steps, variables))

/// A test send and how far it got.
struct TestEmail {
  QString id;
  QString state;
  std::optional<QString> from;
  std::optional<QString> to;
  std::optional<QString> subject;
  std::optional<QString> error;
  std::optional<QList<QString>> warnings;
  bool operator==(const TestEmail&) const = default;
};
BOOST_DESCRIBE_STRUCT(TestEmail, (), (id, state, from, to, subject, error, warnings))

struct Subsequence {
  QString id;
  std::optional<qint64> number;
  QString name;
  CampaignStatus status;
  std::optional<CampaignTrigger> trigger;
  std::optional<qint64> steps;
  std::optional<qint64> leads;
  std::optional<qint64> sent;
  std::optional<qint64> replied;
  std::optional<QString> createdAt;
  std::optional<qint64> version;
  bool operator==(const Subsequence&) const = default;
};
BOOST_DESCRIBE_STRUCT(Subsequence, (),
                      (id, number, name, status, trigger, steps, leads, sent, replied, createdAt, version))

struct SubsequenceList {
  QList<Subsequence> items;
  bool operator==(const SubsequenceList&) const = default;
};
BOOST_DESCRIBE_STRUCT(SubsequenceList, (), (items))

struct SpintaxOut {
  QString text;
  bool operator==(const SpintaxOut&) const = default;
};
BOOST_DESCRIBE_STRUCT(SpintaxOut, (), (text))

// Request bodies.

struct CreateCampaignBody {
  QString name;
  bool operator==(const CreateCampaignBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(CreateCampaignBody, (), (name))

/// Carries only what is set.
struct CampaignPatch {
  std::optional<QString> name;
  std::optional<CampaignSchedule> schedule;
  std::optional<qint64> dailyCapPerInbox;
  std::optional<qint64> gapSeconds;
  std::optional<bool> stopOnReply;
  std::optional<QList<QString>> senderMailboxIds;
  std::optional<CampaignOptions> settings;
  std::optional<QList<QString>> tags;
  std::optional<CampaignTrigger> trigger;
  bool operator==(const CampaignPatch&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignPatch, (),
                      (name, schedule, dailyCapPerInbox, gapSeconds, stopOnReply, senderMailboxIds, settings, tags,
                       trigger))

struct VariantIn {
  /// Absent for a new variant.
  std::optional<QString> id;
  QString label;
  QString subject;
  QString body;
  qint64 weight = 0;
  bool enabled = false;
  bool operator==(const VariantIn&) const = default;
};
BOOST_DESCRIBE_STRUCT(VariantIn, (), (id, label, subject, body, weight, enabled))

struct StepIn {
  /// Absent for a new step.
  std::optional<QString> id;
  qint64 delayMinutes = 0;
  bool sameThread = false;
  QList<VariantIn> variants;
  bool operator==(const StepIn&) const = default;
};
BOOST_DESCRIBE_STRUCT(StepIn, (), (id, delayMinutes, sameThread, variants))

/// The whole sequence; a step's position is its place in the list.
struct StepsBody {
  QList<StepIn> steps;
  bool operator==(const StepsBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(StepsBody, (), (steps))

struct LaunchBody {
  bool confirmExternal = false;
  bool operator==(const LaunchBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(LaunchBody, (), (confirmExternal))

struct PreviewBody {
  std::optional<QString> leadId;
  /// Unsaved steps to render instead of the saved ones.
  std::optional<QList<StepIn>> steps;
  bool operator==(const PreviewBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(PreviewBody, (), (leadId, steps))

struct TestEmailBody {
  QString to;
  std::optional<QString> mailboxId;
  std::optional<QString> leadId;
  qint64 stepPosition = 0;
  std::optional<QString> variantId;
  std::optional<QString> subject;
  std::optional<QString> body;
  bool operator==(const TestEmailBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(TestEmailBody, (), (to, mailboxId, leadId, stepPosition, variantId, subject, body))

struct SpintaxBody {
  QString text;
  /// Which field the text is: the subject or the body.
  QString field;
  bool operator==(const SpintaxBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(SpintaxBody, (), (text, field))

struct SubsequenceBody {
  QString name;
  CampaignTrigger trigger;
  bool operator==(const SubsequenceBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(SubsequenceBody, (), (name, trigger))

namespace Requests {

Request<CampaignList> listCampaigns(bool archived);
Request<Campaign> getCampaign(const QString& id);
Request<Campaign> createCampaign(const CreateCampaignBody& body);
/// `version` as last read, when it is known.
Request<Campaign> updateCampaign(const QString& id, const CampaignPatch& patch, std::optional<qint64> version);
/// Without a version: the last save of a sequence wins.
Request<Campaign> saveSteps(const QString& id, const StepsBody& body);
Request<PreviewResponse> previewCampaign(const QString& id, const PreviewBody& body);
Request<TestEmail> sendTestEmail(const QString& id, const TestEmailBody& body);
Request<TestEmail> testEmailState(const QString& testId);
Request<Qc> checkCampaign(const QString& id);
/// Also resumes a paused campaign.
Request<Campaign> launchCampaign(const QString& id, const LaunchBody& body);
Request<Campaign> pauseCampaign(const QString& id);
Request<Campaign> duplicateCampaign(const QString& id);
/// Archives, or deletes for good.
Request<Empty> deleteCampaign(const QString& id, bool permanent);
Request<Campaign> restoreCampaign(const QString& id);
Request<SubsequenceList> listSubsequences(const QString& id);
Request<Campaign> createSubsequence(const QString& id, const SubsequenceBody& body);
Request<SpintaxOut> spinText(const SpintaxBody& body);

}  // namespace Requests
}  // namespace orv
