#pragma once

#include <QCache>
#include <QDate>
#include <QHash>
#include <memory>
#include <vector>

#include "demo/LeadMatcher.h"
#include "kit/models/leads/leadRecord.h"

namespace orv::demo {

struct Traits;

/// The database of leads: hundreds of thousands, each made of the seed and its number whenever somebody looks at it,
/// and none of them held. The newest has the highest number.
class LeadBase {
 public:
  LeadBase(quint64 seed, qint64 size, const QDate& today);

  qint64 size() const { return m_size; }
  /// In full, with nothing hidden.
  LeadRecord lead(qint64 number) const;
  /// Of an id; below zero when it is none of its leads.
  qint64 numberOf(const QString& id) const;

  /// A filter as it is asked of many numbers: what leads share is looked at once.
  class Plan {
   public:
    Plan(const LeadBase& base, const LeadFilterBody& filter);
    bool fits(qint64 number) const;
    /// How many do.
    qint64 count() const;

   private:
    bool hasWords(const Traits& traits, size_t which) const;

    const LeadBase& m_base;
    LeadMatcher m_matcher;
    std::vector<bool> m_companies, m_titles;
    /// Of the words wanted and unwanted.
    std::vector<bool> m_companyHits[2], m_titleHits[2], m_nameHits[2];
    bool m_hasWords[2];
    /// By database, verification and phone.
    bool m_people[2][4][2];
    bool m_asksForFollowers;
    mutable std::optional<qint64> m_count;
  };

  /// The same filter is asked page after page.
  std::shared_ptr<const Plan> plan(const LeadFilterBody& filter) const;

  /// How many leads of the database ("all" for both) have which value of the field. Empty for a field of no facets.
  const QHash<QString, qint64>& tally(const QString& field, const QString& database) const;
  static bool hasFacet(const QString& field);

 private:
  friend class Plan;
  Traits traits(qint64 number) const;
  QDate createdOn(qint64 number) const;

  quint64 m_seed;
  qint64 m_size;
  QDate m_today;
  mutable QHash<QString, QHash<QString, qint64>> m_tallies;
  mutable QCache<QByteArray, std::shared_ptr<const Plan>> m_plans{16};
};

/// The values of the facet that a lead has: of a technology, several.
QStringList facetValues(const QString& field, const CompanyFacts& company, const TitleFacts& title,
                        const PersonFacts& person);
/// What people read for a value of the facet.
QString facetLabel(const QString& field, const QString& value);

}  // namespace orv::demo
