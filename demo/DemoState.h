#pragma once

#include <QDateTime>
#include <QHash>
#include <QMap>
#include <QSet>
#include <functional>

#include "demo/DemoInbox.h"
#include "demo/DemoRandom.h"
#include "demo/SetupState.h"
#include "demo/Team.h"
#include "demo/WorkspaceLeads.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignFeed.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignSender.h"
#include "kit/models/campaigns/campaignStats.h"
#include "kit/models/campaigns/campaignSummary.h"
#include "kit/models/campaigns/sequence.h"
#include "kit/models/campaigns/testEmail.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/rampup/roadmapTemplate.h"
#include "kit/models/rampup/warmupSettings.h"
#include "kit/session/records.h"

namespace orv::demo {

struct DemoCampaign {
  /// Its stats are always there and count the leads.
  Campaign record;
  /// Made when they are first asked for (see enrol()); until then the stats alone say what they are.
  QList<CampaignLead> leads;
  bool enrolled = false;
  quint64 seed = 0;
  /// What people did to the campaign and its leads, oldest first; what was sent follows from the leads.
  QList<FeedItem> events;
  /// Set while the campaign is archived.
  std::optional<QString> archivedAt;
  /// The mailboxes that sent for it up to and on a day, oldest first: what was sent stays where it came from, whoever
  /// sends later.
  struct EarlierSenders {
    QDate until;
    QStringList mailboxes;
  };
  QList<EarlierSenders> earlierSenders;
  QStringList senderIds() const;
  /// What one day sends is dealt once, so the first of the new ones' days is the next.
  void setSenders(const QList<CampaignSender>& senders, const QDate& today);

  /// What a record may leave out and the campaigns here have.
  CampaignStats& stats() { return record.stats ? *record.stats : record.stats.emplace(); }
  QList<CampaignStep>& steps() { return record.steps ? *record.steps : record.steps.emplace(); }
  const CampaignStats& stats() const { return orNothing(record.stats); }
  const QList<CampaignStep>& steps() const { return orNothing(record.steps); }
  const QList<CampaignSender>& senders() const { return orNothing(record.senders); }

  CampaignSummary summary() const;

 private:
  template <class T>
  static const T& orNothing(const std::optional<T>& value) {
    static const T nothing{};
    return value ? *value : nothing;
  }
};

/// A roadmap as it was from one day on. The days before stay as they were planned then.
struct RoadmapLeg {
  QDate from;
  QList<RoadmapStage> stages;
  QDate startedOn;
  /// Days that it stood still.
  qint64 shiftDays = 0;
  bool paused = false;
  /// Of the warm-up's settings.
  bool off = false, weekdaysOnly = false;
};

struct DemoRoadmap {
  QString id;
  std::optional<QString> templateId;
  QString templateName;
  /// Oldest first; there is one at least.
  QList<RoadmapLeg> legs;
  std::optional<QString> pausedAt;
  std::optional<QString> pausedBy;
  std::optional<QString> pauseReason;
  qint64 version = 1;
};

struct DemoMailbox {
  /// A check of the connection under way: when it ends, with what error if any, and the status it leaves.
  struct Check {
    QDateTime endsAt;
    std::optional<QString> error;
    MailboxStatus then;
  };

  /// Without the figures of the day: they are worked out when it is shown (see Mailboxes.h).
  Mailbox record;
  /// Its place in the list.
  qint64 order = 0;
  std::optional<Check> check;
  /// What is wrong with its connection until it gets a new one.
  std::optional<QString> fault;
  /// Nothing has been sent since.
  std::optional<QDateTime> idleSince;
  std::optional<DemoRoadmap> roadmap;
  /// But for the daily limit, which is in the record.
  WarmupSettings warmup;
  /// Campaigns that it was picked for when it was archived.
  QStringList leftCampaigns;

  const QString& id() const { return record.id; }
  bool isActive() const { return record.status.isActive(); }
  QList<QString> tags() const { return record.tags.value_or(QList<QString>()); }
};

struct DemoTestEmail {
  TestEmail record;
  QDateTime startedAt;
};

struct DemoWorkspace {
  QString id;
  QString slug;
  QString name;
  QString timeZone;
  /// Role by the member's email.
  QMap<QString, QString> members;
  /// The workspace's own, in the order they are listed.
  QList<DemoMailbox> mailboxes;
  /// Those that only warm up the others.
  QList<DemoMailbox> pool;
  /// Each with the moment in its record.
  QList<DemoMailbox> archivedMailboxes;
  qint64 lastMailboxNumber = 0;
  /// Live and archived ones.
  QList<RoadmapTemplate> templates;
  /// Live and archived ones.
  QList<DemoSetupProject> setupProjects;
  /// Oldest first.
  QList<DemoSetupRun> setupRuns;
  /// The placement watcher acts on what it sees, and has been around once at least.
  bool watcherActs = true, watcherScanned = true;
  /// How often the directory of a Google Workspace domain was asked for before its admin let the service in.
  QHash<QString, int> googleAsked;
  /// In the order they are listed: the newest first.
  QList<DemoCampaign> campaigns;
  qint64 lastNumber = 0;
  /// Live and archived ones, the newest first.
  QList<DemoLeadList> lists;
  qint64 lastListNumber = 0;
  WorkspaceLeads leads;
  /// Addresses that never get an email.
  QStringList blocklist;
  QHash<QString, DemoTestEmail> testEmails;
  DemoTeam team;
  DemoInbox inbox;

  DemoCampaign* find(const QString& campaignId);
  DemoLeadList* findList(const QString& id);
  /// Wherever it is.
  DemoMailbox* findMailbox(const QString& id);
};

struct DemoAccount {
  User user;
  /// Empty for an account that signs in by code only.
  QString password;
  std::optional<QString> lastWorkspace;
};

/// Sent by email to sign in with.
struct SentCode {
  QString code;
  QDateTime sentAt;
  int triesLeft = 5;
};

struct GoogleGrant {
  QString email;
  QString challenge;
};

struct DemoState {
  /// By email.
  QMap<QString, DemoAccount> accounts;
  /// By email.
  QHash<QString, SentCode> codes;
  /// Whose, by token.
  QHash<QString, QString> sessions;
  /// By the code that is exchanged.
  QHash<QString, GoogleGrant> googleGrants;
  QList<DemoWorkspace> workspaces;
  /// How often somebody answers by themselves, in each workspace that has an inbox.
  double repliesPerMinute = 0;

  std::function<void(const QString& email, const QString& code)> sendCode;

  DemoWorkspace* find(const QString& slug);
};

/// Whether what was archived at that instant has waited long enough to go for good.
bool isOverdue(const std::optional<QString>& archivedAt, const QDateTime& now);

/// How much of everything there is, at least; what the sample has by hand is always there.
struct DemoScale {
  int campaigns = 0;
  int mailboxes = 0;
  int leads = 0;
  int threads = 0;
  /// Leads in the database: enough to be counted by estimate, and few enough for a test.
  int database = 20'000;
};

/// The sample: the same seed, scale and day give the same bytes.
DemoState makeSample(quint64 seed, const DemoScale& scale, const QDate& today);

}  // namespace orv::demo
