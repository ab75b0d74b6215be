#pragma once

#include <QDateTime>
#include <QHash>
#include <QSet>
#include <functional>
#include <memory>

#include "demo/CsvRows.h"
#include "demo/LeadBase.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/leads/leadImport.h"
#include "kit/models/leads/leadList.h"
#include "kit/models/leads/savedSearch.h"
#include "kit/models/leads/unlocks.h"

namespace orv::demo {

/// Where a lead stands among all that a workspace sees, the newest highest: the database's by their numbers, behind
/// them the workspace's own.
enum class LeadPlace : qint64 {};
inline LeadPlace operator-(LeadPlace place, qint64 steps) { return LeadPlace(qint64(place) - steps); }

/// People that somebody has put together, to be enrolled from.
struct DemoLeadList {
  struct Member {
    LeadPlace lead;
    /// Its place in the list, for the pages: who leaves meanwhile shifts nothing.
    qint64 order;
  };

  /// But for the count.
  LeadList record;
  /// Oldest first.
  QList<Member> members;
  QSet<LeadPlace> has;
  qint64 lastOrder = 0;
  /// Added without anybody waiting, the next one last.
  QList<LeadPlace> queued;
  QDateTime queuedSince;

  const QString& id() const { return record.id; }
  /// False when it is in the list.
  bool add(LeadPlace lead);
  bool remove(LeadPlace lead);
  LeadList shown() const;
};

/// A file on its way into the workspace's leads. What has been read of it by now is worked out when somebody looks.
struct DemoImport {
  LeadImport record;
  QDateTime queuedAt, startedAt;
  /// Let go of once it is read.
  CsvRows rows{QString()};
  QStringList columns, mapping;
  /// Addresses that the file has had.
  QSet<QString> seen;
};

/// What a workspace knows of leads.
class WorkspaceLeads {
 public:
  std::shared_ptr<const LeadBase> base;
  QList<SavedSearch> searches;
  /// The newest first.
  QList<DemoImport> imports;

  /// Nothing when there is none of that id.
  std::optional<LeadPlace> placeOf(const QString& id) const;
  LeadPlace end() const { return LeadPlace(base->size() + m_own.size()); }
  /// With nothing hidden.
  LeadRecord at(LeadPlace place) const;
  /// As the workspace may see it.
  LeadRecord shown(LeadPlace place) const;
  bool isFromBase(LeadPlace place) const { return qint64(place) < base->size(); }
  /// Imported or unlocked.
  bool has(LeadPlace place) const { return !isFromBase(place) || m_unlocked.contains(place); }
  qint64 ownedCount() const { return m_own.size() + m_unlocked.size(); }
  const QList<LeadRecord>& own() const { return m_own; }
  const QSet<LeadPlace>& unlocked() const { return m_unlocked; }

  LeadPlace addOwn(const LeadRecord& lead);
  /// Of an address that the workspace has.
  std::optional<LeadPlace> placeOfAddress(const QString& email);
  LeadRecord& ownAt(LeadPlace place) { return m_own[qint64(place) - base->size()]; }

  /// What is left of the month's allowance, or of the credits.
  UnlockUsage usage(const QDate& today);
  void setAllowance(const UnlockUsage& usage) { m_usage = usage; }
  /// Uses one up. The caller has seen that there is one left and that the lead is locked.
  void unlock(LeadPlace place);
  /// What came with the sample has used nothing up.
  void giveUnlocked(LeadPlace place) { m_unlocked.insert(place); }

 private:
  QList<LeadRecord> m_own;
  QHash<QString, LeadPlace> m_ownById;
  QSet<LeadPlace> m_unlocked;
  /// Of what the workspace has; made when it is first asked for.
  std::optional<QHash<QString, LeadPlace>> m_byAddress;
  UnlockUsage m_usage;
};

/// What a lead can be found by.
struct LeadFacts {
  explicit LeadFacts(const LeadRecord& lead);
  bool fit(const LeadMatcher& matcher) const;

  QString name;
  CompanyFacts company;
  TitleFacts title;
  PersonFacts person;
};

/// As a campaign takes it in: one that is locked has no address yet.
CampaignLead enrollable(const WorkspaceLeads& leads, LeadPlace place);
LeadRecord recordOf(const CampaignLead& person, const QString& createdAt);

}  // namespace orv::demo
